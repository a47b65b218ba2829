#pragma once

#include "korvel/window/core/window_record.h"

/// Reports to the display, about the windows that it shows.
namespace korvel::internal {

/// The window changed. While redraw is off this is kept until redraw is on again.
void TellDisplay(WindowRecord& record, Aspects aspects);
/// Has a part of the client area (null: all of it) painted again. False, and nothing, while redraw is off and
/// where no display shows the part.
bool Repaint(WindowRecord& record, const CRect* area = nullptr);

} // namespace korvel::internal
