#pragma once

#include "korvel/events/event_place.h"
#include "korvel/events/event_sink.h"
#include "korvel/events/event_source.h"

#include <set>

namespace korvel {

/// The base of what reports in a host. A message gets the moment of its report and goes at once to every sink;
/// none is kept, so a sink that is added later sees nothing of what went before.
///
///     class Import : public CEventSinkObserver {
///     public:
///         void Run() { AddWarningMsg("Import", "Axis 3 has no points"); }
///     };
///
///     Import import;
///     import.AddSink(&list);   // a CGridEvents
///     import.Run();            // the list shows it
///     import.RemoveSink(&list);
///
/// Belongs to one thread, that of its sinks: EventQueue takes what other threads report. Sinks are not owned
/// and must be removed before they die. They are called once each, in the order of their addresses. A sink may
/// add and remove sinks, itself too: of those after it, those that are there then are called. An exception of
/// a sink ends the walk and reaches the reporter.
class KORVEL_API CEventSinkObserver : public IEventSourceImp<CEventSinkObserver> {
public:
    CEventSinkObserver();
    /// A copy reports to the same sinks, in a set of its own.
    CEventSinkObserver(const CEventSinkObserver& other);
    CEventSinkObserver& operator=(const CEventSinkObserver& other);
    /// Tells the sinks nothing.
    ~CEventSinkObserver() override;

    /// Null, and a sink that is there already, change nothing.
    void AddSink(IEventSink* sink);
    void RemoveSink(IEventSink* sink);

    /// For others to report through this.
    IEventSource* GetEventSourceImp() { return this; }

    void Fire_OnAddEvent(const CEventMessage& message);
    /// The same for a message with a place: a sink that is no PlacedEventSink gets the message alone.
    void Fire_OnAddEvent(const CEventMessage& message, const EventPlace& place);
    void Fire_OnClear();

protected:
    void AddErrorMsg(const std::string& source, const std::string& event) override;
    void AddWarningMsg(const std::string& source, const std::string& event) override;
    void AddInfoMsg(const std::string& source, const std::string& event) override;

private:
    friend class IEventSourceImp<CEventSinkObserver>;

    void Report(CEventMessage::EEventType type, const std::string& source, const std::string& event);
    template <class Call>
    void ForEachSink(Call call);

    std::set<IEventSink*> m_Sinks;
};

} // namespace korvel
