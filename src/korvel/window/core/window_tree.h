#pragma once

#include "korvel/window/base/types.h"

namespace korvel::internal {

/// The top-level window around a window, through its parents.
HWND RootOf(HWND window);
/// True for the window itself and for its descendants.
bool IsWithin(HWND ancestor, HWND window);

} // namespace korvel::internal
