#include "korvel/grid/departing_rows.h"

#include <algorithm>

namespace korvel::internal {

void DepartingRows::Update(int listed, int shown) {
    if (m_ranges.empty())
        return;
    int surplus = listed - shown;
    for (std::size_t outer = 0; outer + 1 < m_ranges.size(); ++outer)
        surplus -= m_ranges[outer].left;
    Range& range = m_ranges.back(); // the others wait for it
    const int gone = range.left - std::clamp(surplus, 0, range.left);
    range.left -= gone;
    for (Range& other : m_ranges)
        if (other.first > range.first)
            other.first -= gone;
}

int DepartingRows::ListRow(int shownRow) const {
    if (m_ranges.empty())
        return shownRow;
    std::vector<Range> ranges = m_ranges;
    std::sort(ranges.begin(), ranges.end(),
              [](const Range& left, const Range& right) { return left.first < right.first; });
    for (const Range& range : ranges)
        if (range.first <= shownRow)
            shownRow += range.left;
    return shownRow;
}

void DepartingRows::Begin(int first, int count) {
    for (Range& other : m_ranges)
        if (other.first >= first && other.first < first + count)
            other = {first, 0};
    m_ranges.push_back({first, count});
}

DepartingRows::Range DepartingRows::End() {
    const Range range = m_ranges.back();
    m_ranges.pop_back();
    for (Range& other : m_ranges)
        if (other.first > range.first)
            other.first -= range.left;
    return range;
}

void DepartingRows::Insert(int row, int count) {
    for (Range& range : m_ranges)
        if (range.first >= row)
            range.first += count;
}

} // namespace korvel::internal
