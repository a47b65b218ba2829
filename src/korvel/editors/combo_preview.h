#pragma once

#include "korvel/editors/tooltipp_bitmap.h"

#include <cstdint>
#include <functional>
#include <string>
#include <utility>

namespace korvel::internal {

/// The picture that appears when the pointer rests on a row of a CComboList: it opens after half a second and
/// goes after two more, or when the user does something.
class ComboPreview {
public:
    /// What the preview asks the list for.
    struct Source {
        std::function<int(CPoint)> rowAt;              // -1: none
        std::function<std::string(int row)> imagePath; // empty: none
        std::function<CRect(int row)> labelRect;
    };
    static constexpr std::uintptr_t TimerId = 17;

    ComboPreview(CWnd& list, Source source) : m_list(list), m_source(std::move(source)) {}

    void OnMouseMove(CPoint point);
    void OnTimer();
    /// A key or a button of the mouse: the picture goes, and the pause is timed anew from the next move on.
    void Dismiss();
    /// Hides the picture; the next pause of the pointer shows one again.
    void Hide();
    /// The list forgets its rows.
    void Close();
    bool IsShown() const { return m_state == State::Shown; }

private:
    enum class State {
        Idle,
        Armed, // a pause of the pointer is being timed
        Shown,
    };

    bool Show();
    void StartTimer(unsigned milliseconds);
    void StopTimer();

    CWnd& m_list;
    Source m_source;
    CTooltippBitmap m_window;
    State m_state = State::Idle;
    int m_row = -1;
    CPoint m_point;
    std::uintptr_t m_timer = 0;
};

} // namespace korvel::internal
