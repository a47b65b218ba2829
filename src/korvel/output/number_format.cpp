#include "korvel/output/number_format.h"

#include <stdexcept>

namespace korvel::internal {

NumberFormat::NumberFormat(const _numberfmtA& format, const NumberFormat& system) : _numberfmtA(format) {
    if (!format.DecimalSep || !format.ThousandSep || !SetDecimalSep(format.DecimalSep) ||
        !SetThousandSep(format.ThousandSep))
        throw std::invalid_argument("A separator of a number format has at most three bytes");
    PointAtOwnSeparators();
    System = SameFields(system);
}

NumberFormat::NumberFormat(const NumberFormat& other)
    : _numberfmtA(other), System(other.System), m_decimalSep(other.m_decimalSep),
      m_thousandSep(other.m_thousandSep) {
    PointAtOwnSeparators();
}

NumberFormat& NumberFormat::operator=(const NumberFormat& other) {
    static_cast<_numberfmtA&>(*this) = static_cast<const _numberfmtA&>(other);
    System = other.System;
    m_decimalSep = other.m_decimalSep;
    m_thousandSep = other.m_thousandSep;
    PointAtOwnSeparators();
    return *this;
}

bool NumberFormat::operator==(const NumberFormat& other) const {
    return System == other.System && SameFields(other);
}

NumberTextFormat NumberFormat::TextFormat() const {
    return {.digits = NumDigits,
            .leadingZero = LeadingZero,
            .grouping = Grouping,
            .decimalSeparator = DecimalSep,
            .thousandsSeparator = ThousandSep,
            .negativeOrder = NegativeOrder};
}

bool NumberFormat::Store(Separator& separator, std::string_view text) {
    if (text.size() >= separator.size())
        return false;
    separator.fill('\0');
    text.copy(separator.data(), text.size());
    return true;
}

bool NumberFormat::SameFields(const _numberfmtA& other) const {
    return NumDigits == other.NumDigits && LeadingZero == other.LeadingZero &&
           NegativeOrder == other.NegativeOrder && Grouping == other.Grouping &&
           std::string_view(DecimalSep) == other.DecimalSep &&
           std::string_view(ThousandSep) == other.ThousandSep;
}

void NumberFormat::PointAtOwnSeparators() {
    DecimalSep = m_decimalSep.data();
    ThousandSep = m_thousandSep.data();
}

} // namespace korvel::internal
