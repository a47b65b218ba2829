#pragma once

#include "korvel/window/list/row_record.h"

#include <vector>

namespace korvel::internal {

/// A run of rows, counted from 0, with a hole somewhere among them, as editors keep text: what is inserted or
/// erased beside the place of the last change moves no other rows.
class RowRun {
public:
    int Size() const { return m_size; }
    const RowRecord& At(int row) const { return m_rows[row < m_hole ? row : row + m_holeSize]; }
    RowRecord& At(int row) { return m_rows[row < m_hole ? row : row + m_holeSize]; }

    /// Inserts `count` rows in front of row `row` (Size() appends). Their records are the caller's to set.
    void Insert(int row, int count);
    /// Erases the rows from `first` to before `last`.
    void Erase(int first, int last);
    /// Moves the rows of `other` from `first` on after the own ones.
    void Take(RowRun& other, int first);

private:
    void MoveHole(int row);

    std::vector<RowRecord> m_rows; // with the hole
    int m_size = 0;
    int m_hole = 0; // the row after it
    int m_holeSize = 0;
};

} // namespace korvel::internal
