#pragma once

#include "korvel/events/event_message.h"
#include "korvel/window/base/types.h"

#include <array>

/// What the columns of an event list show.
namespace korvel::internal {

struct EventColumn {
    int title;                        // Text id
    std::string CEventMessage::*text; // null: the name of the type
};

inline constexpr std::array<EventColumn, 5> EventColumns = {{{19, nullptr},
                                                             {20, &CEventMessage::m_strDate},
                                                             {21, &CEventMessage::m_strTime},
                                                             {22, &CEventMessage::m_strSource},
                                                             {23, &CEventMessage::m_strEvent}}};

/// In the language of the process; "??" for an unknown type.
const char* NameOfEventType(CEventMessage::EEventType type);

/// What is drawn in a column, whole and as it is.
CString EventCellText(const CEventMessage& message, const EventColumn& column);

} // namespace korvel::internal
