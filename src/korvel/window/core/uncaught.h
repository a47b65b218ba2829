#pragma once

#include "korvel/window/base/types.h"

#include <exception>
#include <functional>

/// Where an exception goes that no handler caught: to the exception handler (SetExceptionHandler), else to who shows
/// it to the user, else on to whoever pumps.
namespace korvel::internal {

/// Runs `action` and hands what it throws on. What nobody takes comes back.
std::exception_ptr FailureOf(const std::function<void()>& action);
/// The same for a call of a pump, who gets what nobody takes.
void Guarded(const std::function<void()>& action);

/// Shows the text of a failure to the user; false: nobody is there to see it.
using FailureViewer = bool(const CString& text);
/// Called when the library is loaded. Returns true.
bool SetFailureViewer(FailureViewer* show);

} // namespace korvel::internal
