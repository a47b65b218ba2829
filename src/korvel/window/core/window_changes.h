#pragma once

#include "korvel/window/core/window_record.h"

/// Reports to the display, about the windows that it shows.
namespace korvel::internal {

/// The window changed. While redraw is off this is kept until redraw is on again.
void TellDisplay(WindowRecord& record, Aspects aspects);
/// Has a part of the client area (null: all of it) painted again; nothing while redraw is off.
void Repaint(WindowRecord& record, const CRect* area = nullptr);

} // namespace korvel::internal
