#pragma once

#include "korvel/window/base/types.h"

namespace korvel::internal {

struct WindowRecord;

/// One standard scroll bar of a plain window (core/scroll_bar.h). Its style bit says whether it is shown.
struct ScrollBarState {
    int minimum = 0;
    int maximum = 0;
    int position = 0;
};

struct ScrollBarStates {
    ScrollBarState horizontal;
    ScrollBarState vertical;
};

/// The style bit of SB_HORZ or SB_VERT in this window; 0 for another number, and for a control that scrolls
/// itself.
UINT ScrollBarStyle(const WindowRecord& record, int bar);
/// What the window has, also where the program has set nothing yet.
ScrollBarStates ScrollBarStatesOf(const WindowRecord& record);
/// All zero where there is no such bar.
ScrollBarState ScrollBarStateOf(const WindowRecord& record, int bar);
/// What shown bars take from the client area.
CRect ScrollBarInsets(const WindowRecord& record);

} // namespace korvel::internal
