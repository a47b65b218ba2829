#include "korvel/grid/hover_timer.h"

#include "korvel/platform/first_failure.h"
#include "korvel/platform/raised_flag.h"

#include <utility>

namespace korvel::internal {

namespace {

constexpr unsigned MillisecondsToRest = 200;
constexpr unsigned MillisecondsToShow = 2000;

// What the parent is told.
constexpr UINT HoverEnds = 20;
constexpr UINT HoverBegins = 21;

} // namespace

int HoverTimer::LabelAt(CPoint point) const {
    UINT flags = 0;
    const int row = m_grid.HitTest(point, &flags);
    return flags & LVHT_ONITEMLABEL ? row : -1;
}

void HoverTimer::KillTimer() {
    if (std::exchange(m_timer, 0))
        m_grid.KillTimer(TimerId);
}

void HoverTimer::OnMouseMove(CPoint point) {
    Stop();
    if (LabelAt(point) != -1)
        Start();
}

void HoverTimer::Start() {
    m_timer = m_grid.SetTimer(TimerId, MillisecondsToRest);
}

void HoverTimer::Stop() {
    KillTimer();
    if (m_row == -1 || m_isEnding)
        return;
    const RaisedFlag ending(m_isEnding);
    FirstFailure failure;
    failure.Try([&] { NotifyParentCommand(m_grid.m_hWnd, HoverEnds); }); // who may ask for the row
    m_row = -1;
    failure.Rethrow();
}

void HoverTimer::OnTimer() {
    const int row = LabelAt(ScreenToClient(m_grid.m_hWnd, GetCursorPos()));
    if (m_row != -1 || row == -1)
        return Stop();
    m_row = row;
    NotifyParentCommand(m_grid.m_hWnd, HoverBegins);
    if (m_row != -1 && m_grid.m_hWnd) // the parent may have ended it
        m_timer = m_grid.SetTimer(TimerId, MillisecondsToShow);
}

} // namespace korvel::internal
