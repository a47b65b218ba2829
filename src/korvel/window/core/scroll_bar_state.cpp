#include "korvel/window/core/scroll_bar_state.h"

#include "korvel/window/core/window.h"
#include "korvel/window/core/window_record.h"

namespace korvel::internal {
namespace {

constexpr int FirstMaximum = 100; // of a bar that a window is made with

} // namespace

UINT ScrollBarStyle(const WindowRecord& record, int bar) {
    if (record.control && record.control->Kind() != view::Kind::Painted)
        return 0;
    return bar == SB_HORZ ? WS_HSCROLL : bar == SB_VERT ? WS_VSCROLL : 0;
}

ScrollBarStates ScrollBarStatesOf(const WindowRecord& record) {
    if (record.scrollBars)
        return *record.scrollBars;
    return {{0, record.style & WS_HSCROLL ? FirstMaximum : 0, 0},
            {0, record.style & WS_VSCROLL ? FirstMaximum : 0, 0}};
}

ScrollBarState ScrollBarStateOf(const WindowRecord& record, int bar) {
    if (!ScrollBarStyle(record, bar))
        return {};
    const ScrollBarStates states = ScrollBarStatesOf(record);
    return bar == SB_HORZ ? states.horizontal : states.vertical;
}

CRect ScrollBarInsets(const WindowRecord& record) {
    const bool horizontal = (record.style & ScrollBarStyle(record, SB_HORZ)) != 0;
    const bool vertical = (record.style & ScrollBarStyle(record, SB_VERT)) != 0;
    return {0, 0, vertical ? GetSystemMetrics(SM_CXVSCROLL) : 0,
            horizontal ? GetSystemMetrics(SM_CYHSCROLL) : 0};
}

} // namespace korvel::internal
