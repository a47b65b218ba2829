#pragma once

#include "korvel/grid/tree_item.h"
#include "korvel/window/list/list_ctrl.h"

#include <memory>

namespace korvel {

namespace internal {
class CellKeyboard;
class GridContextMenu;
class GridRowList;
class RowDrag;
class RowKeys;
class RowMouse;
class RowPainter;
class RowReader;
} // namespace internal

/// The list of a tree grid, and what derived grids decide about its rows. The tree comes with CSuperGridCtrl,
/// from which grids derive.
///
///     class Plan : public CSuperGridCtrl {
///         int GetIcon(const CTreeItem* node) override { return node->children().empty() ? 0 : 1; }
///     };
class KORVEL_API TreeGridList : public CListCtrl {
public:
    using CTreeItem = grid::CTreeItem;
    using CItemInfo = korvel::CItemInfo;

    /// The focused column.
    int GetCurrentColumn() const { return currentColumn; }
    bool HasCheckBoxes() const;
    /// Repaints one row, at once when it is on screen.
    void RedrawRow(int row);

    // What derived grids decide, in the order that they know.
    /// A copy for a copied node, given to the caller; null: a blank one is made.
    virtual CItemInfo* CopyItemInfo(const CItemInfo* source);
    /// Index in the image list of the icon of a row.
    virtual int GetIcon(const CTreeItem* node);
    virtual COLORREF GetFocusCellColor();
    /// A text was typed into a cell: stores it in the node.
    virtual void OnCellTextChanged(CTreeItem* node, NMLVDISPINFO* record) = 0;
    /// A press in a row that met neither sign nor check box.
    virtual void OnControlLButtonDown(UINT flags, CPoint point, LVHITTESTINFO& hit);
    /// What follows the pointer while a row is dragged; null starts no drag.
    virtual std::unique_ptr<CImageList> CreateRowDragImage(int row) = 0;
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

protected:
    /// Switches redraw off for its lifetime; may be nested.
    class RedrawPause {
    public:
        explicit RedrawPause(TreeGridList& list);
        ~RedrawPause();
        RedrawPause(const RedrawPause&) = delete;
        RedrawPause& operator=(const RedrawPause&) = delete;

    private:
        TreeGridList& m_list;
    };

    /// A node was taken out of the tree with all below; it is about to be deleted. `formerParent`: null for
    /// what was a root, and when the host removed other nodes while it heard of the rows.
    virtual void OnNodeUnlinked(CTreeItem& node, const CTreeItem* formerParent);
    /// Whether a red frame marks the cell: its text was refused.
    virtual bool IsCellMarked(int row, int column) const;

    bool IsRedrawPaused() const { return m_redrawPauses > 0; }
    void SelectRow(int row);
    /// Scrolls sideways until the column is seen.
    void ShowColumn(int column);

    int iconWidth = 16;
    int iconHeight = 16;
    int currentColumn = 0;
    const bool m_allowDrag = true;
    const bool m_allowDeleteKey = true;

private:
    friend class internal::CellKeyboard;
    friend class internal::GridContextMenu;
    friend class internal::GridRowList;
    friend class internal::RowDrag;
    friend class internal::RowKeys;
    friend class internal::RowMouse;
    friend class internal::RowPainter;
    friend class internal::RowReader;

    int m_redrawPauses = 0;
};

} // namespace korvel
