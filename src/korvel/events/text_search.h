#pragma once

#include <string_view>

namespace korvel::internal {

/// Whether `text` holds `folded`, in any case of letters. `folded` is not empty and has been made by
/// platform::FoldCase.
///
///     HoldsFolded("Axis 3 has no Points", platform::FoldCase("POINT"))   // true
bool HoldsFolded(std::string_view text, std::string_view folded);

} // namespace korvel::internal
