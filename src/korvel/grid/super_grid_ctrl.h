#pragma once

#include "korvel/grid/tree_grid_list.h"

#include <memory>

namespace korvel {

/// A tree inside a report list: the tree is the truth, and the list holds one row for each node that is
/// shown, in the order of the tree.
///
///     CSuperGridCtrl grid;
///     grid.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_OWNERDRAWFIXED, rect, &frame, 105);
///     grid.InsertColumn(0, "Name", 120);
///     auto* group = grid.AddRootNode(new CItemInfo, nullptr);
///     grid.AddChildNode(group, new CItemInfo, 1, nullptr);
///     grid.GetItemCount();           // 1: nodes start collapsed
///     grid.ExpandNode(group, 0);     // 1: the last row that came
///     grid.GetItemCount();           // 2
///
/// Rows that come send no LVN_INSERTITEM, as a family of a million would; those that go send LVN_DELETEITEM.
/// Clear and DeleteAllNodes send one LVN_DELETEALLITEMS instead, and what goes after a handler threw sends
/// nothing.
///
/// Rows store no texts; they show those of their node's CItemInfo at the time. Operations tolerate null
/// nodes, hidden nodes and a missing window: what can be done to the tree is done. Only for the thread of
/// the windows.
///
/// Whatever the grid calls (an overridden operation, a handler of its notices, a painter) may change the
/// tree, destroy the window or throw: the rows are those of the tree afterwards. It must not delete the
/// grid's object.
class KORVEL_API CSuperGridCtrl : public TreeGridList {
public:
    CSuperGridCtrl();
    ~CSuperGridCtrl() override;

    // The tree. `position`: null or -1 appends, 0 inserts before the first sibling, n > 0 after the sibling
    // at n - 1. `info` is taken over, also when memory runs out; null makes a blank one. What adds a node
    // returns null when a handler has removed it already.
    const ChildList& rootItems() const;
    CTreeItem* AddRootNode(CItemInfo* info, const int* position);
    /// Null, and `info` stays the caller's, when `parent` is null. `update` is kept for callers; always 1.
    CTreeItem* AddChildNode(CTreeItem* parent, CItemInfo* info, int update, const int* position);
    /// Deletes a node that has a parent, with its info and all below. Leaves the list alone: the caller
    /// removes the rows before, or calls RebuildRows after. Returns 1 for a node of this grid, else 0.
    int RemoveNode(CTreeItem* node);
    /// The same for a root.
    int RemoveRootNode(CTreeItem* node);
    static bool IsNodeInSubtree(const CTreeItem* root, const CTreeItem* candidate);

    // Rows.
    int RowOfNode(const CTreeItem* node) const;
    /// The node of a row; null outside the rows.
    CTreeItem* NodeAtRow(int row) const;
    CTreeItem* GetSelectedNode() const;
    /// Shows the children, all collapsed. Returns the last row that came, `row` when none did, and -1 for
    /// null and for a node that is not shown.
    int ExpandNode(CTreeItem* node, int row);
    void CollapseNode(CTreeItem* node);
    /// Expands the node and every family below it. `scrollRow` (may be null) becomes the last row that
    /// came, and stays as it is when nothing is there to expand.
    void ExpandSubtree(CTreeItem* node, int* scrollRow);
    void ExpandAll();
    void CollapseAll();
    /// Collapses the node and all below, and deletes as many rows as that hides from `row` on. `hidden` is
    /// kept for callers; it changes nothing.
    void HideSubtree(CTreeItem* node, int hidden, int row);
    /// Row numbers are found when they are asked for. Kept for callers that renumber after their changes;
    /// brings the list in line when its rows are not those of the tree.
    void RenumberRows();
    /// Brings the list in line with the tree; rows that are right already stay.
    void RebuildRows();
    /// The same for what a node shows, from a row on. Returns the row after.
    int RebuildFromNode(CTreeItem* node, int row, bool visible);
    /// Repaints the node's row with the texts that its info holds now.
    void RefreshRowTexts(const CTreeItem* node);

    // Copies, always collapsed and made by CopyItemInfo.
    /// Appends a copy of `src` and all below it to `target`. 0 for a null target or source, for a target
    /// within `src`, which would have no end, and when CopyItemInfo removes nodes.
    int CopyNodeUnder(CTreeItem* target, const CTreeItem* src);
    /// Copies all below `src` to below `dest`.
    void CopySubtree(CTreeItem* dest, const CTreeItem* src);

    void DrawItem(DRAWITEMSTRUCT* item) override;
    void OnCellTextChanged(CTreeItem* node, NMLVDISPINFO* record) override;
    std::unique_ptr<CImageList> CreateRowDragImage(int row) override;
    bool PreTranslateMessage(MSG& message) override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    bool OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;

    // The halves of AddRootNode and AddChildNode: who files a node does so between them, before the host
    // can hear of it.
    /// Puts a node into the tree, for a null `parent` as a root. `position`: -1 appends.
    CTreeItem* LinkNode(CTreeItem* parent, std::unique_ptr<CItemInfo> info, int position);
    /// Inserts the rows of a node that was linked. False when the host has removed it meanwhile.
    bool ShowNode(const CTreeItem* node);

    /// Removes a node of this grid with its info, its rows and all below.
    void TakeNode(CTreeItem* node);
    void DeleteAllNodes();

private:
    struct Parts;

    LRESULT Describe(UINT message, WPARAM wParam, LPARAM lParam);

    std::unique_ptr<Parts> m_parts;
};

} // namespace korvel
