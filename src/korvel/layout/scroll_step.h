#pragma once

#include "korvel/window/base/types.h"

/// How a page scrolls its content by the messages of its bars.
namespace korvel::internal {

struct ScrollStep {
    UINT code = 0;    // SB_*
    int position = 0; // of the bar
    int thumb = 0;    // where the user dragged it
    int extent = 0;   // of the client area along the bar
    int minimum = 0;
    int maximum = 0;
};

/// The new position. A page is the extent without 10 pixels, a line the tenth of a page.
///
/// Kept: SB_TOP and SB_BOTTOM go one line only; and what lies below the minimum becomes 0, which a bar whose
/// minimum is not 0 takes for its nearest.
int NextPosition(const ScrollStep& step);

/// Moves SB_HORZ or SB_VERT of a window, and the content with it.
void ScrollByCode(HWND window, int bar, UINT code, int thumb);

} // namespace korvel::internal
