#include "korvel/editors/combo_preview.h"

namespace korvel::internal {

namespace {

constexpr unsigned Pause = 500; // milliseconds that the pointer rests before the picture opens
constexpr unsigned Stay = 2000; // and that the picture stays

} // namespace

void ComboPreview::OnMouseMove(CPoint point) {
    m_point = point;
    const int row = RowUnderPointer();
    switch (m_state) {
    case State::Idle:
        m_state = State::Armed;
        break;
    case State::Armed:
        StopTimer();
        if (row == m_row)
            StartTimer(Pause);
        m_row = row;
        break;
    case State::Shown:
        if (row != m_row)
            Hide();
        break;
    }
}

// Without a picture nothing is timed until the pointer moves again.
void ComboPreview::OnTimer() {
    if (m_state == State::Armed && Show()) {
        m_state = State::Shown;
        StartTimer(Stay);
        return;
    }
    if (m_state == State::Shown)
        Hide();
    StopTimer();
}

bool ComboPreview::Show() {
    const int row = RowUnderPointer();
    const std::string path = m_view.Model().ImagePath(row);
    const auto geometry = m_view.GeometryOf(row);
    const bool isClosed = m_state == State::Idle; // the host may have closed the list
    if (isClosed || !geometry || path.empty() || !m_window.Load(path))
        return false;
    CRect label = geometry->Label();
    const CPoint origin = ClientToScreen(m_view.Control().m_hWnd, {0, 0});
    label.OffsetRect(origin.x, origin.y);
    m_row = row;
    m_window.Show(m_view.Control(), label);
    return true;
}

void ComboPreview::Dismiss() {
    StopTimer();
    Hide();
}

void ComboPreview::Hide() {
    m_window.Hide();
    m_state = State::Armed;
}

void ComboPreview::Close() {
    StopTimer();
    m_window.Hide();
    m_state = State::Idle;
    m_row = -1;
}

void ComboPreview::StartTimer(unsigned milliseconds) {
    m_timer = m_view.Control().SetTimer(TimerId, milliseconds);
}

void ComboPreview::StopTimer() {
    if (m_timer != 0) {
        m_view.Control().KillTimer(TimerId);
        m_timer = 0;
    }
}

} // namespace korvel::internal
