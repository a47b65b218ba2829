#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace korvel::internal {

/// Numbers as regional text.
///
///     NumberTextFormat german{.digits = 2, .decimalSeparator = ",", .thousandsSeparator = "."};
///     std::string text;
///     AppendNumberText(text, "1234567.891", german);   -> true, text is "1.234.567,89"
///     AppendNumberText(text, "1e5", german);           -> false, text is as before
struct NumberTextFormat {
    std::uint32_t digits = 2;      ///< after the decimal separator
    std::uint32_t leadingZero = 1; ///< 0: "0.5" loses its zero

    /// Group sizes from the right, one decimal digit each; the last one repeats unless a 0 follows.
    /// 123456789 with 0: 123456789, 3: 123.456.789, 32: 12.34.56.789, 30: 123456.789, 320: 1234.56.789.
    std::uint32_t grouping = 3;

    std::string_view decimalSeparator = ".";  ///< may be empty
    std::string_view thousandsSeparator = ""; ///< may be empty
    std::uint32_t negativeOrder = 1;          ///< 0 "(1,1)", 1 "-1,1", 2 "- 1,1", 3 "1,1-", 4 "1,1 -"
};

/// The longest text that is made, in bytes.
constexpr std::size_t LongestNumberText = 1024;

/// Appends a number that is given as decimal text: an optional "-", digits with at most one "." among them.
///
/// Rounds half away from zero, on the text. What is rounded to zero has no sign; with neither digits nor a
/// leading zero it is the empty text.
///
/// False, and nothing appended: the text is not of this form, the result is longer than LongestNumberText, or
/// the number is negative and negativeOrder above 4.
bool AppendNumberText(std::string& out, std::string_view number, const NumberTextFormat& format);

/// How many decimals a number is written out with before it is formatted.
enum class RenderedDigits { Float = 8, Double = 15 };

/// Appends exactly what the text of printf("%.8f") or printf("%.15f") would give: the value is rounded to
/// these decimals first (1.005 is 1.005000000000000, hence "1,01"). False also for an infinity and for
/// not-a-number.
bool AppendNumber(std::string& out, double value, RenderedDigits rendered, const NumberTextFormat& format);

bool AppendNumber(std::string& out, std::int64_t value, const NumberTextFormat& format);

} // namespace korvel::internal
