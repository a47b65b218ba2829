#pragma once

#include <string_view>

namespace korvel::internal {

enum class NumberSign { Positive, Negative };

/// The value of a run of decimal digits; it stops at the bounds of a 32-bit integer.
///
/// There is no negative zero among the integers: "-0" is 0.
int IntegerOfDigits(NumberSign sign, std::string_view digits);

/// The double nearest to a decimal text with a point, whatever the locale of the process is. Beyond the
/// range of a double it is an infinity, too small for it zero.
double DoubleOfText(NumberSign sign, std::string_view text);

} // namespace korvel::internal
