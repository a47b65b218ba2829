#pragma once

#include "korvel/window/base/prefix_sums.h"

#include <memory>
#include <span>
#include <vector>

namespace korvel {

class ComboTreeItem;

/// The items of a tree that have a row, in order. They lie in blocks and know their block: the row of an item
/// is found without a walk over the rows, and a range comes and goes at the cost of its own length.
///
///     rows.Insert(0, items);
///     rows.RowOf(*items[7]);   // 7
///     rows.Erase(0, 3);
///     rows.RowOf(*items[7]);   // 4
class ComboRows {
public:
    struct Block;

    ComboRows();
    ~ComboRows();
    ComboRows(const ComboRows&) = delete;
    ComboRows& operator=(const ComboRows&) = delete;

    int Size() const { return m_size; }
    bool Has(int row) const { return row >= 0 && row < m_size; }
    ComboTreeItem* At(int row) const;
    /// The item must have a row.
    int RowOf(const ComboTreeItem& item) const;

    /// In front of row `row`; Size() appends.
    void Insert(int row, std::span<ComboTreeItem* const> items);
    /// Takes the rows from `first` to before `last` away from their items.
    void Erase(int first, int last);

private:
    void Replace(int block, std::span<ComboTreeItem* const> items);
    void EraseInBlock(internal::PrefixSums::Place place, int count);
    void JoinSmall(int block);
    void RebuildIndex();

    std::vector<std::unique_ptr<Block>> m_blocks;
    internal::PrefixSums m_index;
    int m_size = 0;
};

} // namespace korvel
