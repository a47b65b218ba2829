#include "korvel/events/event_sink_observer.h"

#include "korvel/events/event_times.h"

namespace korvel {

CEventSinkObserver::CEventSinkObserver() : IEventSourceImp(this) {}
CEventSinkObserver::CEventSinkObserver(const CEventSinkObserver& other) = default;
CEventSinkObserver& CEventSinkObserver::operator=(const CEventSinkObserver& other) = default;
CEventSinkObserver::~CEventSinkObserver() = default;

void CEventSinkObserver::AddSink(IEventSink* sink) {
    if (sink)
        m_Sinks.insert(sink);
}

void CEventSinkObserver::RemoveSink(IEventSink* sink) {
    m_Sinks.erase(sink);
}

// The next one is found by the address of the last, which may be gone by then.
template <class Call>
void CEventSinkObserver::ForEachSink(Call call) {
    for (auto next = m_Sinks.begin(); next != m_Sinks.end();) {
        IEventSink* sink = *next;
        call(*sink);
        next = m_Sinks.upper_bound(sink);
    }
}

void CEventSinkObserver::Fire_OnAddEvent(const CEventMessage& message) {
    ForEachSink([&](IEventSink& sink) { sink.OnAddEvent(message); });
}

void CEventSinkObserver::Fire_OnAddEvent(const CEventMessage& message, const EventPlace& place) {
    ForEachSink([&](IEventSink& sink) {
        if (auto* placed = dynamic_cast<PlacedEventSink*>(&sink))
            placed->OnAddPlacedEvent(message, place);
        else
            sink.OnAddEvent(message);
    });
}

void CEventSinkObserver::Fire_OnClear() {
    ForEachSink([](IEventSink& sink) { sink.OnClearEvent(); });
}

void CEventSinkObserver::AddErrorMsg(const std::string& source, const std::string& event) {
    Report(CEventMessage::eError, source, event);
}

void CEventSinkObserver::AddWarningMsg(const std::string& source, const std::string& event) {
    Report(CEventMessage::eWarning, source, event);
}

void CEventSinkObserver::AddInfoMsg(const std::string& source, const std::string& event) {
    Report(CEventMessage::eInformation, source, event);
}

void CEventSinkObserver::Report(CEventMessage::EEventType type, const std::string& source,
                                const std::string& event) {
    CEventMessage message = internal::StampedMessage(type, source, event);
    internal::EventTimeTexts().Write(message);
    Fire_OnAddEvent(message);
}

} // namespace korvel
