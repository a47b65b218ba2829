#pragma once

#include <cstdint>

namespace korvel {

/// How numbers are written.
///
///     _numberfmtA format = GetFormatDouble();
///     format.NumDigits = 3;
///     SetFormatDouble(format);
///     NumberToString(1234.5);   // "1.234,500" under German regional settings
struct _numberfmtA {
    std::uint32_t NumDigits = 0;   ///< after the decimal separator
    std::uint32_t LeadingZero = 0; ///< 0: "0.5" loses its zero
    std::uint32_t Grouping = 0;    ///< 0 "123456789", 3 "123.456.789", 32 "12.34.56.789"

    /// Three bytes at most; may be empty, never null. In a format that a service returns they belong to the
    /// service and change with it.
    const char* DecimalSep = "";
    const char* ThousandSep = "";

    std::uint32_t NegativeOrder = 0; ///< 0 "(1,1)", 1 "-1,1", 2 "- 1,1", 3 "1,1-", 4 "1,1 -"
};

} // namespace korvel
