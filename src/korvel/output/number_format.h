#pragma once

#include "korvel/output/numberfmt.h"
#include "korvel/platform/number_text.h"

#include <array>
#include <string_view>

namespace korvel::internal {

/// The formats of plain numbers, by the types that are written with them.
enum class NumberRecord { Integer, Long, Float, Double };

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

    /// The same format as the number texts take it; valid as long as this.
    NumberTextFormat TextFormat() const;

    bool System = false; ///< follows the regional settings

private:
    using Separator = std::array<char, SeparatorSize>;

    static bool Store(Separator& separator, std::string_view text);
    bool SameFields(const _numberfmtA& other) const;
    void PointAtOwnSeparators();

    Separator m_decimalSep{};
    Separator m_thousandSep{};
};

} // namespace korvel::internal
