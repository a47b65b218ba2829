#include "korvel/platform/time_text.h"

#include <algorithm>
#include <array>
#include <clocale>
#include <ctime>
#include <utility>

namespace korvel::internal {
namespace {

using platform::CalendarFields;
using platform::CalendarNames;
using platform::RegionalSettings;
using Fields = CalendarFields;

// Texts end where a buffer of 256 bytes with a final zero would.
constexpr std::size_t LongestText = 255;

// What `#` asks for.
enum class Form { Usual, Alternate };

struct IsoWeek {
    int year;
    int week;
};

int DaysOfYear(int year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0) ? 366 : 365;
}

// The week of ISO 8601: weeks begin on Monday, and the first is the one that holds the year's first
// Thursday.
IsoWeek IsoWeekOf(const CalendarFields& fields) {
    const int daysSinceMonday = (fields.weekday + 6) % 7;
    const int thursday = fields.dayOfYear - daysSinceMonday + 3;
    if (thursday < 1)
        return {fields.year - 1, (thursday + DaysOfYear(fields.year - 1) + 6) / 7};
    if (thursday > DaysOfYear(fields.year))
        return {fields.year + 1, 1};
    return {fields.year, (thursday + 6) / 7};
}

// The week counted from the year's first such weekday; the days before it are in week 0.
int WeekOfYear(const CalendarFields& fields, int daysSinceWeekBegan) {
    return (fields.dayOfYear + 6 - daysSinceWeekBegan) / 7;
}

// Seconds east of UTC in winter: the fields do not say whether it is summer time.
std::string ZoneOffset() {
    tzset();
    const long minutes = -timezone / 60;
    const long distance = minutes < 0 ? -minutes : minutes;
    const std::string digits = std::to_string(10000 + distance / 60 * 100 + distance % 60).substr(1);
    return (minutes < 0 ? "-" : "+") + digits;
}

std::string ZoneName() {
    tzset();
    return tzname[0];
}

struct NumberSpecifier {
    char letter;
    std::size_t width;
    int (*value)(const Fields&);
};

constexpr std::array<NumberSpecifier, 18> Numbers{{
    {'C', 2, [](const Fields& f) { return f.year / 100; }},
    {'d', 2, [](const Fields& f) { return f.day; }},
    {'e', 2, [](const Fields& f) { return f.day; }},
    {'g', 2, [](const Fields& f) { return IsoWeekOf(f).year % 100; }},
    {'G', 4, [](const Fields& f) { return IsoWeekOf(f).year; }},
    {'H', 2, [](const Fields& f) { return f.hour; }},
    {'I', 2, [](const Fields& f) { return f.hour % 12 == 0 ? 12 : f.hour % 12; }},
    {'j', 3, [](const Fields& f) { return f.dayOfYear; }},
    {'m', 2, [](const Fields& f) { return f.month; }},
    {'M', 2, [](const Fields& f) { return f.minute; }},
    {'S', 2, [](const Fields& f) { return f.second; }},
    {'u', 1, [](const Fields& f) { return f.weekday == 0 ? 7 : f.weekday; }},
    {'U', 2, [](const Fields& f) { return WeekOfYear(f, f.weekday); }},
    {'V', 2, [](const Fields& f) { return IsoWeekOf(f).week; }},
    {'w', 1, [](const Fields& f) { return f.weekday; }},
    {'W', 2, [](const Fields& f) { return WeekOfYear(f, (f.weekday + 6) % 7); }},
    {'y', 2, [](const Fields& f) { return f.year % 100; }},
    {'Y', 4, [](const Fields& f) { return f.year; }},
}};

struct NameSpecifier {
    char letter;
    const std::string& (*name)(const Fields&, const CalendarNames&);
};

template <typename Names>
const std::string& NameAt(const Names& names, int index) {
    return names[static_cast<std::size_t>(index)];
}

const std::string& ShortDay(const Fields& f, const CalendarNames& n) {
    return NameAt(n.shortDays, f.weekday);
}
const std::string& Day(const Fields& f, const CalendarNames& n) {
    return NameAt(n.days, f.weekday);
}
const std::string& ShortMonth(const Fields& f, const CalendarNames& n) {
    return NameAt(n.shortMonths, f.month - 1);
}
const std::string& Month(const Fields& f, const CalendarNames& n) {
    return NameAt(n.months, f.month - 1);
}
const std::string& HalfOfDay(const Fields& f, const CalendarNames& n) {
    return f.hour < 12 ? n.beforeNoon : n.afterNoon;
}

constexpr std::array<NameSpecifier, 6> NameSpecifiers{
    {{'a', ShortDay}, {'A', Day}, {'b', ShortMonth}, {'B', Month}, {'h', ShortMonth}, {'p', HalfOfDay}}};

// Specifiers that are short for others; `#` applies to each of these.
struct CompoundSpecifier {
    char letter;
    std::string_view format;
};

constexpr std::array<CompoundSpecifier, 8> Compounds{{{'c', "%x %X"},
                                                      {'D', "%m/%d/%y"},
                                                      {'F', "%Y-%m-%d"},
                                                      {'n', "\n"},
                                                      {'r', "%I:%M:%S %p"},
                                                      {'R', "%H:%M"},
                                                      {'t', "\t"},
                                                      {'T', "%H:%M:%S"}}};

// What a run of one letter means in a picture; a longer run means what the longest means.
struct PictureField {
    char letter;
    std::array<std::string_view, 4> formats;
};

constexpr std::array<PictureField, 8> PictureFields{{{'d', {"%#d", "%d", "%a", "%A"}},
                                                     {'M', {"%#m", "%m", "%b", "%B"}},
                                                     {'y', {"%#y", "%y", "%Y", "%Y"}},
                                                     {'H', {"%#H", "%H", "%H", "%H"}},
                                                     {'h', {"%#I", "%I", "%I", "%I"}},
                                                     {'m', {"%#M", "%M", "%M", "%M"}},
                                                     {'s', {"%#S", "%S", "%S", "%S"}},
                                                     {'t', {"%p", "%p", "%p", "%p"}}}};

template <typename Table>
const auto* Find(const Table& table, char letter) {
    const auto* found =
        std::find_if(table.begin(), table.end(), [&](const auto& row) { return row.letter == letter; });
    return found == table.end() ? nullptr : found;
}

// A picture of the regional settings in strftime notation.
std::string FormatOfPicture(std::string_view picture) {
    std::string format;
    bool quoted = false;
    for (std::size_t i = 0; i < picture.size();) {
        const char letter = picture[i];
        const std::size_t run = std::min(picture.find_first_not_of(letter, i), picture.size()) - i;
        const PictureField* field = quoted ? nullptr : Find(PictureFields, letter);
        if (field != nullptr) {
            format += field->formats[std::min(run, field->formats.size()) - 1];
            i += run;
            continue;
        }
        if (letter == '\'')
            quoted = !quoted;
        else
            format.append(letter == '%' ? 2 : 1, letter);
        ++i;
    }
    return format;
}

class TimeWriter {
public:
    TimeWriter(const Fields& fields, const RegionalSettings& settings)
        : m_fields(fields), m_settings(settings) {}

