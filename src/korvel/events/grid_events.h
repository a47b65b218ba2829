#pragma once

#include "korvel/events/event_filter.h"
#include "korvel/events/event_place.h"
#include "korvel/events/event_sink.h"
#include "korvel/output/format_subscription.h"
#include "korvel/window/list/list_ctrl.h"

#include <memory>

namespace korvel {

/// The list of what a CEventSinkObserver reports, the newest on top: type, date, time, source and event.
///
///     CGridEvents list;
///     list.Create(WS_CHILD | WS_VISIBLE, {0, 0, 600, 200}, &frame, 105);
///     list.CreateHeader();
///     import.AddSink(&list);
///     import.Run();              // "Axis 3 has no points"
///     list.GetItemText(0, 4);    // the same
///     import.RemoveSink(&list);  // before the list dies
///
/// It keeps a copy of every message for as long as it lives, also of one that came when it had no window, which
/// SetFilter then shows; there is no limit. Dates and times are written again when their format changes. Belongs
/// to the thread of its window, on which events must be reported; EventQueue takes those of other threads.
///
/// The row data (GetItemData) is the kept message, a const CEventMessage*, and its text in column 0 is the
/// event, though the type is drawn there; kept, because type-ahead finds events by it.
class KORVEL_API CGridEvents : public CListCtrl,
                               public CEventSinkImp<CGridEvents>,
                               public IDateFormatChangedImp<CGridEvents>,
                               public PlacedEventSink {
public:
    CGridEvents();
    ~CGridEvents() override;

    /// Inserts the columns, each a fifth of the client area wide; they keep that width. To be called once
    /// for each window, after it was made; a further call does nothing.
    void CreateHeader();

    /// Inserts a row at the top (LVN_INSERTITEM). What a handler throws there comes out; the message is kept.
    void OnAddEvent(const CEventMessage& message) override;
    void OnAddPlacedEvent(const CEventMessage& message, const EventPlace& place) override;
    /// Deletes the rows and nothing else: the messages stay in memory.
    void OnClearEvent() override;
    /// The date format has changed. The library calls it; hosts need not.
    void OnChanged() override;

    /// The cell of the icon strip: 0 for an unknown type.
    static int GetImageIndexFromEventType(CEventMessage::EEventType type);

    /// The message of a row, and what is known of its place; null where there is none. Valid as long as the
    /// list.
    const CEventMessage* MessageAt(int row) const;
    const EventPlace* PlaceAt(int row) const;

    /// Hides rows and forgets no message; of those to come it shows what the filter lets through. A row that was
    /// deleted alone comes back. What is selected and still shown stays so. No notice is sent.
    void SetFilter(const EventFilter& filter);
    const EventFilter& GetFilter() const;
    /// How many messages there are since the last OnClearEvent, with those that have no row.
    int GetMessageCount() const;

    void DrawItem(DRAWITEMSTRUCT* item) override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void PreSubclassWindow() override;

private:
    struct Parts;

    void Add(const CEventMessage& message, const EventPlace* place);

    std::unique_ptr<Parts> m_parts;
};

} // namespace korvel
