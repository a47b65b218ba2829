#pragma once

#include <functional>

namespace korvel::internal {

/// Handles events until `done` returns true, or until the application ends. `done` is called whenever
/// no event is left. What it throws reaches the caller, never Qt.
void WaitUntil(const std::function<bool()>& done);

} // namespace korvel::internal
