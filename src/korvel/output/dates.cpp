#include "korvel/output/dates.h"

#include "korvel/output/date_output.h"

#include <stdexcept>

namespace korvel {

namespace {

using internal::CDateOutput;
using internal::DateFormatKind;
using internal::DateFormatRecord;

constexpr const char* ValidState = "GDT_VALID";

const char* NotNull(const char* format) {
    if (!format)
        throw std::invalid_argument("A date format is not null");
    return format;
}

} // namespace

std::string DatetoString(const std::string& state, double date) {
    return state == ValidState ? CDateOutput::Instance().DateText(date) : std::string();
}

std::string DatetoString(double date) {
    return CDateOutput::Instance().DateText(date);
}

std::string TimetoString(const std::int64_t& time) {
    return CDateOutput::Instance().TimeText(time);
}

const char* GetFormatStringLong() {
    return CDateOutput::Instance().Formats().dateFormatLong.c_str();
}
const char* GetFormatStringShort() {
    return CDateOutput::Instance().Formats().dateFormatShort.c_str();
}

void SetFormatStringLong(const char* format) {
    CDateOutput::Instance().Formats().dateFormatLong = NotNull(format);
}

void SetFormatStringShort(const char* format) {
    CDateOutput::Instance().Formats().dateFormatShort = NotNull(format);
}

void GetDateCurrentFormatString(bool& isLong, std::string& format) {
    const DateFormatRecord& formats = CDateOutput::Instance().Formats();
    format = formats.currentFormat;
    isLong = formats.currentFormat == formats.dateFormatLong;
}

void SetDateCurrentFormatString(const bool& isLong, const std::string& format) {
    CDateOutput::Instance().SetCurrentFormat(isLong ? DateFormatKind::Long : DateFormatKind::Short, format);
}

} // namespace korvel
