#pragma once

#include <cstddef>
#include <optional>
#include <vector>

namespace korvel::internal {

/// Rows that came and went, to be followed later. What adjoins is one change: rows that leave one by one, up or
/// down from one place, are one however many they are.
///
///     changes.Add(5, 1, 0);   // row 5 went
///     changes.Add(4, 1, 0);   // and row 4
///     changes.Count();        // 1
///     changes.Follow(6);      // 4
///     changes.Follow(5);      // nothing: it is gone
class RowChanges {
public:
    /// From `first` on, `removed` rows went and `inserted` came in their place.
    void Add(int first, int removed, int inserted);
    /// Where the row is that was `row` before all changes; nothing when it is gone.
    std::optional<int> Follow(int row) const;
    std::size_t Count() const { return m_changes.size(); }
    void Clear() { m_changes.clear(); }

private:
    struct Change {
        int former; // its first row before all changes
        int now;    // and after them
        int removed;
        int inserted;

        int FormerEnd() const { return former + removed; }
        int End() const { return now + inserted; }
    };

    std::vector<Change> m_changes; // from the first row to the last, with rows that stay between them
};

} // namespace korvel::internal
