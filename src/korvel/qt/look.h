#pragma once

#include "korvel/window/base/types.h"

/// What the desktop of the user looks like.
namespace korvel::qt {

/// COLOR_*, from the palette in force: light or dark as the user has it, today's when asked again.
COLORREF SystemColor(int index);
/// SM_*, in device-independent pixels; 0 for one that is unknown.
int SystemMetric(int index);
int TextWidth(const CString& text);

} // namespace korvel::qt
