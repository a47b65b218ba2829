#pragma once

#include <functional>

namespace korvel::internal {

/// Runs what asks a window for a screen reader; not where the window is gone. Whatever the host does meanwhile, the
/// widget of the window is there afterwards.
using Asker = std::function<void(const std::function<void()>& question)>;

} // namespace korvel::internal
