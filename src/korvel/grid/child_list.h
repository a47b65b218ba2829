#pragma once

#include "korvel/platform/export.h"

#include <cstddef>
#include <iterator>
#include <memory>
#include <span>

namespace korvel {

namespace grid {
class CTreeItem;
}

namespace internal {
struct ChildBlock;
struct FamilyTally;
class TreeWalk;
} // namespace internal

/// The children of one node in display order.
///
///     for (CTreeItem* root : grid.rootItems())
///         grid.CollapseNode(root);
///     group->children()[2];      // the third child
///
/// A child at a position is found in logarithmic time, the next one in constant time. Iterators are good
/// until the family changes.
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

        reference operator*() const { return *m_item; }
        Iterator& operator++() {
            if (++m_item == m_end)
                EnterNextRun();
            return *this;
        }
        Iterator operator++(int) {
            const Iterator former = *this;
            ++*this;
            return former;
        }
        bool operator==(const Iterator&) const = default;

    private:
        friend class ChildList;

        explicit Iterator(const internal::ChildBlock* run) { Enter(run); }
        void Enter(const internal::ChildBlock* run);
        void EnterNextRun();

        const internal::ChildBlock* m_run = nullptr;
        pointer m_item = nullptr;
        pointer m_end = nullptr;
    };

    ChildList();
    ~ChildList();
    ChildList(ChildList&& other) noexcept;
    ChildList& operator=(ChildList&& other) noexcept;

    bool empty() const { return !m_top; }
    int size() const;
    Iterator begin() const;
    Iterator end() const { return {}; }
    /// Only with children.
    grid::CTreeItem* front() const;
    grid::CTreeItem* back() const;
    /// `position` from 0 to size() - 1.
    grid::CTreeItem* operator[](int position) const;

private:
    friend class grid::CTreeItem;
    friend class internal::TreeWalk;

    const internal::FamilyTally& GetTally() const;
    /// The first run of siblings; null without children.
    const internal::ChildBlock* FirstRun() const;
    /// Rows of the siblings in front of the child.
    int RowsBefore(const grid::CTreeItem& child) const;

    /// The siblings after a child.
    static Iterator After(const grid::CTreeItem& child);
    /// The child that comes next; in a block in which none has children, all that are left of it. `next` goes
    /// on after them.
    static std::span<grid::CTreeItem* const> TakeRun(Iterator& next);

    /// `position` from 0 to size().
    void Insert(int position, grid::CTreeItem* child);
    void Erase(grid::CTreeItem* child);
    /// Gives the last child back without counting: for a family that goes as a whole.
    grid::CTreeItem* PopBack();
    internal::ChildBlock* MakeRoom(internal::ChildBlock& full, int& place, int position);
    void MakeRoomAbove(internal::ChildBlock& block);
    void Split(internal::ChildBlock& block);
    void Drop(internal::ChildBlock* block);

    std::unique_ptr<internal::ChildBlock> m_top; // null: no children
};

} // namespace korvel
