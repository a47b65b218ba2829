#pragma once

#include "korvel/window/base/prefix_sums.h"
#include "korvel/window/list/row_run.h"

#include <functional>
#include <vector>

namespace korvel::internal {

/// The rows of a list in blocks: a row is found, inserted or removed anywhere at the cost of one block
/// and of the logarithm of their number; a range is inserted at the cost of its own length.
///
///     RowBlocks rows;
///     rows.Insert(0, 1000000, [](RowRecord& row, int index) { row.data = index; });
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
    RowRecord& At(int row) {
        const auto place = PlaceOf(row);
        return m_blocks[place.entry].rows.At(place.offset);
    }
    const RowRecord& At(int row) const { return const_cast<RowBlocks*>(this)->At(row); }

    /// Fills the blank record of the inserted row `index` (from 0); called in order, once each.
    using Maker = std::function<void(RowRecord& row, int index)>;
    /// Inserts rows in front of row `row` (Size() appends). None of them is selected afterwards. What `make`
    /// or a lack of memory throws leaves the rows as they were.
    void Insert(int row, int count, const Maker& make);
    /// Removes the rows from `first` to before `last`. Does not fail.
    void Erase(int first, int last);

    void Select(int row, bool selected);
    bool IsSelected(int row) const { return m_selectedCount > 0 && At(row).m_isSelected; }
    int SelectedCount() const { return m_selectedCount; }
    /// The first selected row from `row` on, or -1. Blocks without one are stepped over whole.
    int FindSelected(int row) const;

private:
    struct Block {
        RowRun rows;
        int selectedCount = 0;
    };

    PrefixSums::Place PlaceOf(int row) const {
        const int offset = row - m_found.start;
        const bool isFound =
            m_found.block >= 0 && offset >= 0 && offset < m_blocks[m_found.block].rows.Size();
        return isFound ? PrefixSums::Place{m_found.block, offset} : FindPlace(row);
    }
    PrefixSums::Place FindPlace(int row) const;
    PrefixSums::Place PlaceToInsert(int row) const;
    void InsertIntoBlock(PrefixSums::Place place, int count, const Maker& make);
    void InsertBlocks(PrefixSums::Place place, int count, const Maker& make);
    /// Changes nothing when it fails. Empty blocks do no harm.
    void AddBlocks(int at, std::vector<Block> added);
    /// Returns the block that begins with what was at `place`.
    int SplitAt(PrefixSums::Place place);
    static int CountSelected(const Block& block, int first, int last);
    void EraseInBlock(int block, int first, int last);
    /// After rows of the blocks from `first` to `last` were erased: drops empty blocks and joins small ones.
    void Tidy(int first, int last);
    /// Whether the block and the next one are so small that one does.
    bool CanJoin(int block) const;
    void Join(int block);
    void JoinSmall(int block);
    void RebuildIndex();

    std::vector<Block> m_blocks;
    PrefixSums m_index;
    /// The block found last and its first row: a walk over rows finds most of them there.
    struct FoundBlock {
        int block = -1;
        int start = 0;
    };
    mutable FoundBlock m_found;
    int m_size = 0;
    int m_selectedCount = 0;
};

} // namespace korvel::internal
