#pragma once

#include "korvel/window/core/window_record.h"

/// How the display hears that a window changed. Nothing reaches it of a window that it does not show.
namespace korvel::internal {

/// While redraw is off it is kept until redraw is on again.
void TellDisplay(WindowRecord& record, Aspects aspects);
/// Has a part of the client area (null: all of it) painted again; nothing while redraw is off.
void Repaint(WindowRecord& record, const CRect* area = nullptr);

} // namespace korvel::internal
