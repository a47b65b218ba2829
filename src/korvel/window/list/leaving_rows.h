#pragma once

#include "korvel/window/list/list_state.h"

namespace korvel::internal {

/// Rows that are removed one by one, the last one first. A handler of a notice may insert and remove rows
/// itself, also by a removal inside this one: so the range of the rows that are to go is followed, and once
/// rows came within it those that are to go are marked. Lives on the stack.
class LeavingRows {
public:
    LeavingRows(ListState& owner, int firstRow, int lastRow);
    ~LeavingRows();
    LeavingRows(const LeavingRows&) = delete;
    LeavingRows& operator=(const LeavingRows&) = delete;

    /// The next row to go, or NoRow.
    int TakeNext() {
        while (m_isMarked && m_next >= m_first && !IsLeaving(m_next))
            --m_next;
        return m_next >= m_first ? m_next-- : NoRow;
    }
    int First() const { return m_first; }
    /// The row after those that are still to go.
    int End() const { return m_next + 1; }

    /// The removal whose notice led to this one, or null.
    LeavingRows* Outer() const { return m_outer; }
    void OnInserted(int row, int count);
    void OnErased(int first, int last) {
        if (first <= m_next || first < m_first)
            FollowErasure(first, last);
    }

private:
    bool IsLeaving(int row) const;
    void FollowErasure(int first, int last);
    void MarkAllBut(int first, int last);

    ListState& m_list;
    LeavingRows* const m_outer;
    const unsigned m_depth; // 1 for the outermost
    int m_first;
    int m_next;
    bool m_isMarked = false; // else all rows from m_first to m_next are to go
};

} // namespace korvel::internal
