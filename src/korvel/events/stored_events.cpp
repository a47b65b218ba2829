#include "korvel/events/stored_events.h"

namespace korvel::internal {

StoredEvent& StoredEvents::Add(const CEventMessage& message, const EventPlace* place) {
    StoredEvent stored{message, place ? std::make_unique<const EventPlace>(*place) : nullptr};
    m_counter = static_cast<int>(static_cast<unsigned>(m_counter) + 1);
    const auto at = m_messages.insert_or_assign(m_messages.end(), m_counter, std::move(stored));
    m_listed.push_back(&at->second);
    return at->second;
}

} // namespace korvel::internal
