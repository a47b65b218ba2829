#pragma once

#include "korvel/window/core/display.h"

/// The timer table, which serves the windows of the display. On the display's thread only.
namespace korvel::internal {

/// Sends WM_TIMER for every timer that is due and sets the next alarm.
void FireDueTimers();
/// Begins every period anew on the clock of another display.
void RestartTimers(IDisplay& display);
void ForgetTimers(HWND window);
void ForgetTimers();

} // namespace korvel::internal
