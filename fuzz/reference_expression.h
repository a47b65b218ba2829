#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace korvel::fuzz {

/// The value of an expression, or nothing for a text that is none: read character by character, with no
/// tables, no tokens and the C library's numbers.
std::optional<double> ReferenceValue(std::string_view separator, std::string_view text);

} // namespace korvel::fuzz
