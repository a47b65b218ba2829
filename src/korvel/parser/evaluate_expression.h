#pragma once

#include "korvel/output/numberfmt.h"
#include "korvel/platform/export.h"

#include <string_view>

namespace korvel {

/// How a run of digits with no point and no exponent is read.
enum class WholeNumbers {
    Of32Bits, ///< as a 32-bit integer, which stops at its bounds
    AsTyped   ///< as the nearest double
};

/// The value of an arithmetic expression, as typed into a numeric cell.
///
///     EvaluateExpression(",", "2*(3+4,5)")  -> 15
///     EvaluateExpression(",", "1.234,5")    -> throws: thousands separators are not removed
///
/// The four operations with the usual precedence, from left to right, brackets, and one sign directly
/// before a number: "2*-3" and "1--2" (3) are valid, "--1" and "-(1)" are not. Blanks and line ends between
/// them mean nothing.
///
/// Every occurrence of the decimal separator is read as a point; an empty separator changes nothing. A number
/// is "1", "1.5", "1.", ".5", or one of these with an exponent: "1e5", "1.5E-3"; the letter "f" is passed
/// over, so that "1.5f" from program text reads as 1.5. A run of digits with no point and no exponent stops
/// at the bounds of a 32-bit integer, unless `wholeNumbers` says otherwise: "3000000000" gives 2147483647,
/// "3000000000." does not. Division by zero gives an infinity or not-a-number, and a number beyond the range
/// of a double an infinity.
///
/// \throws Error with an empty text for everything else: text after a complete expression, more than
/// 1,000 brackets open at once, a number longer than 2,000 bytes. Nothing is kept between two calls; calls
/// from several threads do not disturb each other.
KORVEL_API double EvaluateExpression(std::string_view decimalSeparator, std::string_view text,
                                     WholeNumbers wholeNumbers = WholeNumbers::Of32Bits);

/// The same, as typed under a number format, whose separator must not be null.
KORVEL_API double EvaluateExpression(const _numberfmtA& format, std::string_view text,
                                     WholeNumbers wholeNumbers = WholeNumbers::Of32Bits);

} // namespace korvel
