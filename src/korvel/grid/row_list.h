#pragma once

#include "korvel/grid/node_runs.h"

#include <functional>

namespace korvel::internal {

/// The list that shows the rows of a TreeRows, and the grid around it. Every operation but the first three
/// may lead to the host, who may change the tree meanwhile, or throw.
class RowList {
public:
    using CTreeItem = grid::CTreeItem;

    /// -1: there is no list yet, or no more.
    virtual int Count() const = 0;
    /// The node of a row; null for a row that has none, or that does not exist.
    virtual CTreeItem* At(int row) const = 0;
    /// Gives a row to another node, to none with null. No one hears of it.
    virtual void Rewrite(int row, CTreeItem* node) = 0;

    /// Inserts a row for each node, in order.
    virtual void Insert(int row, const NodeRuns& runs) = 0;
    /// Makes the check marks of the rows from `first` to before `last` those of their nodes.
    virtual void Mark(int first, int last) = 0;
    /// Removes the rows from `first` to before `last`, from the last one up: each is told to the host, and
    /// is gone before the next one is told.
    virtual void Remove(int first, int last) = 0;
    /// The same at once, without a notice for each. A label edit in one of them is cancelled, which the host
    /// hears as it does of a new size of the list.
    virtual void RemoveQuietly(int first, int last) = 0;
    virtual void RemoveAll() = 0;
    /// Repaints a row; none for -1.
    virtual void Redraw(int row) = 0;
    /// Makes a change of many rows, which are painted afterwards.
    virtual void ChangeMany(const std::function<void()>& change) = 0;

    /// A copy of an info for a copied node; null: a blank one is made.
    virtual CItemInfo* CopyInfo(const CItemInfo* source) = 0;
    /// A node was taken out of the tree with all below, and is about to be deleted. `formerParent`: null for
    /// what was a root.
    virtual void OnUnlinked(CTreeItem& node, const CTreeItem* formerParent) = 0;

protected:
    ~RowList() = default;
};

} // namespace korvel::internal
