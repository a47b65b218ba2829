#include "korvel/qt/row_changes.h"

#include <algorithm>

namespace korvel::internal {

// Of what the last change inserted, no row was there before: whatever happens to them can be part of that change.
void RowChanges::Add(int first, int removed, int inserted) {
    if (!m_changes.empty()) {
        Change& last = m_changes.back();
        const int end = last.first + last.inserted;
        if (first <= end && first + removed >= last.first) {
            const int before = std::max(last.first - first, 0);
            const int after = std::max(first + removed - end, 0);
            last.first = std::min(last.first, first);
            last.inserted += inserted - (removed - before - after);
            last.removed += before + after;
            return;
        }
    }
    m_changes.push_back({first, removed, inserted});
}

std::optional<int> RowChanges::Follow(int row) const {
    for (const Change& change : m_changes) {
        if (row < change.first)
            continue;
        if (row < change.first + change.removed)
            return std::nullopt;
        row += change.inserted - change.removed;
    }
    return row;
}

} // namespace korvel::internal
