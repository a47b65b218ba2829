#pragma once

#include "korvel/grid/child_list.h"
#include "korvel/grid/item_info.h"

#include <memory>

namespace korvel::internal {
struct ChildBlock;
}

namespace korvel::grid {

/// A node of a tree grid. Its row, and the number of rows that its subtree takes, are found on the way to
/// the root: nothing is renumbered when rows come and go.
///
///     CTreeItem* group = grid.AddRootNode(nullptr, nullptr);
///     CTreeItem* member = grid.AddChildNode(group, nullptr, 1, nullptr);
///     member->row();                      // -1: the group is collapsed
///     grid.ExpandNode(group, group->row());
///     member->row();                      // 1
///
/// The node owns its children with their infos. It does not own its own info: who deletes a node deletes
/// `info` first.
class KORVEL_API CTreeItem {
public:
    /// A node without a place; takes no ownership of `info`.
    explicit CTreeItem(CItemInfo* info);
    virtual ~CTreeItem();
    CTreeItem(const CTreeItem&) = delete;
    CTreeItem& operator=(const CTreeItem&) = delete;

    /// The unseen node above all roots of a grid: always expanded, at depth 0, without a row.
    static std::unique_ptr<CTreeItem> MakeForest();

    CItemInfo* info = nullptr;
    /// -1: the node can expand only when it has children; any other value: also without.
    int expandMarker = -1;

    const ChildList& children() const { return m_children; }
    /// Null for a root.
    CTreeItem* parent() const;
    bool collapsed() const { return m_collapsed; }
    /// Depth: 1 for a root, -1 for a node without a place.
    int indent() const { return m_indent; }
    /// The list row of the node; -1 while an ancestor is collapsed and for a node without a place.
    int row() const;

    bool CanExpand() const { return expandMarker != -1 || !m_children.empty(); }
    /// Rows that the node and what it shows below take, when the node itself is shown.
    int rows() const;
    bool IsLastChild() const;
    /// The unseen node above all when the node has a place in a grid, else the topmost ancestor.
    const CTreeItem* Top() const;

    // What follows changes the tree alone; the rows of the list are the grid's.

    /// Takes a node that has no place as a child; a `position` outside 0 to size() appends. Owned from then
    /// on.
    void InsertChild(int position, CTreeItem* child);
    /// Gives a child back; the caller owns it.
    void RemoveChild(CTreeItem* child);
    void SetCollapsed(bool collapsed);
    /// Collapses the expanded nodes below; the node itself stays as it is.
    void CollapseBelow();

private:
    friend class korvel::ChildList;
    friend struct internal::ChildBlock;

    internal::FamilyTally GetTally() const;
    /// Has the ancestors count the node anew, for which they counted `former`.
    void CountAnew(internal::FamilyTally former);
    /// Gives a node without a place one; the depth of all below follows.
    void MoveUnder(CTreeItem* newParent);
    // Depths begin at 0 below a node without a place, too: there the node has a parent.
    bool IsForest() const { return m_indent == 0 && !m_parent; }

    CTreeItem* m_parent = nullptr;
    internal::ChildBlock* m_run = nullptr; // the run of siblings that it is in
    ChildList m_children;
    int m_indent = -1;
    bool m_collapsed = true;
};

/// Deletes a node with its info.
struct NodeDeleter {
    void operator()(CTreeItem* node) const {
        delete node->info;
        delete node;
    }
};
using NodePtr = std::unique_ptr<CTreeItem, NodeDeleter>;

} // namespace korvel::grid
