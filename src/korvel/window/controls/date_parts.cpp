#include "korvel/window/controls/date_parts.h"

#include <algorithm>
#include <cstddef>

namespace korvel::internal {

namespace {

constexpr int FirstYear = 1601;
constexpr int LastYear = 9999;

DateField FieldOf(const CString& letters) {
    switch (letters.front()) {
    case 'd':
        return letters.size() > 2 ? DateField::Weekday : DateField::Day;
    case 'M':
        return DateField::Month;
    case 'y':
        return DateField::Year;
    case 'h':
    case 'H':
        return DateField::Hour;
    case 'm':
        return DateField::Minute;
    case 's':
        return DateField::Second;
    case 't':
        return DateField::HalfDay;
    default:
        return DateField::Literal;
    }
}

void AddLiteral(std::vector<DatePart>& parts, char letter) {
    if (parts.empty() || parts.back().field != DateField::Literal)
        parts.emplace_back();
    parts.back().letters += letter;
}

// From an apostrophe to the one that ends the literal text; two of them stand for one.
std::size_t AddQuoted(std::vector<DatePart>& parts, const CString& picture, std::size_t at) {
    for (++at; at < picture.size(); ++at) {
        const bool isApostrophe = picture[at] == '\'';
        if (isApostrophe && (at + 1 == picture.size() || picture[at + 1] != '\''))
            return at + 1;
        AddLiteral(parts, picture[at]);
        at += isApostrophe ? 1 : 0;
    }
    return at;
}

CString Digits(int value, std::size_t width) {
    CString text = std::to_string(value);
    return text.size() < width ? CString(width - text.size(), '0') + text : text;
}

bool IsTwelveHours(const DatePart& part) {
    return part.letters.front() == 'h';
}

bool IsShortYear(const DatePart& part) {
    return part.letters.size() <= 2;
}

} // namespace

int DaysIn(int year, int month) {
    constexpr int Days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool isLeap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return month == 2 && isLeap ? 29 : Days[std::clamp(month, 1, 12) - 1];
}

std::vector<DatePart> PartsOf(const CString& picture) {
    std::vector<DatePart> parts;
    for (std::size_t at = 0; at < picture.size();) {
        if (picture[at] == '\'') {
            at = AddQuoted(parts, picture, at);
            continue;
        }
        const std::size_t end = std::min(picture.find_first_not_of(picture[at], at), picture.size());
        const CString run = picture.substr(at, end - at);
        if (FieldOf(run) == DateField::Literal)
            for (const char letter : run)
                AddLiteral(parts, letter);
        else
            parts.push_back({FieldOf(run), run});
        at = end;
    }
    return parts;
}

CString TextOf(const DatePart& part, const platform::CalendarFields& moment,
               const platform::CalendarNames& names) {
    const std::size_t width = part.letters.size();
    switch (part.field) {
    case DateField::Literal:
        return part.letters;
    case DateField::Weekday: {
        const auto day = static_cast<std::size_t>(std::clamp(moment.weekday, 0, 6));
        return width > 3 ? names.days[day] : names.shortDays[day];
    }
    case DateField::Month: {
        const auto month = static_cast<std::size_t>(std::clamp(moment.month, 1, 12) - 1);
        if (width > 2)
            return width > 3 ? names.months[month] : names.shortMonths[month];
        return Digits(moment.month, width);
    }
    case DateField::Year:
        return IsShortYear(part) ? Digits(moment.year % 100, width) : Digits(moment.year, 4);
    case DateField::HalfDay:
        return moment.hour < 12 ? names.beforeNoon : names.afterNoon;
    case DateField::Hour:
        return Digits(IsTwelveHours(part) ? (moment.hour + 11) % 12 + 1 : moment.hour,
                      std::min<std::size_t>(width, 2));
    default:
        return Digits(ValueOf(part, moment), std::min<std::size_t>(width, 2));
    }
}

PartRange RangeOf(const DatePart& part, const platform::CalendarFields& moment) {
    switch (part.field) {
    case DateField::Day:
        return {1, DaysIn(moment.year, moment.month)};
    case DateField::Month:
        return {1, 12};
    case DateField::Year:
        return {FirstYear, LastYear};
    case DateField::Hour:
        return {0, 23};
    case DateField::Minute:
    case DateField::Second:
        return {0, 59};
    case DateField::HalfDay:
        return {0, 1};
    default:
        return {0, -1};
    }
}

int ValueOf(const DatePart& part, const platform::CalendarFields& moment) {
    switch (part.field) {
    case DateField::Day:
        return moment.day;
    case DateField::Month:
        return moment.month;
    case DateField::Year:
        return moment.year;
    case DateField::Hour:
        return moment.hour;
    case DateField::Minute:
        return moment.minute;
    case DateField::Second:
        return moment.second;
    case DateField::HalfDay:
        return moment.hour / 12;
    default:
        return 0;
    }
}

platform::CalendarFields WithValue(const DatePart& part, platform::CalendarFields moment, int value) {
    switch (part.field) {
    case DateField::Day:
        moment.day = value;
        break;
    case DateField::Month:
        moment.month = value;
        break;
    case DateField::Year:
        moment.year = value;
        break;
    case DateField::Hour:
        moment.hour = value;
        break;
    case DateField::Minute:
        moment.minute = value;
        break;
    case DateField::Second:
        moment.second = value;
        break;
    case DateField::HalfDay:
        moment.hour = moment.hour % 12 + 12 * value;
        break;
    default:
        break;
    }
    moment.day = std::min(moment.day, DaysIn(moment.year, moment.month));
    return moment;
}

} // namespace korvel::internal
