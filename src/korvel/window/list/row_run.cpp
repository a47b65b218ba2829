#include "korvel/window/list/row_run.h"

#include <algorithm>
#include <utility>

namespace korvel::internal {

void RowRun::MoveHole(int row) {
    if (row == m_hole)
        return;
    const auto hole = m_rows.begin() + m_hole;
    const auto target = m_rows.begin() + row;
    if (m_holeSize > 0 && row < m_hole)
        std::move_backward(target, hole, hole + m_holeSize);
    else if (m_holeSize > 0)
        std::move(hole + m_holeSize, target + m_holeSize, hole);
    m_hole = row;
}

void RowRun::Insert(int row, int count) {
    if (count > m_holeSize) {
        MoveHole(m_size);
        m_rows.resize(static_cast<std::size_t>(m_size) + static_cast<std::size_t>(count));
        m_rows.resize(m_rows.capacity()); // the hole takes what is allocated anyway
        m_holeSize = static_cast<int>(m_rows.size()) - m_size;
    }
    MoveHole(row);
    m_hole += count;
    m_holeSize -= count;
    m_size += count;
}

void RowRun::Erase(int first, int last) {
    if (m_hole < first || m_hole > last)
        MoveHole(std::clamp(m_hole, first, last));
    for (int row = first; row < last; ++row)
        At(row).texts = nullptr;
    m_hole = first;
    m_holeSize += last - first;
    m_size -= last - first;
}

void RowRun::Take(RowRun& other, int first) {
    const int taken = other.m_size - first;
    const int formerSize = m_size;
    Insert(m_size, taken);
    for (int row = 0; row < taken; ++row)
        At(formerSize + row) = std::move(other.At(first + row));
    other.Erase(first, other.m_size);
}

} // namespace korvel::internal
