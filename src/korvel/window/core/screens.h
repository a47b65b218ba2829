#pragma once

#include "korvel/window/base/types.h"

namespace korvel::internal {

/// The rectangle where it can be seen: as it is when any part of it lies on a screen, else moved by the
/// shortest way onto the screen that shows most of `near`, or the first one. What is larger than that screen
/// begins at its upper left corner.
CRect OnSomeScreen(const CRect& rect, HWND near);

/// The rectangle moved by the shortest way onto the screen that `near` is on, or the first one. What is
/// larger than that screen begins at its upper left corner.
CRect WhollyOnScreen(const CRect& rect, CPoint near);

} // namespace korvel::internal
