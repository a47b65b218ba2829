#pragma once

#include "korvel/events/event_sink_observer.h"
#include "support/german_machine.h"
#include "support/table.h"

#include <functional>
#include <string>
#include <vector>

namespace korvel {

/// A source on which tests report.
struct TestReporter : CEventSinkObserver {
    using CEventSinkObserver::AddErrorMsg;
    using CEventSinkObserver::AddInfoMsg;
    using CEventSinkObserver::AddWarningMsg;
};

/// A sink that keeps what it hears, and then does what the test says.
struct HeardEvents : IEventSink {
    void OnAddEvent(const CEventMessage& message) override {
        messages.push_back(message);
        if (reaction)
            reaction();
    }
    void OnClearEvent() override { ++clears; }

    std::vector<CEventMessage> messages;
    int clears = 0;
    std::function<void()> reaction;
};

/// A message without a moment.
inline CEventMessage MessageOf(CEventMessage::EEventType type, const std::string& event) {
    CEventMessage message;
    message.m_Type = type;
    message.m_strEvent = event;
    return message;
}

} // namespace korvel
