#include "korvel/events/event_times.h"

#include "korvel/output/dates.h"
#include "korvel/platform/calendar.h"

#include <ctime>

namespace korvel::internal {

namespace {

double LocalDate(std::int64_t seconds) {
    const auto fields = platform::LocalFieldsFromEpoch(seconds);
    const auto date = fields ? platform::DateFromFields(*fields) : std::nullopt;
    return date.value_or(CEventMessage::InvalidDate);
}

} // namespace

// Kept: the clock is read twice, so date and time may lie in two seconds.
CEventMessage StampedMessage(CEventMessage::EEventType type, const std::string& source,
                             const std::string& event) {
    CEventMessage message;
    message.m_Type = type;
    message.m_strSource = source;
    message.m_strEvent = event;
    message.m_Date = LocalDate(std::time(nullptr));
    message.m_Time = std::time(nullptr);
    return message;
}

void EventTimeTexts::Write(CEventMessage& message) {
    if (!m_hasLast || message.m_Date != m_last.m_Date || message.m_Time != m_last.m_Time) {
        m_hasLast = false;
        m_last.m_Date = message.m_Date;
        m_last.m_Time = message.m_Time;
        m_last.m_strDate = DatetoString(message.m_Date);
        m_last.m_strTime = TimetoString(message.m_Time);
        m_hasLast = true;
    }
    message.m_strDate = m_last.m_strDate;
    message.m_strTime = m_last.m_strTime;
}

} // namespace korvel::internal
