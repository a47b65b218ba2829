#include "korvel/editors/station_text.h"

#include "korvel/output/station_output.h"
#include "korvel/parser/number_of_text.h"

#include <algorithm>
#include <string>

namespace korvel::internal {

namespace {

constexpr std::string_view Blanks = " \t\r\n";

struct StationForm {
    std::size_t kilometreDecimals;
    std::size_t metreWidth; // whole digits at least
    double metresOfUnit;    // of the last digit before the plus
};

constexpr StationForm Railway{1, 2, 100};
constexpr StationForm Road{0, 3, 1000};

// Takes a station off the front of a text.
class StationScanner {
public:
    StationScanner(std::string_view text, std::string_view decimalSeparator)
        : m_rest(text), m_separator(decimalSeparator) {}

    bool Take(std::string_view expected) {
        if (expected.empty() || !m_rest.starts_with(expected))
            return false;
        m_rest.remove_prefix(expected.size());
        return true;
    }
    bool TakeDecimalSign() { return Take(m_separator) || Take(CStationOutput::DecimalSign()) || Take("."); }
    std::string TakeDigits() {
        const std::size_t count = std::min(m_rest.find_first_not_of("0123456789"), m_rest.size());
        std::string digits(m_rest.substr(0, count));
        m_rest.remove_prefix(count);
        return digits;
    }
    bool IsAtEnd() const { return m_rest.empty(); }

private:
    std::string_view m_rest;
    std::string_view m_separator;
};

std::string_view Trimmed(std::string_view text) {
    const std::size_t begin = text.find_first_not_of(Blanks);
    if (begin == std::string_view::npos)
        return {};
    return text.substr(begin, text.find_last_not_of(Blanks) + 1 - begin);
}

std::optional<double> Read(const StationForm& form, StationScanner scanner) {
    const NumberSign sign = scanner.Take("-") ? NumberSign::Negative : NumberSign::Positive;
    std::string units = scanner.TakeDigits();
    if (units.empty())
        return std::nullopt;
    if (form.kilometreDecimals > 0) {
        const bool hasSign = scanner.TakeDecimalSign();
        const std::string decimals = scanner.TakeDigits();
        if (!hasSign || decimals.size() != form.kilometreDecimals)
            return std::nullopt;
        units += decimals;
    }
    const bool hasPlus = scanner.Take("+");
    std::string metres = scanner.TakeDigits();
    if (!hasPlus || metres.size() < form.metreWidth)
        return std::nullopt;
    const bool isOneNumber = sign == NumberSign::Positive && metres.size() == form.metreWidth;
    if (scanner.TakeDecimalSign())
        metres += "." + scanner.TakeDigits();
    if (!scanner.IsAtEnd())
        return std::nullopt;
    if (isOneNumber)
        return DoubleOfText(sign, units + metres); // a sum would round twice
    return DoubleOfText(sign, units) * form.metresOfUnit + DoubleOfText(NumberSign::Positive, metres);
}

} // namespace

std::optional<double> ReadStation(ValueMeaning meaning, std::string_view text,
                                  std::string_view decimalSeparator) {
    const StationScanner scanner(Trimmed(text), decimalSeparator);
    switch (meaning) {
    case ValueMeaning::RailwayStation:
        return Read(Railway, scanner);
    case ValueMeaning::RoadStation:
        return Read(Road, scanner);
    default:
        return std::nullopt;
    }
}

} // namespace korvel::internal
