#pragma once

#include "korvel/events/event_message.h"
#include "korvel/platform/export.h"

#include <set>
#include <string>

namespace korvel {

/// Which messages an event list shows; at first all.
///
///     EventFilter filter;
///     filter.HideKind(CEventMessage::eInformation);
///     filter.SetText("axis");
///     list.SetFilter(filter);   // warnings and errors with "axis", "Axis" ... in source or event
class KORVEL_API EventFilter {
public:
    void ShowKind(CEventMessage::EEventType kind) { m_hidden.erase(kind); }
    void HideKind(CEventMessage::EEventType kind) { m_hidden.insert(kind); }
    bool ShowsKind(CEventMessage::EEventType kind) const { return !m_hidden.contains(kind); }

    /// A text that source or event must hold, in any case of letters; empty: none need.
    void SetText(const std::string& text);
    const std::string& Text() const { return m_text; }

    bool Shows(const CEventMessage& message) const;

private:
    std::set<CEventMessage::EEventType> m_hidden;
    std::string m_text;
    std::string m_folded;
};

} // namespace korvel
