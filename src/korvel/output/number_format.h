#pragma once

#include "korvel/platform/export.h"
#include "korvel/platform/number_text.h"

#include <array>
#include <cstdint>

namespace korvel {

/// How numbers are written. The fields and their meaning are those of the platform's structure of this name.
///
///     _numberfmtA format = GetFormatDouble();
///     format.NumDigits = 3;
///     SetFormatDouble(format);
///     NumberToString(1234.5);   // "1.234,500" under German regional settings
struct _numberfmtA {
    std::uint32_t NumDigits = 0;   ///< after the decimal separator
    std::uint32_t LeadingZero = 0; ///< 0: "0.5" loses its zero
    std::uint32_t Grouping = 0;    ///< 0 "123456789", 3 "123.456.789", 32 "12.34.56.789"

    /// Three bytes at most; may be empty, never null. In a format that a service answers they belong to the
    /// service and change with it.
    const char* DecimalSep = "";
    const char* ThousandSep = "";

    std::uint32_t NegativeOrder = 0; ///< 0 "(1,1)", 1 "-1,1", 2 "- 1,1", 3 "1,1-", 4 "1,1 -"
};

/// A number format as a service keeps it: with separators of its own, and whether it follows the regional
/// settings.
class NumberFormat : public _numberfmtA {
public:
    /// Bytes of a separator's buffer, its final zero included.
    static constexpr std::size_t SeparatorSize = 4;

    NumberFormat() { PointAtOwnSeparators(); }

    /// Takes the fields over; `System` becomes true exactly when they all equal those of `system`.
    /// \throws std::invalid_argument when a separator is null or longer than three bytes
    NumberFormat(const _numberfmtA& format, const NumberFormat& system);

    NumberFormat(const NumberFormat& other);
    NumberFormat& operator=(const NumberFormat& other);

    bool operator==(const NumberFormat& other) const;

    /// False, and nothing changed, when the text has more than three bytes.
    bool SetDecimalSep(std::string_view text) { return Store(m_decimalSep, text); }
    bool SetThousandSep(std::string_view text) { return Store(m_thousandSep, text); }

    /// The same format as the number texts take it; lives as long as this.
    platform::NumberTextFormat TextFormat() const;

    bool System = false; ///< follows the regional settings

private:
    using Separator = std::array<char, SeparatorSize>;

    static bool Store(Separator& separator, std::string_view text);
    bool SameFields(const _numberfmtA& other) const;
    void PointAtOwnSeparators();

    Separator m_decimalSep{};
    Separator m_thousandSep{};
};

} // namespace korvel
