#pragma once

#include "korvel/window/base/types.h"

#include <vector>

/// Colors, sizes and text widths of the user's desktop.
namespace korvel::internal {

/// COLOR_*, from the palette in force at the call: light or dark as the user has it.
COLORREF SystemColor(int index);
/// SM_*, in device-independent pixels; 0 for one that is unknown.
int SystemMetric(int index);
/// Where windows may lie on each screen, the main one first.
std::vector<CRect> ScreenRectangles();
int TextWidth(const CString& text);

} // namespace korvel::internal
