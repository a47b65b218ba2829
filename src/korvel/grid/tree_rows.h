#pragma once

#include "korvel/grid/departing_rows.h"
#include "korvel/grid/row_list.h"
#include "korvel/window/base/loss_watch.h"

namespace korvel::internal {

class FirstFailure;

/// The nodes of a tree grid and the rows that show them: what is expanded, collapsed, added, removed and
/// copied, and which rows come and go with it. Knows no window; the rows are those of a RowList.
///
///     TreeRows tree(list);
///     CTreeItem* group = tree.Link(nullptr, std::move(info), -1);
///     tree.Show(group);              // one row more
///     tree.Link(group, nullptr, -1); // none: the group is collapsed
///     tree.Expand(group, 0);         // 1, the last row that came
///
/// The tree changes first, then its rows: whoever hears of a row meets a tree that is whole, may change it,
/// and finds the row of a node by RowOf at any time. Rows that are told of when they leave are in the list
/// until then. When the host throws, the rows are those of the tree all the same.
class TreeRows {
public:
    using CTreeItem = grid::CTreeItem;

    /// `list` must outlive it.
    explicit TreeRows(RowList& list);

    const ChildList& Roots() const { return m_forest->children(); }
    LossWatch Watch() const { return LossWatch(m_removals); }
    /// The row of a node in the list; -1 for a node that is not shown or of another tree.
    int RowOf(const CTreeItem* node) const;
    /// The node of a row; null for a row that does not exist, or whose node was removed.
    CTreeItem* NodeAt(int row) const;

    // A node is added in two steps: who files it does so between them.
    /// Null makes a blank info. Without `parent` a root; a `position` outside the siblings appends.
    CTreeItem* Link(CTreeItem* parent, std::unique_ptr<CItemInfo> info, int position);
    /// False when the host has removed the node meanwhile.
    bool Show(const CTreeItem* node);
    /// Removes a node of this tree with all below and with its rows. It is gone also when the host throws.
    void Remove(CTreeItem* node);
    /// The same, but for the rows: they stay, without node, until the caller removes them or rebuilds. False
    /// for a node of another tree.
    bool Unlink(CTreeItem* node);
    void Clear();

    /// Shows the children, all collapsed. Returns the last row that came, `row` when none did, or -1 for a
    /// node that is not shown.
    int Expand(CTreeItem* node, int row);
    /// Expands a node and every family below, for null every family. `scrollRow` (may be null) becomes the
    /// last row of the last family.
    void ExpandAll(CTreeItem* node, int* scrollRow);
    void Collapse(CTreeItem* node);
    void CollapseAll();
    /// Collapses a node and all below, and removes as many rows as that hides from `row` on.
    void Hide(CTreeItem* node, int row);

    /// Brings the list in line with the tree; rows that are right already stay. While rows leave, the list
    /// is in line but for them, and this does nothing.
    void Rebuild();
    /// The same, only when the list does not have as many rows as the tree shows, or has rows of removed
    /// nodes.
    void RebuildIfNeeded();
    /// Rewrites the rows of what a node shows from a row on; returns the row after.
    int RebuildFrom(CTreeItem* node, int row);

    /// Appends a collapsed copy of a node and all below. False, and no change, for a target within the
    /// source, and when the host removes nodes while their infos are copied.
    bool CopyUnder(CTreeItem* target, const CTreeItem* source);
    /// Makes such a copy and removes the node: it is moved also when the host throws or removes others while
    /// the copy is shown. Does nothing where CopyUnder makes no copy.
    void MoveUnder(CTreeItem* target, CTreeItem* node);
    /// Copies all below a node to below another one, which is collapsed.
    void CopyBelow(CTreeItem* target, const CTreeItem* source);

private:
    using Nodes = std::vector<CTreeItem*>;
    using NodePtr = grid::NodePtr;
    /// Says whether a node is still in the tree. Lives on the stack: of several, the one made last dies first.
    class NodeWatch;

    bool Has(const CTreeItem* node) const { return node && node->Top() == m_forest.get(); }
    bool IsListed(const CTreeItem& node) const;
    int ShownCount() const { return m_forest->rows() - 1; }
    /// To be called before the tree changes.
    void BeginChange() const;
    NodePtr Detach(CTreeItem* node);
    /// To be called when nodes have left the tree, before they are deleted.
    void UpdateWatches();
    /// A copy without rows; null where CopyUnder makes none.
    CTreeItem* LinkCopy(CTreeItem* target, const CTreeItem* source);
    /// Deletes a node that was removed, as soon as no row leads to it.
    void Discard(NodePtr node);
    void DeleteDiscarded();
    int LastRowOf(const CTreeItem& node) const;
    void EndDeparture(FirstFailure& failure);

    void InsertRow(CTreeItem* node);
    void InsertRows(int shownRow, const NodeRuns& runs);
    void RemoveRows(int first, int last);
    int Overwrite(int row, const Nodes& nodes);
    void RebuildAll();
    /// Expands a collapsed node and every family below; returns the last one.
    CTreeItem* OpenAll(CTreeItem& node);

    RowList& m_list;
    std::unique_ptr<CTreeItem> m_forest;
    std::unique_ptr<CTreeItem> m_nextForest; // for a Clear although memory is short
    mutable DepartingRows m_departing;
    NodeWatch* m_watches = nullptr; // the last begun
    unsigned m_removals = 0;
    bool m_isListOutdated = false;    // it may have rows of nodes that were removed
    std::vector<NodePtr> m_discarded; // removed nodes, without infos, to which rows may still lead
};

} // namespace korvel::internal
