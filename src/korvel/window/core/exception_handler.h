#pragma once

#include "korvel/window/base/types.h"

#include <functional>

namespace korvel {

using ExceptionHandler = std::function<void(const CString& text)>;

/// Receives the text of what no handler caught while a display delivered input; the default shows it in an
/// error box with the caption "Korvel", and lets it pass under a headless display. Null puts the default
/// back. Called on the thread of the failure; a sender that waits in another thread is released before. Any
/// thread may set it.
KORVEL_API void SetExceptionHandler(ExceptionHandler handler);
/// The handler that was set; empty for the default.
KORVEL_API ExceptionHandler GetExceptionHandler();

} // namespace korvel
