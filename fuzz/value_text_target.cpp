// A number format, then the numbers that are written by it.

#include "fuzz_target.h"
#include "korvel/output/angles.h"
#include "korvel/output/dates.h"
#include "korvel/output/measures.h"
#include "korvel/output/number_format.h"
#include "korvel/output/numbers.h"
#include "korvel/output/stations.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace {

using namespace korvel;

std::string TakeSeparator(fuzz::Input& input) {
    const std::string text(input.TakeText(input.Take<std::uint8_t>() % 4U));
    return text.substr(0, text.find('\0'));
}

internal::NumberFormat TakeFormat(fuzz::Input& input) {
    internal::NumberFormat format;
    format.SetDecimalSep(TakeSeparator(input));
    format.SetThousandSep(TakeSeparator(input));
    const auto digits = input.Take<std::uint16_t>();
    format.NumDigits = digits == 0xFFFF ? 0xFFFFFFFF : digits % 1100U;
    format.LeadingZero = input.Take<std::uint8_t>() % 2U;
    format.Grouping = input.Take<std::uint32_t>();
    format.NegativeOrder = input.Take<std::uint8_t>() % 6U;
    return format;
}

std::string Printed(int decimals, double value) {
    char text[512];
    std::snprintf(text, sizeof text, "%.*f", decimals, value);
    return text;
}

// Groups from the right, as the three known codes ask for them.
std::string Grouped(const std::string& digits, const _numberfmtA& format) {
    std::string text;
    std::size_t size = format.Grouping == 0 ? digits.size() : 3;
    std::size_t left = digits.size();
    for (; left > size; size = format.Grouping == 32 ? 2 : 3) {
        left -= size;
        text.insert(0, format.ThousandSep + digits.substr(left, size));
    }
    return digits.substr(0, left) + text;
}

std::string Signed(const std::string& text, std::uint32_t negativeOrder) {
    const char* const before[] = {"(", "-", "- ", "", ""};
    const char* const after[] = {")", "", "", "-", " -"};
    return before[negativeOrder] + text + after[negativeOrder];
}

// The text of a number a second way: rounded on the text of the C library.
std::string ReferenceText(double value, const _numberfmtA& format) {
    std::string digits;
    internal::AppendNumberText(digits, Printed(15, std::abs(value)), {format.NumDigits, 1, 0, ".", "", 1});
    std::string whole = digits.substr(0, digits.find('.'));
    const std::string fraction = digits.substr(std::min(whole.size() + 1, digits.size()));
    const bool isZero = digits.find_first_not_of(".0") == std::string::npos;
    if (whole == "0" && format.LeadingZero == 0)
        whole.clear();
    const std::string text = Grouped(whole, format) + (fraction.empty() ? "" : format.DecimalSep + fraction);
    return value < 0 && !isZero ? Signed(text, format.NegativeOrder) : text;
}

void RequireTheText(double value, const _numberfmtA& format) {
    const bool isKnownGrouping = format.Grouping == 0 || format.Grouping == 3 || format.Grouping == 32;
    const bool comparable = std::isfinite(value) && std::abs(value) < 1e200 && format.NumDigits < 100 &&
                            format.NegativeOrder < 5 && isKnownGrouping;
    const bool hasText = format.NumDigits > 0 || format.LeadingZero > 0 || std::abs(value) >= 1;
    if (comparable && hasText)
        fuzz::Require(NumberToString(value) == ReferenceText(value, format),
                      "a number is written by its format");
}

std::string WithComma(int decimals, double value) {
    std::string text = Printed(decimals, value);
    std::replace(text.begin(), text.end(), '.', ',');
    return text;
}

// The second half of a station: padded by the digits before its rounding.
std::string Metres(double value, int width) {
    const std::string padding(static_cast<std::size_t>(width), '0');
    const std::string whole = std::to_string(static_cast<long>(value));
    return padding.substr(std::min(whole.size(), padding.size())) + WithComma(2, value);
}

template <typename Real>
void RequireTheStation(Real value) {
    const std::string railway = RailwayStationToString(value);
    const std::string road = RoadStationToString(value);
    if (!(std::abs(value) < Real{1e9}))
        return;
    const Real hectometres = std::floor(value / 100) / 10;
    const Real kilometres = std::floor(value / 1000);
    const volatile Real metresOfRailway = hectometres * 1000; // rounded before it is subtracted
    const volatile Real metresOfRoad = kilometres * 1000;
    // A zero below zero has no sign.
    fuzz::Require(railway == WithComma(1, hectometres + Real{0}) + "+" +
                                 Metres(std::abs(value - metresOfRailway), 2),
                  "a railway station is kilometres and metres");
    fuzz::Require(road ==
                      WithComma(0, kilometres + Real{0}) + "+" + Metres(std::abs(value - metresOfRoad), 3),
                  "a road station is kilometres and metres");
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
    RequireTheStation(value);
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
    const internal::NumberFormat format = TakeFormat(input);
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
        RequireTheText(value, format);
        RequireTheText(static_cast<double>(number) / 1000, format);
        WriteReal(value);
        WriteReal(static_cast<float>(static_cast<std::int32_t>(number)) / 8);
        DatetoString(value);
        TimetoString(number);
    }
    return 0;
}
