#pragma once

#include "window/block_index.h"
#include "window/types.h"

#include <cstdint>
#include <functional>
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

/// The rows of a list in blocks: a row is found, inserted or removed anywhere at the cost of one block
/// and of the logarithm of their number; a range is inserted at the cost of its own length.
///
///     RowBlocks rows;
///     rows.Insert(0, 1000000, [](int) { return RowRecord(); });
///     rows.At(999999).data = 7;
///     rows.Erase(0, 10);
///     rows.At(999989).data;   // 7
///
/// Rows are counted from 0; a row outside the rows or a range that is not inside them is the caller's
/// error.
class RowBlocks {
public:
    int Size() const { return m_size; }
    bool Has(int row) const { return row >= 0 && row < m_size; }

    /// The reference lasts until rows are inserted or erased.
    RowRecord& At(int row);
    const RowRecord& At(int row) const { return const_cast<RowBlocks*>(this)->At(row); }

    /// Makes the record of the inserted row `index` (from 0); called in order, once each.
    using Maker = std::function<RowRecord(int index)>;
    /// Inserts rows in front of row `row` (Size() appends). None of them is selected afterwards.
    void Insert(int row, int count, const Maker& make);
    /// Removes the rows from `first` to before `last`.
    void Erase(int first, int last);

    void Select(int row, bool selected);
    int SelectedCount() const { return m_selectedCount; }
    /// The first selected row from `row` on, or -1. Blocks without one are stepped over whole.
    int FindSelected(int row) const;

private:
    struct Block {
        std::vector<RowRecord> rows;
        int selectedCount = 0;
    };

    BlockIndex::Place PlaceToInsert(int row) const;
    void InsertIntoBlock(BlockIndex::Place place, int count, const Maker& make);
    void InsertBlocks(BlockIndex::Place place, int count, const Maker& make);
    /// Answers the block that begins with what stood at `place`.
    int SplitAt(BlockIndex::Place place);
    bool JoinSmall(int block);
    void RebuildIndex();

    std::vector<Block> m_blocks;
    BlockIndex m_index;
    int m_size = 0;
    int m_selectedCount = 0;
};

} // namespace korvel
