#pragma once

#include "korvel/platform/export.h"
#include "korvel/window/base/prefix_sums.h"

#include <iterator>
#include <memory>
#include <vector>

namespace korvel {

namespace grid {
class CTreeItem;
}

/// What nodes add up to for the family that they belong to.
struct FamilyTally {
    int rows = 0;     // rows that they take while their parent is expanded
    int open = 0;     // how many are expanded
    int families = 0; // how many have children

    FamilyTally& operator+=(const FamilyTally& other) {
        rows += other.rows;
        open += other.open;
        families += other.families;
        return *this;
    }
    FamilyTally operator-(const FamilyTally& other) const {
        return {rows - other.rows, open - other.open, families - other.families};
    }
    bool operator==(const FamilyTally&) const = default;
};

/// A run of children. Families lie in such blocks, so that inserting and removing anywhere moves few
/// pointers, and whole blocks are stepped over by their tally.
struct ChildBlock {
    std::vector<grid::CTreeItem*> items;
    std::size_t number = 0; // its place among the blocks
    FamilyTally tally;
};

/// The children of one node in display order. Appending takes constant time; a place, the rows in front of
/// a child and the child at a place are found in logarithmic time.
class KORVEL_API ChildList {
public:
    class Iterator {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = grid::CTreeItem*;
        using difference_type = std::ptrdiff_t;
        using pointer = const value_type*;
        using reference = value_type;

        Iterator() = default;
        Iterator(const ChildList* list, std::size_t block) : m_list(list), m_block(block) {}

        reference operator*() const { return m_list->m_blocks[m_block]->items[m_item]; }
        Iterator& operator++();
        Iterator operator++(int);
        bool operator==(const Iterator&) const = default;

    private:
        const ChildList* m_list = nullptr;
        std::size_t m_block = 0;
        std::size_t m_item = 0;
    };

    bool empty() const { return m_blocks.empty(); }
    int size() const { return m_size; }
    Iterator begin() const { return {this, 0}; }
    Iterator end() const { return {this, m_blocks.size()}; }
    /// Only with children.
    grid::CTreeItem* front() const { return m_blocks.front()->items.front(); }
    grid::CTreeItem* back() const { return m_blocks.back()->items.back(); }
    /// `position` from 0 to size() - 1.
    grid::CTreeItem* operator[](int position) const;

    const FamilyTally& GetTally() const { return m_tally; }
    const std::vector<std::unique_ptr<ChildBlock>>& GetBlocks() const { return m_blocks; }
    /// Rows of the siblings in front of the child.
    int RowsBefore(const grid::CTreeItem& child) const;

private:
    friend class grid::CTreeItem;

    /// `position` from 0 to size().
    void Insert(int position, grid::CTreeItem* child);
    void Erase(grid::CTreeItem* child);
    void Adjust(ChildBlock& block, const FamilyTally& change);

    ChildBlock& BlockForInsert(int& position);
    ChildBlock& AddBlock(std::size_t number);
    void Split(ChildBlock& block);
    void RemoveBlock(std::size_t number);
    void Renumber(std::size_t from);
    void MakeSums() const;

    std::vector<std::unique_ptr<ChildBlock>> m_blocks;
    FamilyTally m_tally;
    int m_size = 0;
    // Made when first asked for after the blocks were cut anew.
    mutable bool m_sumsValid = false;
    mutable internal::PrefixSums m_itemSums;
    mutable internal::PrefixSums m_rowSums;
};

} // namespace korvel
