#pragma once

#include "korvel/events/event_message.h"

#include <array>
#include <string_view>

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

/// What a column shows of a message, whole and as it is; the type in the language of the process, "??" where it is
/// unknown.
std::string_view EventCellText(const CEventMessage& message, const EventColumn& column);

} // namespace korvel::internal
