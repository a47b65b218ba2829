#pragma once

#include <tuple>
#include <vector>

namespace korvel {

/// Rows of a test, each named for the border that it guards.
template <class... Fields>
using Table = std::vector<std::tuple<const char*, Fields...>>;

} // namespace korvel
