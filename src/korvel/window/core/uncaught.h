#pragma once

#include <exception>
#include <functional>

/// Where an exception goes that no handler caught: to the exception handler (SetExceptionHandler), or, when
/// none is set and the display is headless, on to whoever pumps.
namespace korvel::internal {

/// Runs `action` and hands what it throws to the exception handler. What that does not take comes back.
std::exception_ptr FailureOf(const std::function<void()>& action);
/// The same for a call of a pump, who gets what the handler does not take.
void Guarded(const std::function<void()>& action);

} // namespace korvel::internal
