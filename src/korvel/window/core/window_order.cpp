#include "korvel/window/core/window_order.h"

#include "korvel/window/core/window.h"
#include "korvel/window/core/window_changes.h"

#include <algorithm>

namespace korvel::internal {
namespace {

// False: `insertAfter` is no sibling.
bool MoveTo(std::vector<HWND>& siblings, HWND window, HWND insertAfter) {
    const bool isEnd = insertAfter == HWND_TOP || insertAfter == HWND_BOTTOM;
    const auto former = std::find(siblings.begin(), siblings.end(), window);
    const auto sibling = std::find(siblings.begin(), siblings.end(), insertAfter);
    if (former == siblings.end() || insertAfter == window || (!isEnd && sibling == siblings.end()))
        return false;
    const auto next = insertAfter == HWND_TOP ? siblings.begin() : isEnd ? siblings.end() : sibling + 1;
    if (next < former)
        std::rotate(next, former, former + 1);
    else
        std::rotate(former, former + 1, std::max(next, former + 1));
    return true;
}

void PutTopLevel(WindowRecord& record, HWND insertAfter) {
    const UINT former = record.exStyle;
    if (insertAfter == HWND_TOPMOST)
        record.exStyle |= WS_EX_TOPMOST;
    else if (insertAfter == HWND_NOTOPMOST || insertAfter == HWND_BOTTOM)
        record.exStyle &= ~WS_EX_TOPMOST;
    const bool isOther = record.exStyle != former;
    if (isOther)
        TellDisplay(record, Aspect::Style);
    if (insertAfter == HWND_TOP || insertAfter == HWND_TOPMOST || (isOther && insertAfter == HWND_NOTOPMOST))
        TellDisplay(record, Aspect::Order);
}

} // namespace

// The display is told also of a window that is there already: it may stack the widgets in another order.
void PutAfter(WindowRecord& record, HWND insertAfter) {
    const RecordRef parent = Find(record.parent);
    if (!parent)
        PutTopLevel(record, insertAfter);
    else if (MoveTo(parent->children, record.handle, insertAfter == HWND_TOPMOST ? HWND_TOP : insertAfter))
        TellDisplay(record, Aspect::Order);
}

} // namespace korvel::internal
