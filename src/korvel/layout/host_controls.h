#pragma once

#include "korvel/window/base/types.h"

/// What a layout asks of its host window.
namespace korvel::internal {

/// The id of what has no control.
constexpr int NoControlId = -1;

/// The child with that id; null for NoControlId, which labels may have.
HWND ControlOf(HWND host, int id);

/// The window's rectangle in client coordinates of the host; zero for a window that does not exist.
CRect ClientRectangleOf(HWND window, HWND host);

} // namespace korvel::internal
