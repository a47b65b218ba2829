#pragma once

#include "korvel/events/event_message.h"

#include <array>
#include <string>
#include <vector>

/// The messages of the comparison of event lists.
namespace bench {

constexpr std::int64_t FirstMoment = 1'700'000'000; // seconds since 1970
constexpr double SecondsOfADay = 86400;

inline korvel::CEventMessage EventOf(long number) {
    korvel::CEventMessage message;
    message.m_Type = static_cast<korvel::CEventMessage::EEventType>(number % 4);
    message.m_Date = 45244.93; // the day of the first moment
    message.m_Time = FirstMoment;
    message.m_strSource = "Import";
    message.m_strEvent =
        "Axis " + std::to_string(number) + " has no points at station " + std::to_string(number % 1000);
    message.m_strDate = "Tuesday, November 14, 2023";
    message.m_strTime = "22:13:20";
    return message;
}

inline std::vector<korvel::CEventMessage> EventsOf(long count) {
    std::vector<korvel::CEventMessage> messages;
    for (long i = 0; i < count; ++i)
        messages.push_back(EventOf(i));
    return messages;
}

/// What the columns show.
inline std::array<std::string, 5> CellsOf(const korvel::CEventMessage& message) {
    constexpr std::array<const char*, 4> Names = {"Information", "Warning", "Error", "Exception"};
    return {Names[static_cast<std::size_t>(message.m_Type)], message.m_strDate, message.m_strTime,
            message.m_strSource, message.m_strEvent};
}

} // namespace bench
