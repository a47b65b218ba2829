#pragma once

#include "korvel/window/core/dc.h"
#include "korvel/window/list/header_ctrl.h"
#include "korvel/window/list/list_types.h"

namespace korvel {

/// The report-style list: class "SysListView32".
///
///     CListCtrl list;
///     list.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, {0, 0, 300, 200}, &frame, 105);
///     list.InsertColumn(0, "Name", 120);
///     list.InsertItem(0, "first", -1);      // 0
///     list.InsertItem(-1, "refused", -1);   // -1
///     list.InsertItem(99, "last", -1);      // 1: beyond the end appends
///
/// Inserting or removing rows anywhere costs no walk over all rows. Texts are read when their rows are
/// painted: a list whose texts are kept elsewhere sets a text source and stores none itself.
class KORVEL_API CListCtrl : public CWnd {
public:
    bool Create(UINT style, const CRect& rect, CWnd* parent, int id);

    /// Gives the texts of rows that store none; called for rows that are painted or measured and by
    /// GetItemText. Set it before rows are inserted.
    using TextSource = ListTextSource;
    void SetTextSource(TextSource source);

    // Rows.
    int GetItemCount() const;
    /// Returns the row, or -1 for a row below 0; beyond the end appends. Sends LVN_INSERTITEM. While there is
    /// a text source, a row of which no text is given stores none.
    int InsertItem(int row, const CString& text, int image = -1);
    int InsertRow(int row, const ListRow& content);
    /// A selected row loses its state first (LVN_ITEMCHANGED with no bit left), then LVN_DELETEITEM is sent,
    /// then it is gone. Focus and mark go to the row that takes its place, or to the new last one; nothing is
    /// selected.
    bool DeleteItem(int row);
    /// Removes the rows from `first` to before `last`; notifies like single removals, from the last row up.
    /// After a handler that throws, the row that it was told of and the rest stay; the first exception goes
    /// to the caller.
    bool DeleteRows(int first, int last);
    /// LVN_DELETEALLITEMS, then LVN_DELETEITEM from the last row to the first unless it returned 1.
    bool DeleteAllItems();
    LPARAM GetItemData(int row) const;
    bool SetItemData(int row, LPARAM data);
    int GetItemIndent(int row) const;
    bool SetItemIndent(int row, int indent);
    CString GetItemText(int row, int column) const;
    /// Sends LVN_ITEMCHANGING (1 refuses) and LVN_ITEMCHANGED of LVIF_TEXT. False: refused, or no such cell.
    bool SetItemText(int row, int column, const CString& text);
    int GetItemImage(int row) const;
    bool SetItemImage(int row, int image);
    bool GetCheck(int row) const;
    bool SetCheck(int row, bool check);
    /// As the space bar does: when the row is selected, all selected rows take its new mark.
    void ToggleCheck(int row);

    // Selection and focus.
    UINT GetItemState(int row, UINT mask) const;
    /// The bits of `mask` become those of `state` (LVIS_*); row -1 means all rows. LVN_ITEMCHANGING is sent
    /// to the row, then to rows that would lose focus or selection. If one returns 1, nothing changes and the
    /// result is false. LVN_ITEMCHANGED is sent in the other order, the row last. A state that a row has
    /// already sends nothing.
    bool SetItemState(int row, UINT state, UINT mask);
    /// The first row after `row` (-1: from the top) with all of `flags` (LVNI_*); with LVNI_FOCUSED the
    /// focused row, unless it is `row`. -1 when there is none or `row` is no row.
    int GetNextItem(int row, UINT flags) const;
    /// Where a range selection begins: the first row that was selected, until another one is clicked or set.
    /// It moves with its row; after a removal the row that took the number has it, or the new last one. -1:
    /// none.
    int GetSelectionMark() const;
    void SetSelectionMark(int row);

    // Columns.
    /// The texts that rows store move along with their columns. But column 0 shows the labels, which stay
    /// where they are: when a column comes or goes at 0, text i of a row stays text i.
    /// A width below 0 is none: the column is 10 pixels wide.
    int InsertColumn(int column, const CString& title, int width, int format = LVCFMT_LEFT);
    bool DeleteColumn(int column);
    int GetColumnCount() const;
    CString GetColumnTitle(int column) const;
    int GetColumnWidth(int column) const;
    /// Pixels, LVSCW_AUTOSIZE or LVSCW_AUTOSIZE_USEHEADER.
    bool SetColumnWidth(int column, int width);
    CHeaderCtrl* GetHeaderCtrl() const;

    // Geometry, in client coordinates of the list.
    int HitTest(CPoint point, UINT* flags = nullptr) const;
    int SubItemHitTest(LVHITTESTINFO* info) const;
    bool GetItemRect(int row, CRect* rect, int part = LVIR_BOUNDS) const;
    /// LVIR_BOUNDS of column 0 is the whole row, as the window model has it; LVIR_LABEL is the cell.
    bool GetSubItemRect(int row, int column, int part, CRect* rect) const;
    int GetTopIndex() const;
    int GetCountPerPage() const;
    int GetRowHeight() const;
    bool EnsureVisible(int row, bool partialOk);
    /// Pixels to the right and down (whole rows).
    void Scroll(CSize size);
    void RedrawItems(int first, int last);

    // Look.
    UINT SetExtendedStyle(UINT style); // LVS_EX_*
    UINT GetExtendedStyle() const;
    /// Not owned.
    void SetImageList(const CImageList* images);
    const CImageList* GetImageList() const;

    /// Called after rows, columns or scrolling may have moved cells: for a control that lies over a cell. It
    /// may change the list. An empty function ends it.
    void SetCellsMovedHook(std::function<void()> hook);

    // Label editing: an edit control over the label of column 0.
    HWND EditLabel(int row);
    HWND GetEditControl() const;
    void CancelEditLabel();

    /// Called for each row to paint with LVS_OWNERDRAWFIXED (the reflected WM_DRAWITEM).
    virtual void DrawItem(DRAWITEMSTRUCT* item);

protected:
    bool OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;
};

} // namespace korvel
