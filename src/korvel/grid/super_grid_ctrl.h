#pragma once

#include "korvel/grid/tree_item.h"
#include "korvel/window/list/list_ctrl.h"

#include <memory>

namespace korvel {

class CListEditCtrl;

namespace internal {
class GridRowList;
class RowDrag;
class RowKeys;
class RowMouse;
class RowsWatch;
class TreeRows;
} // namespace internal

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
/// Rows store no texts; they show those of their node's CItemInfo at the time. Operations tolerate null
/// nodes, hidden nodes and a missing window: what can be done to the tree is done. Only for the thread of
/// the windows.
///
/// Whatever the grid calls (an overridden operation, a handler of its notices, a painter) may change the
/// tree, destroy the window or throw: the rows are those of the tree afterwards. It must not delete the
/// grid's object.
class KORVEL_API CSuperGridCtrl : public CListCtrl {
public:
    using CTreeItem = grid::CTreeItem;
    using CItemInfo = korvel::CItemInfo;

    CSuperGridCtrl();
    ~CSuperGridCtrl() override;

    // The tree. `position`: null or -1 appends, 0 inserts before the first sibling, n > 0 after the sibling
    // at n - 1. `info` is taken over; null makes a blank one.
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
    /// Shows the children, all collapsed. Returns the last row that came, or `row` when none did.
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

    /// The focused column.
    int GetCurrentColumn() const { return currentColumn; }

    // What derived grids decide, in the order that they know.
    void DrawItem(DRAWITEMSTRUCT* item) override;
    /// A copy for a copied node, given to the caller; null: a blank one is made.
    virtual CItemInfo* CopyItemInfo(const CItemInfo* source);
    /// Index in the image list of the icon of a row.
    virtual int GetIcon(const CTreeItem* node);
    virtual COLORREF GetFocusCellColor();
    /// A text was typed into a cell: stores it in the node.
    virtual void OnCellTextChanged(CTreeItem* node, NMLVDISPINFO* record);
    /// A press in a row that met neither sign nor check box.
    virtual void OnControlLButtonDown(UINT flags, CPoint point, LVHITTESTINFO& hit);
    /// What follows the pointer while a row is dragged; null starts no drag.
    virtual std::unique_ptr<CImageList> CreateRowDragImage(int row);
    // False stops the action, and the tree stays as it was.
    virtual BOOL OnNodeExpanding(CTreeItem* node, int row);
    virtual BOOL OnNodeExpanded(CTreeItem* node, int row);
    virtual BOOL OnNodeCollapsing(CTreeItem* node);
    virtual BOOL OnNodeCollapsed(CTreeItem* node);
    virtual BOOL OnRowDeleting(CTreeItem* node, int row);
    virtual BOOL OnExpandAllKey(CTreeItem* node, int row);
    virtual BOOL OnCollapseKey(CTreeItem* node, int row);
    virtual BOOL OnExpandKey(CTreeItem* node, int row);
    /// The Return key: true passes it on; false starts the edit of the current cell.
    virtual BOOL OnVkReturn();
    virtual BOOL OnRowClick(LVHITTESTINFO& hit);
    /// How the box of a ctCheck cell is drawn: DFCS_*.
    virtual UINT GetCheckState(const CTreeItem* node, int column);
    virtual int Reserved18();
    /// Called after the drawing of each cell.
    virtual void DrawSpezialItem(CDC& dc, const CTreeItem* node, int column, const CRect& cell);
    virtual void DrawThemedFrame(CDC& dc, const CRect& rect, UINT type, UINT state);

    bool PreTranslateMessage(MSG& message) override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    /// Switches redraw off for its lifetime; may be nested.
    class RedrawPause {
    public:
        explicit RedrawPause(CSuperGridCtrl& grid);
        ~RedrawPause();
        RedrawPause(const RedrawPause&) = delete;
        RedrawPause& operator=(const RedrawPause&) = delete;

    private:
        CSuperGridCtrl& m_grid;
    };

    bool OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;

    // The halves of AddRootNode and AddChildNode: who files a node does so between them, before the host
    // can hear of it.
    /// Puts a node into the tree, for a null `parent` as a root. `position`: -1 appends.
    CTreeItem* LinkNode(CTreeItem* parent, CItemInfo* info, int position);
    /// Inserts the rows of a node that was linked. The host may remove it meanwhile.
    void ShowNode(const CTreeItem* node);

    /// Removes a node of this grid with its info, its rows and all below.
    void TakeNode(CTreeItem* node);
    /// A node was taken out of the tree with all below; it is about to be deleted. `formerParent`: null for
    /// what was a root, and when the host removed other nodes while it heard of the rows.
    virtual void OnNodeUnlinked(CTreeItem& node, const CTreeItem* formerParent);
    /// To be begun before a call of the host, and looked at after it.
    internal::RowsWatch WatchRows() const;
    void DeleteAllNodes();
    /// Repaints one row, at once when it is on screen.
    void RedrawNode(const CTreeItem* node);
    /// Scrolls sideways until the column is seen.
    void ShowColumn(int column);
    void SelectRow(int row);

    int iconWidth = 16;
    int iconHeight = 16;
    int currentColumn = 0;
    const bool m_allowDrag = true;
    const bool m_allowDeleteKey = true;

private:
    friend class internal::GridRowList;
    friend class internal::RowDrag;
    friend class internal::RowKeys;
    friend class internal::RowMouse;

    bool HasCheckBoxes() const;

    std::unique_ptr<internal::GridRowList> m_rowList;
    std::unique_ptr<internal::TreeRows> m_tree;
    std::unique_ptr<internal::RowDrag> m_drag;
    std::unique_ptr<CListEditCtrl> m_cellEdit;
    int m_redrawPauses = 0;
};

} // namespace korvel
