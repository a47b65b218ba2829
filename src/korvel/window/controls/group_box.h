#pragma once

#include "korvel/window/core/dc.h"

namespace korvel::internal {

/// Paints the frame of a group box, which opens at its text. What is inside stays as it is.
void PaintGroupBox(HWND window, CDC& dc);

} // namespace korvel::internal
