#pragma once

#include <functional>

namespace korvel::qt {

/// Handles events until `done` answers true, or until the application ends. `done` is asked whenever
/// nothing is left to do. What it throws reaches the caller, never Qt.
void WaitUntil(const std::function<bool()>& done);

} // namespace korvel::qt
