#include "editing/events_pane.h"

#include <algorithm>
#include <array>

namespace korvel::inspector {
namespace {

constexpr CRect FirstPlace = {0, 0, 900, 150}; // until a layout places it
constexpr int ListId = 106;
constexpr std::array Widths = {110, 190, 80, 150}; // of the columns before the last one, which takes the rest
constexpr int LeastEvent = 100;

} // namespace

EventsPane::EventsPane(CEventSinkObserver& source, const CString& name) : m_source(source) {
    CreateEx(0, "KorvelFrame", name.c_str(), 0, FirstPlace, nullptr, 0);
    m_list.Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP | LVS_REPORT | LVS_SHOWSELALWAYS, FirstPlace, this,
                  ListId);
    m_list.CreateHeader();
    PlaceList();
    m_source.AddSink(&m_list);
}

EventsPane::~EventsPane() {
    m_source.RemoveSink(&m_list);
    DestroyWindow();
}

void EventsPane::PlaceList() {
    m_list.MoveWindow(GetClientRect());
    int rest = GetClientRect().Width() - GetSystemMetrics(SM_CXVSCROLL); // the bar may come later
    int column = 0;
    for (const int width : Widths) {
        m_list.SetColumnWidth(column++, width);
        rest -= width;
    }
    m_list.SetColumnWidth(column, std::max(rest, LeastEvent));
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
    const auto* notice = reinterpret_cast<const NMHDR*>(lParam);
    const bool isChoice =
        notice->hwndFrom == m_list.m_hWnd && (notice->code == NM_DBLCLK || notice->code == NM_RETURN);
    if (!isChoice)
        return CWnd::OnNotify(wParam, lParam, result);
    if (const EventPlace* place = m_list.PlaceAt(m_list.GetNextItem(-1, LVNI_FOCUSED)); place && m_chosen)
        m_chosen(EventPlace(*place)); // the hook may make the list forget it
    return true;
}

} // namespace korvel::inspector
