#include "korvel/qt/row_changes.h"

#include <algorithm>
#include <iterator>

namespace korvel::internal {

void RowChanges::Add(int first, int removed, int inserted) {
    const int end = first + removed;
    const auto touched = std::ranges::lower_bound(m_changes, first, {}, &Change::End);
    const auto beyond = std::ranges::upper_bound(touched, m_changes.end(), end, {}, &Change::now);
    for (auto later = beyond; later != m_changes.end(); ++later)
        later->now += inserted - removed;
    if (touched == beyond) {
        int former = first;
        if (touched != m_changes.begin())
            former += std::prev(touched)->FormerEnd() - std::prev(touched)->End();
        m_changes.insert(touched, {former, first, removed, inserted});
        return;
    }
    // Rows that stay around the touched ones are touched with them; those between them leave now.
    const Change& last = *std::prev(beyond);
    const int now = std::min(first, touched->now);
    const int nowEnd = std::max(end, last.End());
    const int former = touched->former - (touched->now - now);
    const int formerEnd = last.FormerEnd() + (nowEnd - last.End());
    *touched = {former, now, formerEnd - former, nowEnd - now - removed + inserted};
    m_changes.erase(std::next(touched), beyond);
}

std::optional<int> RowChanges::Follow(int row) const {
    const auto next = std::ranges::upper_bound(m_changes, row, {}, &Change::former);
    if (next == m_changes.begin())
        return row;
    const Change& change = *std::prev(next);
    if (row < change.FormerEnd())
        return std::nullopt;
    return row - change.FormerEnd() + change.End();
}

} // namespace korvel::internal
