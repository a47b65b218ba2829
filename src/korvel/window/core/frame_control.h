#pragma once

#include "korvel/window/base/surface.h"

namespace korvel::internal {

/// CDC::DrawFrameControl.
void DrawFrameControl(Surface& surface, const CRect& rect, UINT type, UINT state);

} // namespace korvel::internal
