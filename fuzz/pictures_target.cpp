// Three lines: a picture, a second one, a format in strftime notation; then a date and a time.

#include "fuzz_target.h"
#include "korvel/output/date_output.h"
#include "korvel/output/date_picture.h"
#include "korvel/output/dates.h"

#include <cmath>
#include <ctime>
#include <stdexcept>

namespace {

using namespace korvel;
using namespace korvel::internal;

std::string_view TakeLine(std::string_view& text) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(text.size(), line.size() + 1));
    return line;
}

// Whether the C library writes the format alike in every locale.
bool IsOfNumbers(std::string_view format) {
    for (std::size_t at = 0; (at = format.find('%', at)) != std::string_view::npos; at += 2)
        if (at + 1 == format.size() ||
            std::string_view("dmYHMSyjUWVGu%").find(format[at + 1]) == std::string_view::npos)
            return false;
    return format.size() < 40;
}

std::string TextOfCLibrary(const std::string& format, const std::tm& time) {
    char text[512];
    return {text, std::strftime(text, sizeof text, format.c_str(), &time)};
}

void RequireTheSameText(const std::string& format, double date, std::int64_t time) {
    constexpr double DayOf1970 = 25569;
    constexpr double FirstDay = -657434; // 1 January 100
    constexpr double LastDay = 2958465;  // 31 December 9999
    const double day = std::trunc(date);
    if (day >= FirstDay && day <= LastDay) {
        const auto seconds = static_cast<std::time_t>(day - DayOf1970) * 86400;
        fuzz::Require(DatetoString(day) == TextOfCLibrary(format, *std::gmtime(&seconds)),
                      "a date is written as the C library writes it");
    }
    const std::time_t recent = time & 0x7FFFFFFF;
    fuzz::Require(TimetoString(recent) == TextOfCLibrary(format, *std::localtime(&recent)),
                  "a time is written as the C library writes it");
}

void Use(const std::string& format, double date, std::int64_t time) {
    CDateOutput& output = CDateOutput::Instance();
    const std::string before = output.Formats().currentFormat;
    const bool hasZero = format.find('\0') != std::string::npos;
    try {
        SetDateCurrentFormatString(false, format);
        fuzz::Require(!hasZero && output.Formats().currentFormat == format,
                      "a format is in use once it is set");
    } catch (const std::invalid_argument&) {
        fuzz::Require(hasZero && output.Formats().currentFormat == before, "a zero byte alone is refused");
        return;
    }
    output.Formats().defaultTime = format;
    DatetoString(date);
    DatetoString(static_cast<double>(static_cast<std::int32_t>(time)) / 1000);
    TimetoString(time);
    TimetoString(static_cast<std::int32_t>(time));
    if (IsOfNumbers(format))
        RequireTheSameText(format, date, time);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fuzz::GermanMachine machine;
    fuzz::Input input(data, size);
    const auto date = input.Take<double>();
    const auto time = input.Take<std::int64_t>();
    std::string_view rest = input.Rest();
    const std::string timeFormat = TimePictureToFormat(TakeLine(rest));
    const std::string dateFormat = DatePictureToFormat(TakeLine(rest));
    for (const std::string& format : {timeFormat, dateFormat, std::string(rest)})
        Use(format, date, time);
    return 0;
}
