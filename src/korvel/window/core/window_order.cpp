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

} // namespace

// The display is told also of a window that is there already: it may stack the widgets in another order.
void PutAfter(WindowRecord& record, HWND insertAfter) {
    const RecordRef parent = Find(record.parent);
    if (parent ? MoveTo(parent->children, record.handle, insertAfter) : insertAfter == HWND_TOP)
        TellDisplay(record, Aspect::Order);
}

} // namespace korvel::internal
