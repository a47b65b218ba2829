#pragma once

#include <functional>

namespace korvel::internal {

/// Where an exception goes that no handler caught, when no exception handler is set and the display is
/// headless: on to the caller, who pumps, or to whoever pumps this thread next.
enum class Uncaught { ToPump, ToNextPump };

/// Runs `action`; what it throws goes to the exception handler (window/display/display.h).
void Guarded(Uncaught uncaught, const std::function<void()>& action);

} // namespace korvel::internal
