#pragma once

#include "korvel/grid/row_list.h"

namespace korvel::internal {

class TreeRows;

/// Copies nodes of a tree with all below to other places in it. The infos are copied by its list, and the
/// host may do anything meanwhile.
class BranchCopies {
public:
    using CTreeItem = grid::CTreeItem;

    /// Both must outlive it; `list` shows the rows of `tree`.
    BranchCopies(TreeRows& tree, RowList& list) : m_tree(tree), m_list(list) {}

    /// Appends a collapsed copy of a node and all below. False, and no change, for a target within the
    /// source, and when the host removes nodes while their infos are copied.
    bool CopyUnder(CTreeItem* target, const CTreeItem* source);
    /// Makes such a copy and removes the node: it is moved also when the host throws or removes others while
    /// the copy is shown. Does nothing where CopyUnder makes no copy.
    void MoveUnder(CTreeItem* target, CTreeItem* node);
    /// Copies all below a node to below another one, which is collapsed.
    void CopyBelow(CTreeItem* target, const CTreeItem* source);

private:
    grid::NodePtr CopyInfoOf(const CTreeItem& source);
    /// Copies all below a node to below one without a place. False when nodes of the tree went meanwhile.
    bool CopyChildren(CTreeItem& target, const CTreeItem& source);
    /// A copy without rows; null where CopyUnder makes none.
    CTreeItem* Link(CTreeItem* target, const CTreeItem* source);

    TreeRows& m_tree;
    RowList& m_list;
};

} // namespace korvel::internal
