#pragma once

#include <cstdint>
#include <limits>
#include <string>

namespace korvel {

/// One report: who says what, and when. Reporters do not fill it themselves; CEventSinkObserver and EventQueue
/// do.
struct CEventMessage {
    /// No reporting operation makes exceptions: a host hands them to Fire_OnAddEvent.
    enum EEventType : std::int32_t { eInformation = 0, eWarning = 1, eError = 2, eException = 3 };

    /// Of a moment that has no local time: no calendar knows it.
    static constexpr double InvalidDate = std::numeric_limits<double>::quiet_NaN();

    EEventType m_Type = eInformation;
    double m_Date = InvalidDate; ///< local date and time, as dates.h has it
    std::int64_t m_Time = 0;     ///< seconds since 1970 began in UTC
    std::string m_strSource;     ///< who reports
    std::string m_strEvent;      ///< what happened
    std::string m_strDate;       ///< `m_Date` under the date format in use
    std::string m_strTime;       ///< `m_Time` under the time format in use
};

} // namespace korvel
