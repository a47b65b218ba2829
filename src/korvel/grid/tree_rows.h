#pragma once

#include "korvel/grid/departing_rows.h"
#include "korvel/grid/node_watch.h"
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
    using NodePtr = grid::NodePtr;

    /// `list` must outlive it.
    explicit TreeRows(RowList& list);

    const ChildList& Roots() const { return m_forest->children(); }
    LossWatch Watch() const { return LossWatch(m_removals); }
    NodeWatch Watch(const CTreeItem* node) { return NodeWatch(m_lastWatch, node); }
    /// The row of a node in the list; -1 for a node that is not shown or of another tree.
    int RowOf(const CTreeItem* node) const;
    /// The node of a row; null for a row that does not exist, or whose node was removed.
    CTreeItem* NodeAt(int row) const;

    // A node is added in two steps: who files it does so between them.
    /// A node without a place; null makes a blank info.
    static NodePtr MakeNode(std::unique_ptr<CItemInfo> info);
    /// Null makes a blank info. Without `parent` a root; a `position` outside the siblings appends.
    CTreeItem* Link(CTreeItem* parent, std::unique_ptr<CItemInfo> info, int position);
    /// The same for a node without a place.
    CTreeItem* Attach(CTreeItem* parent, NodePtr node, int position);
    /// False when the host has removed the node meanwhile.
    bool Show(const CTreeItem* node);
    /// Appends all children of a node without a place, in one step. `parent` was collapsed before, and so
    /// they get no rows.
    void AttachChildren(CTreeItem& parent, CTreeItem& former);
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

private:
    using Nodes = std::vector<CTreeItem*>;

    bool Has(const CTreeItem* node) const { return node && node->Top() == m_forest.get(); }
    bool IsListed(const CTreeItem& node) const;
    int ShownCount() const { return m_forest->rows() - 1; }
    /// To be called before the tree changes.
    void BeginChange() const;
    NodePtr Detach(CTreeItem* node);
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
    NodeWatch* m_lastWatch = nullptr;
    unsigned m_removals = 0;
    bool m_isListOutdated = false;    // it may have rows of nodes that were removed
    std::vector<NodePtr> m_discarded; // removed nodes, without infos, to which rows may still lead
};

} // namespace korvel::internal
