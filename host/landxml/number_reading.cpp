#include "landxml/number_reading.h"

#include "korvel/platform/calendar.h"
#include "source/blanks.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace korvel::inspector {
namespace {

// The text after one plus sign, which from_chars does not take; "+-1" stays wrong.
std::string_view WithoutPlus(std::string_view text) {
    const bool plus = text.size() > 1 && text[0] == '+' && text[1] != '-' && text[1] != '+';
    return plus ? text.substr(1) : text;
}

// A number of exactly `count` digits at the front of `text`, which then begins after it; -1 when there is
// none.
int TakeDigits(std::string_view& text, std::size_t count) {
    if (text.size() < count)
        return -1;
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + count, number);
    if (error != std::errc() || end != text.data() + count || text[0] == '-')
        return -1;
    text.remove_prefix(count);
    return number;
}

bool TakeCharacter(std::string_view& text, char c) {
    if (!text.starts_with(c))
        return false;
    text.remove_prefix(1);
    return true;
}

bool TakeTimeOfDay(std::string_view& text) {
    const int hour = TakeDigits(text, 2);
    if (hour < 0 || !TakeCharacter(text, ':'))
        return false;
    const int minute = TakeDigits(text, 2);
    if (minute < 0 || minute > 59 || !TakeCharacter(text, ':'))
        return false;
    const int second = TakeDigits(text, 2);
    const bool isLeapSecond = second == 60 && minute == 59; // of any hour: there are zones
    if (second < 0 || (second > 59 && !isLeapSecond))
        return false;
    std::string_view fraction;
    if (TakeCharacter(text, '.')) {
        fraction = text.substr(0, text.find_first_not_of("0123456789"));
        if (fraction.empty())
            return false;
        text.remove_prefix(fraction.size());
    }
    const bool isMidnight =
        hour == 24 && minute == 0 && second == 0 && fraction.find_first_not_of('0') == fraction.npos;
    return hour <= 23 || isMidnight;
}

// What may follow dates and times: nothing, "Z", or an offset such as "+03:00", up to 14 hours.
bool IsTimeZone(std::string_view text) {
    if (text.empty() || text == "Z")
        return true;
    if (!TakeCharacter(text, '+') && !TakeCharacter(text, '-'))
        return false;
    const int hours = TakeDigits(text, 2);
    if (hours < 0 || !TakeCharacter(text, ':'))
        return false;
    const int minutes = TakeDigits(text, 2);
    return minutes >= 0 && minutes <= 59 && hours * 60 + minutes <= 14 * 60 && text.empty();
}

std::optional<double> TakeDate(std::string_view& text) {
    platform::CalendarFields fields;
    fields.year = TakeDigits(text, 4);
    if (fields.year < 0 || !TakeCharacter(text, '-'))
        return std::nullopt;
    fields.month = TakeDigits(text, 2);
    if (fields.month < 0 || !TakeCharacter(text, '-'))
        return std::nullopt;
    fields.day = TakeDigits(text, 2);
    return platform::DateFromFields(fields);
}

} // namespace

std::optional<double> ReadDouble(std::string_view text) {
    text = WithoutPlus(Trim(text));
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(number))
        return std::nullopt;
    return number;
}

bool IsNotFinite(std::string_view text) {
    text = Trim(text);
    return text == "INF" || text == "+INF" || text == "-INF" || text == "NaN";
}

std::optional<std::int32_t> ReadInteger(std::string_view text) {
    text = WithoutPlus(Trim(text));
    std::int32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return number;
}

bool IsInteger(std::string_view text) {
    text = WithoutPlus(Trim(text));
    if (text.starts_with('-'))
        text.remove_prefix(1);
    return !text.empty() && text.find_first_not_of("0123456789") == text.npos;
}

std::optional<bool> ReadFlag(std::string_view text) {
    text = Trim(text);
    if (text == "true" || text == "1")
        return true;
    if (text == "false" || text == "0")
        return false;
    return std::nullopt;
}

std::optional<double> ReadDate(std::string_view text) {
    text = Trim(text);
    const std::optional<double> date = TakeDate(text);
    return IsTimeZone(text) ? date : std::nullopt;
}

std::string_view ZoneOfDate(std::string_view text) {
    text = Trim(text);
    return TakeDate(text) ? text : std::string_view();
}

bool IsTime(std::string_view text) {
    text = Trim(text);
    return TakeTimeOfDay(text) && IsTimeZone(text);
}

bool IsDateTime(std::string_view text) {
    text = Trim(text);
    return TakeDate(text) && TakeCharacter(text, 'T') && TakeTimeOfDay(text) && IsTimeZone(text);
}

std::optional<std::uint32_t> ReadColor(std::string_view text) {
    std::uint32_t word = 0;
    for (int shift = 0; shift <= 16; shift += 8) {
        const std::size_t end = std::min(text.find(','), text.size());
        const std::optional<std::int32_t> part = ReadInteger(text.substr(0, end));
        const bool last = shift == 16;
        if (!part || *part < 0 || *part > 255 || last != (end == text.size()))
            return std::nullopt;
        word |= static_cast<std::uint32_t>(*part) << shift;
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return word;
}

} // namespace korvel::inspector
