#include "window/row_run.h"

#include <utility>

namespace korvel {

std::vector<RowRecord>& RowRun::Closed() {
    const auto hole = m_rows.begin() + m_hole;
    m_rows.erase(hole, hole + std::exchange(m_holeSize, 0));
    return m_rows;
}

void RowRun::Erase(int first, int last) {
    const bool touchesHole = first <= m_hole && m_hole <= last;
    if (!touchesHole)
        Closed();
    for (int row = first; row < last; ++row)
        At(row) = RowRecord();
    m_hole = first;
    m_holeSize += last - first;
}

} // namespace korvel
