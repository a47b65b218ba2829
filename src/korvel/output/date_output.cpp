#include "korvel/output/date_output.h"

#include "korvel/output/date_picture.h"
#include "korvel/output/system_formats.h"
#include "korvel/platform/time_text.h"

#include <stdexcept>
#include <utility>

namespace korvel::internal {

namespace {

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

} // namespace

CDateOutput::CDateOutput() : m_notification(FormatService::Date) {
    FollowSystem();
    m_formats.currentFormat = m_formats.dateFormatLong; // also where the long picture means nothing
}

CDateOutput& CDateOutput::Instance() {
    static CDateOutput output;
    return output;
}

std::string CDateOutput::DateText(double date) const {
    return Render(platform::FieldsFromDate(date), m_formats.currentFormat);
}

std::string CDateOutput::TimeText(std::int64_t time) {
    // Asking the C library for a name that it does not have costs a search of the disk, so it is done once a
    // name.
    m_isLocaleRefused = m_isLocaleRefused || !SetTimeLocale(m_localeName);
    return Render(FieldsOfTime(time), m_formats.defaultTime);
}

std::string CDateOutput::Render(const std::optional<platform::CalendarFields>& fields,
                                const std::string& format) const {
    return fields ? internal::TimeText(format, *fields, SystemSettings()) : InvalidText;
}

void CDateOutput::SetCurrentFormat(DateFormatKind kind, const std::string& format) {
    if (format.find('\0') != std::string::npos)
        throw std::invalid_argument("A date format has no zero byte");
    if (format == m_formats.currentFormat)
        return;
    const std::string wanted = format; // it may be one of the formats that are stored into
    FormatOf(kind) = wanted;
    m_formats.currentFormat = wanted;
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
    m_localeName = settings.countryName;
    m_isLocaleRefused = false;
    int replacedInUse = 0;
    bool changed =
        FollowSystemDate(m_formats.dateFormatLong, m_systemLong, settings.longDatePicture, replacedInUse);
    changed |=
        FollowSystemDate(m_formats.dateFormatShort, m_systemShort, settings.shortDatePicture, replacedInUse);
    std::string time = TimePictureToFormat(settings.timePicture);
    if (time != m_formats.defaultTime) {
        m_formats.defaultTime = std::move(time);
        changed = true;
        ++replacedInUse;
    }
    if (replacedInUse > 0)
        m_notification.Fire(replacedInUse);
    return changed;
}

bool CDateOutput::FollowSystemDate(std::string& format, std::string& systemFormat, const std::string& picture,
                                   int& replacedInUse) {
    const std::string before = std::exchange(systemFormat, DatePictureToFormat(picture));
    if (format != before)
        return false;
    if (m_formats.currentFormat == before) {
        m_formats.currentFormat = systemFormat;
        ++replacedInUse;
    }
    format = systemFormat;
    return true;
}

std::string& CDateOutput::FormatOf(DateFormatKind kind) {
    return kind == DateFormatKind::Long ? m_formats.dateFormatLong : m_formats.dateFormatShort;
}

} // namespace korvel::internal
