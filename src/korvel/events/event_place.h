#pragma once

#include "korvel/events/event_message.h"
#include "korvel/platform/export.h"

#include <string>

namespace korvel {

/// Where to find what a message is about. The library carries it along and does not read it.
struct EventPlace {
    std::string path; ///< of an object or member, as the host names it
    int line = 0;     ///< in a file, from 1; 0: none

    bool operator==(const EventPlace&) const = default;
};

/// Optional, found by `dynamic_cast` on an IEventSink: hears of the place of a message as well.
class KORVEL_API PlacedEventSink {
public:
    virtual ~PlacedEventSink() = default;
    /// Called in place of IEventSink::OnAddEvent for a message with a place; both are lent for the call.
    virtual void OnAddPlacedEvent(const CEventMessage& message, const EventPlace& place) = 0;
};

} // namespace korvel
