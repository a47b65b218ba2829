#include "landxml/number_writing.h"

#include "korvel/platform/calendar.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>
#include <numbers>
#include <optional>
#include <utility>
#include <vector>

namespace korvel::inspector {
namespace {

// Room for the longest of them: 309 digits before the point or 20 after it.
constexpr std::size_t LongestNumber = 400;

template <typename... Form>
std::string Digits(Form... form) {
    char text[LongestNumber];
    const auto [end, error] = std::to_chars(text, text + LongestNumber, form...);
    return std::string(text, error == std::errc() ? end : text);
}

template <typename Number>
std::string TextOf(Number number) {
    if (std::isnan(number))
        return "NaN";
    if (std::isinf(number))
        return number < 0 ? "-INF" : "INF";
    constexpr Number Smallest = 1e-7F;
    constexpr Number Largest = 1e17F;
    const Number size = std::abs(number);
    const bool isUsual = number == 0 || (size >= Smallest && size < Largest);
    return isUsual ? Digits(number, std::chars_format::fixed) : Digits(number);
}

std::string WithoutZerosAtTheEnd(std::string text) {
    if (text.find('.') == std::string::npos)
        return text;
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.'))
        text.pop_back();
    return text;
}

// Degrees as "ddd.mmss" with `decimals` digits of the second after it.
std::string MinutesSecondsText(long double degrees, int decimals) {
    const long double size = std::abs(degrees);
    long double whole = std::floor(size);
    const long double rest = (size - whole) * 60;
    int minutes = static_cast<int>(rest);
    const long double seconds = (rest - minutes) * 60;
    std::string digits = Digits(seconds, std::chars_format::fixed, decimals);
    if (digits.find('.') == 1 || digits.size() == 1)
        digits.insert(0, 1, '0');
    if (digits.starts_with("60")) {
        digits[0] = '0';
        ++minutes;
    }
    if (minutes == 60) {
        minutes = 0;
        ++whole;
    }
    if (const std::size_t point = digits.find('.'); point != std::string::npos)
        digits.erase(point, 1);
    const std::string text = Digits(whole, std::chars_format::fixed, 0) + '.' +
                             static_cast<char>('0' + minutes / 10) + static_cast<char>('0' + minutes % 10) +
                             digits;
    return (degrees < 0 ? "-" : "") + WithoutZerosAtTheEnd(text);
}

std::string TextOfAngle(long double angle, AngleUnit unit, int decimals) {
    if (unit == AngleUnit::DegreesMinutesSeconds)
        return MinutesSecondsText(angle, decimals);
    return WithoutZerosAtTheEnd(Digits(angle, std::chars_format::fixed, decimals));
}

// Angles whose texts may mean the double: RadiansOf rounds three times and takes the lower one of those that
// serve, so a text may also read back as a neighboring double.
std::vector<long double> AnglesNear(double radians, double halfTurn) {
    constexpr long double Shown = 0.4e-15L; // as in RadiansOf
    std::vector<long double> angles;
    double near = radians;
    for (int step = 0; step <= 3; ++step) {
        const long double angle = near * halfTurn / std::numbers::pi;
        angles.push_back(angle);
        angles.push_back(angle + (radians < 0 ? -Shown : Shown));
        near = std::nextafter(near, radians < 0 ? -std::numeric_limits<double>::infinity()
                                                : std::numeric_limits<double>::infinity());
    }
    return angles;
}

std::optional<std::string> ExactAngleText(double radians, AngleUnit unit,
                                          const std::vector<long double>& angles) {
    constexpr int MostDecimals = 20;
    long double half = 0.5L; // of the last decimal
    std::string last;
    for (int decimals = 0; decimals <= MostDecimals; ++decimals, half /= 10) {
        const long double lower = unit == AngleUnit::DegreesMinutesSeconds ? half / 3600 : half;
        for (const long double angle : angles)
            for (const long double rounded : {angle, angle - lower, angle + lower}) {
                std::string text = TextOfAngle(rounded, unit, decimals);
                if (text == last)
                    continue;
                if (MeansRadians(text, unit, radians))
                    return text;
                last = std::move(text);
            }
    }
    return std::nullopt;
}

} // namespace

std::string NumberText(double number) {
    return TextOf(number);
}

std::string NumberText(float number) {
    return TextOf(number);
}

std::string AngleText(double radians, AngleUnit unit) {
    if (unit == AngleUnit::Radians || !std::isfinite(radians))
        return NumberText(radians);
    constexpr double LargestShown = 1e15; // beyond it, no digit after the point means anything
    const double halfTurn = unit == AngleUnit::Grads ? 200 : 180;
    const double angle = radians * halfTurn / std::numbers::pi;
    if (!std::isfinite(angle))
        return NumberText(angle);
    if (std::abs(angle) < LargestShown) {
        if (std::optional<std::string> text = ExactAngleText(radians, unit, AnglesNear(radians, halfTurn)))
            return *text;
    }
    constexpr int Decimals = 15;
    return TextOfAngle(angle, unit, std::abs(angle) < LargestShown ? Decimals : 0);
}

std::string DateText(double date) {
    const std::optional<platform::CalendarFields> day = platform::FieldsFromDate(date);
    if (!day)
        return {};
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d", day->year, day->month, day->day);
    return text;
}

} // namespace korvel::inspector
