#pragma once

#include "korvel/events/event_message.h"

namespace korvel::internal {

/// A message of this moment, without the texts of its date and time. Any thread.
CEventMessage StampedMessage(CEventMessage::EEventType type, const std::string& source,
                             const std::string& event);

/// Writes date and time of messages as texts, under the formats that are in use while it lives. Messages often
/// share a second, so the last text is kept. On the thread of the windows.
class EventTimeTexts {
public:
    void Write(CEventMessage& message);

private:
    CEventMessage m_last;
    bool m_hasLast = false;
};

} // namespace korvel::internal
