// A number format, then the numbers that are written by it.

#include "fuzz_target.h"
#include "korvel/output/angles.h"
#include "korvel/output/dates.h"
#include "korvel/output/measures.h"
#include "korvel/output/numbers.h"
#include "korvel/output/stations.h"

#include <cmath>
#include <stdexcept>

namespace {

using namespace korvel;

struct Separators {
    std::string decimal;
    std::string thousand;
};

std::string TakeSeparator(fuzz::Input& input) {
    const std::string text(input.TakeText(input.Take<std::uint8_t>() % 4U));
    return text.substr(0, text.find('\0'));
}

_numberfmtA TakeFormat(fuzz::Input& input, Separators& separators) {
    separators = {TakeSeparator(input), TakeSeparator(input)};
    _numberfmtA format;
    const auto digits = input.Take<std::uint16_t>();
    format.NumDigits = digits == 0xFFFF ? 0xFFFFFFFF : digits % 1100U;
    format.LeadingZero = input.Take<std::uint8_t>() % 2U;
    format.Grouping = input.Take<std::uint32_t>();
    format.NegativeOrder = input.Take<std::uint8_t>() % 6U;
    format.DecimalSep = separators.decimal.c_str();
    format.ThousandSep = separators.thousand.c_str();
    return format;
}

// The value rounded half away from zero on its decimal text of 15 places, as digits without a point.
std::string RoundedDigits(double value, std::size_t places) {
    char text[512];
    std::snprintf(text, sizeof text, "%.15f", std::abs(value));
    std::string digits(text);
    const std::size_t point = digits.find('.');
    digits.erase(point, 1).resize(point + std::max<std::size_t>(places, 15), '0');
    const bool up = digits.size() > point + places && digits[point + places] >= '5';
    digits.resize(point + places);
    if (!up)
        return digits;
    std::size_t i = digits.size();
    while (i > 0 && digits[i - 1] == '9')
        digits[--i] = '0';
    return i == 0 ? "1" + digits : (++digits[i - 1], digits);
}

std::string WithoutLeadingZeros(const std::string& digits) {
    return digits.substr(std::min(digits.find_first_not_of('0'), digits.size()));
}

std::string DigitsOf(const std::string& text) {
    std::string digits;
    for (const char byte : text)
        if (byte >= '0' && byte <= '9')
            digits += byte;
    return digits;
}

bool HasDigit(const std::string& text) {
    return !DigitsOf(text).empty();
}

void RequireTheDigits(double value, const _numberfmtA& format, const Separators& separators) {
    const std::string text = NumberToString(value);
    const bool comparable = std::isfinite(value) && std::abs(value) < 1e200 && format.NumDigits < 100 &&
                            format.NegativeOrder < 5 && !HasDigit(separators.decimal) &&
                            !HasDigit(separators.thousand);
    if (comparable && text.size() < 1000)
        fuzz::Require(WithoutLeadingZeros(DigitsOf(text)) ==
                          WithoutLeadingZeros(RoundedDigits(value, format.NumDigits)),
                      "the text has the digits of the rounded value");
}

void WriteIntegers(std::int64_t value) {
    try {
        NumberToString(static_cast<int>(value));
        NumberToString(static_cast<unsigned>(value));
        NumberToString(static_cast<long>(value));
    } catch (const std::invalid_argument&) {
        // For negative numbers, and for digits beyond the longest text.
    }
}

template <typename Real>
void WriteReal(Real value) {
    NumberToString(value);
    NumberToStringEx(value);
    for (const char unit : {'r', 'g', 'd'}) {
        SetAngleUnit(unit);
        AngleToString(value);
        RadToAngle(AngleToRad(value));
    }
    for (const std::string& station : {RailwayStationToString(value), RoadStationToString(value)})
        fuzz::Require(station.find('+') != std::string::npos, "a station has its sign");
    LengthToString(value);
    AreaToString(value);
    VolumeToString(value);
    PercentToString(value);
    CurrencyToString(value);
    ManDaysToString(value);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fuzz::GermanMachine machine;
    fuzz::Input input(data, size);
    Separators separators;
    const _numberfmtA format = TakeFormat(input, separators);
    SetFormatInt(format);
    SetFormatLong(format);
    SetFormatFloat(format);
    SetFormatDouble(format);
    SetAngleFormatFloat(format);
    SetAngleFormatDouble(format);
    while (!input.Rest().empty()) {
        const auto number = input.Take<std::int64_t>();
        double value = 0;
        std::memcpy(&value, &number, sizeof value);
        WriteIntegers(number);
        RequireTheDigits(value, format, separators);
        RequireTheDigits(static_cast<double>(number) / 1000, format, separators);
        WriteReal(value);
        WriteReal(static_cast<float>(static_cast<std::int32_t>(number)) / 8);
        DatetoString(value);
        TimetoString(number);
    }
    return 0;
}
