#include "korvel/events/event_filter.h"

#include "korvel/events/text_search.h"
#include "korvel/platform/code_page.h"

#include <utility>

namespace korvel {

void EventFilter::SetText(const std::string& text) {
    std::string folded = platform::FoldCase(text);
    m_text = text;
    m_folded = std::move(folded);
}

bool EventFilter::Shows(const CEventMessage& message) const {
    if (!ShowsKind(message.m_Type))
        return false;
    return m_folded.empty() || internal::HoldsFolded(message.m_strSource, m_folded) ||
           internal::HoldsFolded(message.m_strEvent, m_folded);
}

} // namespace korvel