    // False: the format is not understood, or the text too long.
    bool Write(std::string_view format, Form form);
    std::string Take() { return std::move(m_text); }

private:
    bool WriteSpecifier(char letter, Form form);
    bool WritePicture(std::string_view picture) { return Write(FormatOfPicture(picture), Form::Usual); }
    void WriteNumber(const NumberSpecifier& specifier, Form form);

    const Fields& m_fields;
    const RegionalSettings& m_settings;
    std::string m_text;
};

bool TimeWriter::Write(std::string_view format, Form outerForm) {
    while (!format.empty()) {
        const std::size_t literal = std::min(format.find('%'), format.size());
        m_text.append(format.substr(0, literal));
        format.remove_prefix(literal);
        if (format.empty())
            break;
        format.remove_prefix(1);
        Form form = outerForm;
        if (format.starts_with('#')) {
            form = Form::Alternate;
            format.remove_prefix(1);
        }
        if (format.starts_with('E') ||
            format.starts_with('O')) // eras and other numerals, which no locale here has
            format.remove_prefix(1);
        if (format.empty() || !WriteSpecifier(format.front(), form) || m_text.size() > LongestText)
            return false;
        format.remove_prefix(1);
    }
    return true;
}

bool TimeWriter::WriteSpecifier(char letter, Form form) {
    if (const NumberSpecifier* number = Find(Numbers, letter)) {
        WriteNumber(*number, form);
        return true;
    }
    if (const NameSpecifier* name = Find(NameSpecifiers, letter)) {
        m_text += name->name(m_fields, m_settings.names);
        return true;
    }
    if (const CompoundSpecifier* compound = Find(Compounds, letter))
        return Write(compound->format, form);
    switch (letter) {
    case 'x':
        return WritePicture(form == Form::Alternate ? m_settings.longDatePicture
                                                    : m_settings.shortDatePicture);
    case 'X':
        return WritePicture(m_settings.timePicture);
    case 'z':
        m_text += ZoneOffset();
        return true;
    case 'Z':
        m_text += ZoneName();
        return true;
    case '%':
        m_text += '%';
        return true;
    default:
        return false;
    }
}

void TimeWriter::WriteNumber(const NumberSpecifier& specifier, Form form) {
    constexpr std::string_view AlwaysPadded = "gG"; // `#` is ignored here
    const std::string digits = std::to_string(specifier.value(m_fields));
    const bool padded = form == Form::Usual || AlwaysPadded.find(specifier.letter) != std::string_view::npos;
    if (padded && digits.size() < specifier.width)
        m_text.append(specifier.width - digits.size(), specifier.letter == 'e' ? ' ' : '0');
    m_text += digits;
}

bool InRange(const Fields& fields) {
    const auto within = [](int value, int first, int last) { return value >= first && value <= last; };
    return within(fields.year, 0, 9999) && within(fields.month, 1, 12) && within(fields.day, 1, 31) &&
           within(fields.hour, 0, 23) && within(fields.minute, 0, 59) && within(fields.second, 0, 59) &&
           within(fields.weekday, 0, 6) && within(fields.dayOfYear, 1, 366);
}

} // namespace

std::string TimeText(std::string_view format, const CalendarFields& fields,
                     const RegionalSettings& settings) {
    if (!InRange(fields))
        return {};
    TimeWriter writer(fields, settings);
    const bool understood = writer.Write(format, Form::Usual);
    std::string text = writer.Take();
    return understood && text.size() <= LongestText ? text : std::string();
}

bool SetTimeLocale(const std::string& name) {
    // To the C library the empty name is the environment's locale.
    return !name.empty() && std::setlocale(LC_TIME, name.c_str()) != nullptr;
}

} // namespace korvel::internal
