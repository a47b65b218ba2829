#pragma once

#include "korvel/window/core/window_record.h"

/// The window that gets all mouse messages. On the display's thread only.
namespace korvel::internal {

/// Ends the capture when the window or a descendant has it. Nothing for a window that the display does not
/// show.
void TakeCaptureAway(const WindowRecord& record);

/// No window has the capture any more if it was this one. Sends nothing.
void ForgetCapture(HWND window);
/// The same, whichever window it was; the display is not told.
void ForgetCapture();

} // namespace korvel::internal
