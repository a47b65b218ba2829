#pragma once

#include "korvel/events/event_sink_observer.h"
#include "korvel/events/grid_events.h"

#include <functional>
#include <utility>

namespace korvel::inspector {

/// The window that Embed takes for the messages: a list that fills it.
class EventsPane final : public CWnd {
public:
    /// Shows what `source` reports, which must outlive it. `name` is what a screen reader calls the list.
    EventsPane(CEventSinkObserver& source, const CString& name);
    ~EventsPane() override;

    CGridEvents& List() { return m_list; }
    /// Called for a message with a place that was double-clicked, or chosen with Return.
    using ChosenHook = std::function<void(const EventPlace& place)>;
    void SetChosenHook(ChosenHook hook) { m_chosen = std::move(hook); }

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    bool OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override;

private:
    void PlaceList();

    CEventSinkObserver& m_source;
    CGridEvents m_list;
    int m_lastWidth = 0; // of the last column, as it was set here
    ChosenHook m_chosen;
};

} // namespace korvel::inspector
