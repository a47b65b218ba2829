#pragma once

#include "korvel/editors/combo_view.h"
#include "korvel/editors/tooltipp_bitmap.h"

#include <cstdint>

namespace korvel::internal {

/// The picture that appears when the pointer rests on a row of a CComboList: it opens after half a second and
/// goes after two more, or when the user does something.
class ComboPreview {
public:
    static constexpr std::uintptr_t TimerId = 17;

    explicit ComboPreview(const ComboView& view) : m_view(view) {}

    void OnMouseMove(CPoint point);
    void OnTimer();
    /// A key or a button of the mouse: the picture goes, and the pause is timed anew from the next move on.
    void Dismiss();
    /// Hides the picture; the next pause of the pointer shows one again.
    void Hide();
    /// The list forgets its rows.
    void Close();
    bool IsShown() const { return m_window.IsWindowVisible(); }

private:
    enum class State {
        Idle,
        Armed, // a pause of the pointer is being timed
        Shown,
    };

    int RowUnderPointer() const { return m_view.Control().HitTest(m_point); }
    bool Show();
    void StartTimer(unsigned milliseconds);
    void StopTimer();

    const ComboView& m_view;
    CTooltippBitmap m_window;
    State m_state = State::Idle;
    int m_row = -1;
    CPoint m_point;
    std::uintptr_t m_timer = 0;
};

} // namespace korvel::internal
