#pragma once

#include "korvel/window/base/prefix_sums.h"

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

namespace korvel {
class ComboTreeItem;
}

namespace korvel::internal {

class ComboRows;

/// Neighbouring rows that are kept together.
struct ComboRowBlock {
    static constexpr std::size_t LargestSize = 256;

    ComboRowBlock() { items.reserve(LargestSize); } // so that rows move between blocks without memory

    const ComboRows* owner = nullptr;
    int index = 0; // among the blocks
    std::vector<ComboTreeItem*> items;
};

/// The items of a tree that have a row, in order. They are kept in blocks and know their block: the row of an
/// item is found without a walk over the rows, and a range is inserted or erased at the cost of its length.
///
/// RowBlocks, which keeps the rows of a list control, does not serve: it moves records to other blocks, and
/// an item would have to be told each time.
///
///     rows.Insert(0, items);
///     rows.RowOf(*items[7]);   // 7
///     rows.Erase(0, 3);
///     rows.RowOf(*items[7]);   // 4
class ComboRows {
public:
    ComboRows() = default;
    ComboRows(const ComboRows&) = delete;
    ComboRows& operator=(const ComboRows&) = delete;

    int Size() const { return m_size; }
    /// Null for no such row.
    ComboTreeItem* At(int row) const;
    /// The item must have a row.
    int RowOf(const ComboTreeItem& item) const;

    /// Before row `row`; Size() appends. When memory ends, nothing has changed.
    void Insert(int row, std::span<ComboTreeItem* const> items);
    /// Takes the rows from `first` to before `last` away from their items. Allocates nothing.
    void Erase(int first, int last);

private:
    using Blocks = std::vector<std::unique_ptr<ComboRowBlock>>;

    PrefixSums::Place PlaceOf(int row) const;
    static Blocks MakeBlocks(std::span<ComboTreeItem* const> items);
    void Replace(int block, std::span<ComboTreeItem* const> items);
    void EraseInBlock(PrefixSums::Place place, int count);
    void JoinSmall(int block);
    void RebuildIndex();

    Blocks m_blocks;
    PrefixSums m_index; // the sizes of the blocks
    int m_size = 0;
};

} // namespace korvel::internal
