#include "korvel/events/grid_events.h"

#include "korvel/events/date_format_listener.h"
#include "korvel/events/event_columns.h"
#include "korvel/events/event_row_painter.h"
#include "korvel/events/event_rows.h"
#include "korvel/events/event_times.h"
#include "korvel/events/redraw_pause.h"
#include "korvel/events/stored_events.h"
#include "korvel/values/text_table.h"
#include "korvel/window/base/list_view.h"
#include "korvel/window/core/thread_queue.h"

#include <utility>

namespace korvel {

using namespace internal;

namespace {

const StoredEvent* EventOf(LPARAM data) {
    return static_cast<const StoredEvent*>(reinterpret_cast<const CEventMessage*>(data));
}

LPARAM DataOf(const CEventMessage& kept) {
    return reinterpret_cast<LPARAM>(&kept);
}

int ImageOfRow(LPARAM data) {
    return CGridEvents::GetImageIndexFromEventType(EventOf(data)->m_Type);
}

CString TextOfRow(LPARAM data, int column) {
    const StoredEvent* message = EventOf(data);
    const auto index = static_cast<std::size_t>(column);
    if (!message || index >= EventColumns.size())
        return {};
    return column == 0 ? message->m_strEvent : CString(EventCellText(*message, EventColumns[index]));
}

// The list has another text in column 0 than it shows.
void ReadType(view::CellView& cell) {
    if (cell.at.row != view::TitleRow && cell.at.column == 0 && cell.data)
        cell.text = EventCellText(*EventOf(cell.data), EventColumns[0]);
}

} // namespace

struct CGridEvents::Parts {
    explicit Parts(CGridEvents& grid) : dateFormat(grid) {}

    StoredEvents events;
    EventIcons icons;
    EventFilter filter;
    HWND headerOf = nullptr; // the window that has the columns
    DateFormatListener dateFormat;
};

CGridEvents::CGridEvents()
    : CEventSinkImp(this), IDateFormatChangedImp(this), m_parts(std::make_unique<Parts>(*this)) {}

CGridEvents::~CGridEvents() {
    GuardedUntilRun([this] { DestroyWindow(); }); // rows go before their messages
}

void CGridEvents::PreSubclassWindow() {
    ModifyStyle(0, LVS_REPORT | LVS_OWNERDRAWFIXED);
    SetTextSource(TextOfRow);
}

LRESULT CGridEvents::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    const LRESULT result = CListCtrl::WindowProc(message, wParam, lParam);
    if (message == WM_CREATE)
        return result == -1 ? -1 : 0;
    if (message == LVM_KORVEL_READCELL && result)
        ReadType(*reinterpret_cast<view::CellView*>(lParam));
    return result;
}

void CGridEvents::CreateHeader() {
    if (!m_hWnd || m_parts->headerOf == m_hWnd)
        return;
    m_parts->icons.Load();
    std::vector<CString> titles;
    titles.reserve(EventColumns.size());
    for (const EventColumn& column : EventColumns)
        titles.push_back(Text(column.title));
    m_parts->headerOf = m_hWnd;
    const int width = GetClientRect().Width() / static_cast<int>(titles.size());
    int number = 0;
    for (const CString& title : titles)
        InsertColumn(number++, title, width);
}

int CGridEvents::GetImageIndexFromEventType(CEventMessage::EEventType type) {
    switch (type) {
    case CEventMessage::eInformation:
        return 3;
    case CEventMessage::eWarning:
        return 2;
    case CEventMessage::eError:
        return 1;
    case CEventMessage::eException:
        return 4;
    }
    return 0;
}

void CGridEvents::OnAddEvent(const CEventMessage& message) {
    Add(message, nullptr);
}

void CGridEvents::OnAddPlacedEvent(const CEventMessage& message, const EventPlace& place) {
    Add(message, &place);
}

void CGridEvents::Add(const CEventMessage& message, const EventPlace* place) {
    m_parts->dateFormat.Begin();
    const CEventMessage& kept = m_parts->events.Add(message, place);
    if (!m_parts->filter.Shows(kept))
        return;
    LVITEM row;
    row.mask = LVIF_IMAGE | LVIF_PARAM; // the text source has the text
    row.iImage = GetImageIndexFromEventType(kept.m_Type);
    row.lParam = DataOf(kept);
    SendMessageA(LVM_INSERTITEM, 0, reinterpret_cast<LPARAM>(&row));
}

void CGridEvents::OnClearEvent() {
    auto former = m_parts->events.Unlist();
    try {
        SendMessageA(LVM_DELETEALLITEMS);
    } catch (...) { // of a handler, and some rows stay
        m_parts->events.ListAgain(std::move(former));
        throw;
    }
    if (!m_parts->events.Listed().empty()) // reported meanwhile, and gone with the others
        SetFilter(m_parts->filter);
}

void CGridEvents::OnChanged() {
    const RedrawPause pause(*this);
    EventTimeTexts texts;
    for (StoredEvent* event : m_parts->events.Listed())
        texts.Write(*event);
}

void CGridEvents::SetFilter(const EventFilter& filter) {
    EventFilter wanted = filter;
    const RedrawPause pause(*this);
    CancelEditLabel(); // its end is told, as the pause is: whoever hears of it may report or clear
    const auto& listed = m_parts->events.Listed();
    std::vector<LPARAM> rows;
    for (auto event = listed.rbegin(); event != listed.rend(); ++event)
        if (wanted.Shows(**event))
            rows.push_back(DataOf(**event));
    std::swap(m_parts->filter, wanted);
    ReplaceRows(*this, rows, ImageOfRow);
}

const EventFilter& CGridEvents::GetFilter() const {
    return m_parts->filter;
}

int CGridEvents::GetMessageCount() const {
    return static_cast<int>(m_parts->events.Listed().size());
}

const CEventMessage* CGridEvents::MessageAt(int row) const {
    return EventOf(GetItemData(row));
}

const EventPlace* CGridEvents::PlaceAt(int row) const {
    const StoredEvent* event = EventOf(GetItemData(row));
    return event ? event->place.get() : nullptr;
}

void CGridEvents::DrawItem(DRAWITEMSTRUCT* item) {
    if (item && item->hDC)
        EventRowPainter(*this, m_parts->icons, *item->hDC).Draw(static_cast<int>(item->itemID), item->rcItem);
}

} // namespace korvel
