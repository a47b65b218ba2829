#include "korvel/output/date_output.h"

#include "korvel/output/date_picture.h"
#include "korvel/output/system_formats.h"
#include "korvel/platform/time_text.h"

#include <stdexcept>
#include <utility>

namespace korvel {

namespace {

constexpr const char* ValidState = "GDT_VALID";
constexpr const char* InvalidText = "Invalid DateTime";

// A time goes by way of a date double, in which every field must survive.
std::optional<platform::CalendarFields> FieldsOfTime(std::int64_t seconds) {
    const auto fields = platform::LocalFieldsFromEpoch(seconds);
    if (!fields)
        return std::nullopt;
    const auto date = platform::DateFromFields(*fields);
    if (!date || platform::FieldsFromDate(*date) != fields)
        return std::nullopt;
    return fields;
}

const char* NotNull(const char* format) {
    if (!format)
        throw std::invalid_argument("A date format is not null");
    return format;
}

} // namespace

CDateOutput::CDateOutput() : m_notification(FormatService::Date) {
    FollowSystem();
    m_formats.CurrentFormat = m_formats.DateFormatLong; // also where the long picture means nothing
}

CDateOutput& CDateOutput::Instance() {
    static CDateOutput output;
    return output;
}

std::string CDateOutput::DateText(double date) const {
    return Render(platform::FieldsFromDate(date), m_formats.CurrentFormat);
}

std::string CDateOutput::TimeText(std::int64_t time) {
    // Asking the C library for a name that it does not have costs a search of the disk, so it is done once a
    // name.
    m_isLocaleRefused = m_isLocaleRefused || !platform::SetTimeLocale(m_localeName);
    return Render(FieldsOfTime(time), m_formats.DefaultTime);
}

std::string CDateOutput::Render(const std::optional<platform::CalendarFields>& fields,
                                const std::string& format) const {
    return fields ? platform::TimeText(format, *fields, SystemSettings()) : InvalidText;
}

void CDateOutput::SetCurrentFormat(DateFormatKind kind, const std::string& format) {
    if (format == m_formats.CurrentFormat)
        return;
    const std::string wanted = format; // it may be one of the formats that are stored into
    FormatOf(kind) = wanted;
    m_formats.CurrentFormat = wanted;
    m_notification.Fire();
}

void CDateOutput::SetCurrentPicture(DateFormatKind kind, const std::string& picture) {
    SetCurrentFormat(kind, DatePictureToFormat(picture));
}

void CDateOutput::ReturnToSystemFormat(DateFormatKind kind) {
    SetCurrentFormat(kind, kind == DateFormatKind::Long ? m_systemLong : m_systemShort);
}

void CDateOutput::ReturnToSystem() {
    m_formats = {m_systemLong, TimePictureToFormat(SystemSettings().timePicture), m_systemLong,
                 m_systemShort};
    m_notification.Fire();
}

bool CDateOutput::FollowSystem() {
    const platform::RegionalSettings& settings = SystemSettings();
    bool changed = FollowSystemDate(m_formats.DateFormatLong, m_systemLong, settings.longDatePicture);
    changed |= FollowSystemDate(m_formats.DateFormatShort, m_systemShort, settings.shortDatePicture);

    const std::string time = TimePictureToFormat(settings.timePicture);
    if (time != m_formats.DefaultTime) {
        m_formats.DefaultTime = time;
        changed = true;
        m_notification.Fire();
    }
    m_localeName = settings.countryName;
    m_isLocaleRefused = false;
    return changed;
}

// A format that the user has changed differs from the system's that was read before, and is left alone.
bool CDateOutput::FollowSystemDate(std::string& format, std::string& systemFormat,
                                   const std::string& picture) {
    const std::string before = std::exchange(systemFormat, DatePictureToFormat(picture));
    if (format != before)
        return false;
    const bool isCurrent = m_formats.CurrentFormat == before;
    format = systemFormat;
    if (isCurrent) {
        m_formats.CurrentFormat = systemFormat;
        m_notification.Fire();
    }
    return true;
}

std::string& CDateOutput::FormatOf(DateFormatKind kind) {
    return kind == DateFormatKind::Long ? m_formats.DateFormatLong : m_formats.DateFormatShort;
}

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
    return CDateOutput::Instance().Formats().DateFormatLong.c_str();
}
const char* GetFormatStringShort() {
    return CDateOutput::Instance().Formats().DateFormatShort.c_str();
}

void SetFormatStringLong(const char* format) {
    CDateOutput::Instance().Formats().DateFormatLong = NotNull(format);
}

void SetFormatStringShort(const char* format) {
    CDateOutput::Instance().Formats().DateFormatShort = NotNull(format);
}

void GetDateCurrentFormatString(bool& isLong, std::string& format) {
    const DateFormatRecord& formats = CDateOutput::Instance().Formats();
    format = formats.CurrentFormat;
    isLong = formats.CurrentFormat == formats.DateFormatLong;
}

void SetDateCurrentFormatString(const bool& isLong, const std::string& format) {
    CDateOutput::Instance().SetCurrentFormat(isLong ? DateFormatKind::Long : DateFormatKind::Short, format);
}

} // namespace korvel
