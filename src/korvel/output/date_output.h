#pragma once

#include "korvel/output/format_notification.h"
#include "korvel/output/system_change.h"
#include "korvel/platform/calendar.h"

#include <cstdint>
#include <optional>
#include <string>

namespace korvel::internal {

enum class DateFormatKind { Short, Long };

/// What the user has set for dates, in strftime notation.
struct DateFormatRecord {
    std::string currentFormat;
    std::string defaultTime;
    std::string dateFormatLong;
    std::string dateFormatShort;
};

/// The service of dates and times; `dates.h` says what it writes. On the thread of the windows.
class CDateOutput final : public ISystemChangedObserverImp<CDateOutput> {
public:
    static CDateOutput& Instance();

    std::string DateText(double date) const;
    std::string TimeText(std::int64_t time);

    const DateFormatRecord& Formats() const { return m_formats; }

    /// The formats to store into: for saved formats and the exported setters. The caller calls
    /// `Notification().Fire()`.
    DateFormatRecord& Formats() { return m_formats; }

    /// \throws std::invalid_argument for a format with a zero byte; nothing changes then
    void SetCurrentFormat(DateFormatKind kind, const std::string& format);

    /// As `SetCurrentFormat`, of a picture as the regional settings have it ("dd.MM.yyyy").
    void SetCurrentPicture(DateFormatKind kind, const std::string& picture);

    /// Back to the regional settings' format, as the long or short format and the one in use.
    void ReturnToSystemFormat(DateFormatKind kind);

    /// Forgets all that the user has set, as at the start: the long date of the regional settings is in use.
    void ReturnToSystem();

    FormatNotification& Notification() { return m_notification; }

    /// Takes the regional settings' long and short format where the one here equals what they were before,
    /// whoever set it, and their time format always. Calls the listeners once if that replaced the date
    /// format in use, and once if it replaced the time format.
    bool FollowSystem();

private:
    CDateOutput();
    bool FollowSystemDate(std::string& format, std::string& systemFormat, const std::string& picture,
                          int& replacedInUse);
    std::string& FormatOf(DateFormatKind kind);
    std::string Render(const std::optional<platform::CalendarFields>& fields,
                       const std::string& format) const;

    FormatNotification m_notification;
    std::string m_localeName;
    bool m_isLocaleRefused = false;
    DateFormatRecord m_formats;
    std::string m_systemLong;
    std::string m_systemShort;
};

} // namespace korvel::internal
