#pragma once

#include "korvel/window/core/window_record.h"

namespace korvel::internal {

/// Clears everything that refers to a window whose end is near: its object, timers, capture, focus. Sends
/// nothing.
void ForgetWindow(WindowRecord& record);

} // namespace korvel::internal
