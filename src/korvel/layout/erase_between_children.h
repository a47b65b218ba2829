#pragma once

#include "korvel/window/core/dc.h"

namespace korvel::internal {

/// Fills the background of a window without touching the children that paint their own: those that return 1
/// to WM_ERASEBKGND and are visible. Among these, statics whose style has a type other than 0 show the
/// window's background, so it is filled under them as well.
///
/// Children that overlap are counted by XOR: where two of them lie, the background is filled.
void EraseBetweenChildren(HWND window, CDC& dc);

} // namespace korvel::internal
