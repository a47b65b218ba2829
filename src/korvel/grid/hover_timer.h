#pragma once

#include "korvel/window/list/list_ctrl.h"

#include <cstdint>

namespace korvel::internal {

/// Tells the parent of a grid of the row on whose label the pointer rests: from 200 milliseconds after it
/// came there until it moves, or for two seconds.
class HoverTimer {
public:
    static constexpr std::uintptr_t TimerId = 15018;

    /// What the grid shows hosts: the running timer (0: none) and the row (-1: none).
    HoverTimer(CListCtrl& grid, std::uintptr_t& timer, int& row) : m_grid(grid), m_timer(timer), m_row(row) {}

    void OnMouseMove(CPoint point);
    void OnTimer();
    void Start();
    void Stop();

private:
    int LabelAt(CPoint point) const;
    void KillTimer();

    CListCtrl& m_grid;
    std::uintptr_t& m_timer;
    int& m_row;
    bool m_isEnding = false;
};

} // namespace korvel::internal
