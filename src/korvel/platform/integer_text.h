#pragma once

#include <string_view>

namespace korvel::internal {

/// The number at the beginning of a text, as `atoi` reads it: blanks, a sign, digits; what
/// follows is ignored. Stops at the 32-bit bounds.
///
///     ReadInteger("3;2;0")       -> 3
///     ReadInteger(" -12 m")      -> -12
///     ReadInteger("99999999999") -> 2147483647
///     ReadInteger("none")        -> 0
int ReadInteger(std::string_view text);

} // namespace korvel::internal
