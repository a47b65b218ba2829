#pragma once

#include "korvel/output/format_notification.h"
#include "korvel/output/system_change.h"
#include "korvel/platform/calendar.h"
#include "korvel/platform/export.h"

#include <cstdint>
#include <optional>
#include <string>

namespace korvel {

/// Dates and times as text. A date is a double: days since 30 December 1899, with the time as the fraction;
/// its state "GDT_VALID" says that there is one.
///
///     DatetoString(44000.0);               // "Donnerstag, 18. Juni 2020" under German regional settings
///     DatetoString("GDT_NONE", 44000.0);   // ""
///     SetDateCurrentFormatString(false, "%d.%m.%Y");
///     DatetoString(44000.0);               // "18.06.2020"
///
/// Formats are in strftime notation, where `#` drops leading zeros. The long date of the regional settings is
/// the first in use. All of it belongs to the thread of the windows.

/// Empty unless the state is exactly "GDT_VALID"; "Invalid DateTime" for a day that is in no calendar. A
/// format with an unknown specifier gives the empty text.
KORVEL_API std::string DatetoString(const std::string& state, double date);
KORVEL_API std::string DatetoString(double date);

/// The local time of the seconds since 1970 began in UTC, without its day; "Invalid DateTime" for negative
/// ones. Leaves the C library's `LC_TIME` at the user's locale where the library knows that name; kept, hosts
/// that print times behind it see it.
KORVEL_API std::string TimetoString(const std::int64_t& time);

/// The characters live until the format changes.
KORVEL_API const char* GetFormatStringLong();
KORVEL_API const char* GetFormatStringShort();

/// Store the text as given, telling nobody. \throws std::invalid_argument for null
KORVEL_API void SetFormatStringLong(const char* format);
KORVEL_API void SetFormatStringShort(const char* format);

/// The format in use; `isLong` says whether it is the long one.
KORVEL_API void GetDateCurrentFormatString(bool& isLong, std::string& format);

/// Makes `format` the long or the short format and the one in use, and tells the listeners, unless it is in
/// use already.
KORVEL_API void SetDateCurrentFormatString(const bool& isLong, const std::string& format);

enum class DateFormatKind { Short, Long };

/// What the user has set for dates, in strftime notation.
struct DateFormatRecord {
    std::string CurrentFormat;
    std::string DefaultTime;
    std::string DateFormatLong;
    std::string DateFormatShort;
};

/// The service behind these functions.
class CDateOutput final : public ISystemChangedObserverImp<CDateOutput> {
public:
    static CDateOutput& Instance();

    std::string DateText(double date) const;
    std::string TimeText(std::int64_t time);

    const DateFormatRecord& Formats() const { return m_formats; }

    /// The formats to store into: for saved formats and the exported setters. Telling `Notification().Fire()`
    /// is the caller's.
    DateFormatRecord& Formats() { return m_formats; }

    void SetCurrentFormat(DateFormatKind kind, const std::string& format);

    /// As `SetCurrentFormat`, of a picture as the regional settings have it ("dd.MM.yyyy").
    void SetCurrentPicture(DateFormatKind kind, const std::string& picture);

    /// Back to the regional settings' format, as the long or short format and the one in use.
    void ReturnToSystemFormat(DateFormatKind kind);

    /// Forgets all that the user has set, as at the start: the long date of the regional settings is in use.
    void ReturnToSystem();

    FormatNotification& Notification() { return m_notification; }
    bool FollowSystem();

private:
    CDateOutput();
    bool FollowSystemDate(std::string& format, std::string& systemFormat, const std::string& picture);
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

} // namespace korvel
