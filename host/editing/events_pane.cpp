#include "editing/events_pane.h"

#include <algorithm>
#include <array>

namespace korvel::inspector {
namespace {

constexpr CRect FirstPlace = {0, 0, 900, 150}; // until a layout places it
constexpr int ListId = 106;
constexpr std::array Widths = {110, 190, 80, 150}; // of the columns before the last one
constexpr int Last = Widths.size();
constexpr int LeastEvent = 100;

} // namespace

EventsPane::EventsPane(CEventSinkObserver& source, const CString& name) : m_source(source) {
    CreateEx(0, "KorvelFrame", name.c_str(), 0, FirstPlace, nullptr, 0);
    m_list.Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP | LVS_REPORT | LVS_SHOWSELALWAYS, FirstPlace, this,
                  ListId);
    m_list.CreateHeader();
    for (int column = 0; column < Last; ++column)
        m_list.SetColumnWidth(column, Widths[static_cast<std::size_t>(column)]);
    PlaceList();
    m_source.AddSink(&m_list);
}

EventsPane::~EventsPane() {
    m_source.RemoveSink(&m_list);
    DestroyWindow();
}

// The last column takes the rest, until the user has made it wider or narrower.
void EventsPane::PlaceList() {
    m_list.MoveWindow(GetClientRect());
    if (m_lastWidth != 0 && m_list.GetColumnWidth(Last) != m_lastWidth)
        return;
    int rest = GetClientRect().Width() - GetSystemMetrics(SM_CXVSCROLL); // the bar may come later
    for (int column = 0; column < Last; ++column)
        rest -= m_list.GetColumnWidth(column);
    m_lastWidth = std::max(rest, LeastEvent);
    m_list.SetColumnWidth(Last, m_lastWidth);
}

LRESULT EventsPane::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    const LRESULT result = CWnd::WindowProc(message, wParam, lParam);
    if (message == WM_SIZE && m_list.m_hWnd)
        PlaceList();
    else if (message == WM_SETFOCUS)
        m_list.SetFocus();
    return result;
}

bool EventsPane::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) {
    const auto& notice = *reinterpret_cast<const NMLISTVIEW*>(lParam);
    if (notice.hdr.hwndFrom != m_list.m_hWnd || notice.hdr.code != LVN_ITEMACTIVATE)
        return CWnd::OnNotify(wParam, lParam, result);
    if (const EventPlace* place = m_list.PlaceAt(notice.iItem); place && m_chosen)
        m_chosen(*place);
    return true;
}

} // namespace korvel::inspector
