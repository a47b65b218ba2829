#pragma once

#include <cstddef>
#include <vector>

namespace korvel::internal {

/// Rows on their way out of the list: their nodes are no longer shown, and the list removes them one by one.
/// Until the last one is gone, the list has more rows than the tree shows, and a handler of a removal may
/// insert and remove others.
///
///     DepartingRows rows;
///     rows.Begin(3, 2);      // rows 3 and 4 leave: the tree shows 10 more
///     rows.ListRow(3);       // 5
///     rows.Update(11, 10);   // row 4 has gone
///     rows.ListRow(3);       // 4
///     rows.End();
class DepartingRows {
public:
    struct Range {
        int first = 0; // in the list
        int left = 0;  // the last one of a range leaves first
    };

    DepartingRows() { m_ranges.reserve(UsualNesting); } // so that rows leave although memory is short

    bool IsEmpty() const { return m_ranges.empty(); }
    /// The removals that are under way, each begun while the one before it told of a row.
    const std::vector<Range>& Ranges() const { return m_ranges; }

    /// To be called before the tree changes, and before a row is asked for: `listed` rows are in the list,
    /// `shown` ones in the tree.
    void Update(int listed, int shown);
    /// The row in the list of a row in the tree.
    int ListRow(int shownRow) const;

    void Begin(int first, int count);
    /// Ends the removal that began last, and returns what is left of it.
    Range End();
    /// Rows were inserted in the list.
    void Insert(int row, int count);

private:
    static constexpr std::size_t UsualNesting = 8;

    std::vector<Range> m_ranges;
};

} // namespace korvel::internal
