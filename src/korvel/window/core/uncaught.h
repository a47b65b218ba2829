#pragma once

#include "korvel/window/base/types.h"

#include <exception>
#include <functional>

/// Where an exception goes that no handler caught: to the exception handler (SetExceptionHandler), else to
/// the failure viewer, else to the caller that pumps messages.
namespace korvel::internal {

/// Runs `action` and hands on what it throws. Returns what the handler did not take.
std::exception_ptr FailureOf(const std::function<void()>& action);
/// The same, but throws it to the caller.
void Guarded(const std::function<void()>& action);

/// Shows the text of a failure to the user; false: nobody is there to see it.
using FailureViewer = bool(const CString& text);
/// Called when the library is loaded. Returns true.
bool SetFailureViewer(FailureViewer* show);

} // namespace korvel::internal
