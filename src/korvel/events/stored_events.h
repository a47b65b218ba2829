#pragma once

#include "korvel/events/event_place.h"

#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace korvel::internal {

/// A message as an event list keeps it.
struct StoredEvent : CEventMessage {
    std::unique_ptr<const EventPlace> place; // null: none
};

/// The messages of an event list, which stay where they are as long as it lives.
class StoredEvents {
public:
    explicit StoredEvents(int lastNumber = 0) : m_counter(lastNumber) {}

    /// Keeps a copy under the next number; after the highest number comes the lowest.
    StoredEvent& Add(const CEventMessage& message, const EventPlace* place);

    /// All that are to be shown, the oldest first.
    const std::vector<StoredEvent*>& Listed() const { return m_listed; }
    /// Takes all out of the listed ones. Kept: their memory is not given back and the numbers go on, as a host
    /// may hold a message that it had from a row.
    std::vector<StoredEvent*> Unlist() { return std::exchange(m_listed, {}); }
    /// Puts back what was unlisted, before those that came since.
    /// It needs no memory where none came.
    void ListAgain(std::vector<StoredEvent*> former) {
        former.insert(former.end(), m_listed.begin(), m_listed.end());
        m_listed = std::move(former);
    }

    const std::map<int, StoredEvent>& All() const { return m_messages; }

private:
    std::map<int, StoredEvent> m_messages;
    int m_counter; // the number of the last one
    std::vector<StoredEvent*> m_listed;
};

} // namespace korvel::internal
