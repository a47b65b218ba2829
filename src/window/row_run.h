#pragma once

#include "window/types.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace korvel {

/// What a list keeps of one row: 24 bytes, and texts only where the row stores its own.
struct RowRecord {
    LPARAM data = 0;
    /// Entry i belongs to column i. Null: the texts come from the list's text source.
    std::unique_ptr<std::vector<CString>> texts;
    std::int32_t image = -1;
    std::uint32_t indent : 24 = 0;
    bool checked : 1 = false;

    bool IsSelected() const { return selected; }

private:
    friend class RowBlocks; // counts the selected rows
    bool selected : 1 = false;
};

/// A run of rows, counted from 0. What is erased leaves a hole, which is closed when rows are erased
/// elsewhere or inserted: to erase a range row by row from one of its ends moves the rows behind it once at
/// most.
class RowRun {
public:
    int Size() const { return static_cast<int>(m_rows.size()) - m_holeSize; }
    const RowRecord& At(int row) const { return m_rows[row < m_hole ? row : row + m_holeSize]; }
    RowRecord& At(int row) { return m_rows[row < m_hole ? row : row + m_holeSize]; }
    /// All rows, without a hole.
    std::vector<RowRecord>& Closed();
    /// Erases the rows from `first` to before `last`.
    void Erase(int first, int last);

private:
    std::vector<RowRecord> m_rows;
    int m_hole = 0; // the row behind it
    int m_holeSize = 0;
};

} // namespace korvel
