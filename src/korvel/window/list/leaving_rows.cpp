#include "korvel/window/list/leaving_rows.h"

#include <algorithm>

namespace korvel::internal {

LeavingRows::LeavingRows(ListState& owner, int firstRow, int lastRow)
    : m_list(owner), m_outer(owner.leaving),
      m_depth(m_outer ? std::min<unsigned>(m_outer->m_depth + 1, RowRecord::DeepestRemoval) : 1),
      m_first(firstRow), m_next(lastRow - 1) {
    m_list.leaving = this;
}

// After a failure, what stays is no longer to go: the row that was taken last and those before it.
LeavingRows::~LeavingRows() {
    m_list.leaving = m_outer;
    for (int row = m_first; m_isMarked && row <= End() && m_list.rows.Has(row); ++row)
        if (m_list.rows.At(row).removal == m_depth)
            m_list.rows.At(row).removal = 0;
}

bool LeavingRows::IsLeaving(int row) const {
    const unsigned removal = m_list.rows.At(row).removal;
    return removal != 0 && removal <= m_depth;
}

void LeavingRows::MarkAllBut(int first, int last) {
    m_isMarked = true;
    for (int row = m_first; row <= m_next; ++row)
        if ((row < first || row >= last) && !IsLeaving(row))
            m_list.rows.At(row).removal = m_depth;
}

void LeavingRows::OnInserted(int row, int count) {
    const bool isWithin = row > m_first && row <= m_next;
    for (int* followed : {&m_first, &m_next})
        if (*followed >= row)
            *followed += count;
    if (isWithin && !m_isMarked)
        MarkAllBut(row, row + count);
}

void LeavingRows::FollowErasure(int first, int last) {
    const auto erasedBefore = [=](int row) { return std::max(0, std::min(row, last) - first); };
    m_first -= erasedBefore(m_first);
    m_next -= erasedBefore(m_next + 1);
}

} // namespace korvel::internal
