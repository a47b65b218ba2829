#pragma once

#include "korvel/window/base/dc.h"
#include "korvel/window/list/header_ctrl.h"

#include <functional>

namespace korvel {

struct LVHITTESTINFO {
    CPoint pt;
    UINT flags = 0; // LVHT_*
    int iItem = -1;
    int iSubItem = -1;
};

struct NMLISTVIEW {
    NMHDR hdr;
    int iItem = -1;
    int iSubItem = 0;
    UINT uNewState = 0;
    UINT uOldState = 0;
    UINT uChanged = 0; // LVIF_*
    CPoint ptAction;
    LPARAM lParam = 0;
};

struct NMLVKEYDOWN {
    NMHDR hdr;
    UINT wVKey = 0;
    UINT flags = 0;
};

/// LVN_BEGINLABELEDIT (answer 1 refuses) and LVN_ENDLABELEDIT (answer 1 takes the text).
struct NMLVDISPINFO {
    NMHDR hdr;
    int iItem = -1;
    int iSubItem = 0;
    const char* pszText = nullptr; // null: the edit was cancelled
    LPARAM lParam = 0;
};

/// What LVM_SETITEMSTATE carries (lParam): the bits of `stateMask` become those of `state` (LVIS_*).
struct LVITEMSTATE {
    UINT state = 0;
    UINT stateMask = 0;
};

/// What a row is made of. A row with many columns takes its further texts in `subItems`
/// (entry i belongs to column i + 1).
struct ListRow {
    CString text;
    std::vector<CString> subItems;
    LPARAM data = 0;
    int indent = 0;
    int image = -1;
    bool checked = false;
};

/// The report-style list: class "SysListView32".
///
///     CListCtrl list;
///     list.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, {0, 0, 300, 200}, &frame, 105);
///     list.InsertColumn(0, "Name", 120);
///     list.InsertItem(0, "first", -1);      // 0
///     list.InsertItem(-1, "refused", -1);   // -1
///     list.InsertItem(99, "last", -1);      // 1: beyond the end appends
///
/// Rows lie in blocks: inserting or removing rows anywhere costs a walk over the blocks, not over the
/// rows. Texts are asked where the rows are painted: a list whose texts live elsewhere sets a text
/// source and stores none itself.
class KORVEL_API CListCtrl : public CWnd {
public:
    bool Create(UINT style, const CRect& rect, CWnd* parent, int id);

    /// Gives the texts of rows that store none: called for rows that are on screen, measured or asked
    /// for by GetItemText. Set before rows are inserted.
    using TextSource = std::function<CString(LPARAM data, int column)>;
    void SetTextSource(TextSource source);

    // Rows.
    int GetItemCount() const;
    /// Answers the row, or -1 for a row below 0; beyond the end appends.
    int InsertItem(int row, const CString& text, int image = -1);
    int InsertRow(int row, const ListRow& content);
    /// Inserts `count` rows with `data[i]` and `indent` in one step. With a text source the rows store
    /// nothing else. Answers `row`, or -1 when refused.
    int InsertRows(int row, const LPARAM* data, int count, int indent);
    bool DeleteItem(int row);
    /// Removes the rows from `first` to before `last`; notifies like single removals, from the last row up.
    bool DeleteRows(int first, int last);
    /// The same at once, and nobody is told: for a list whose rows follow a model, which a handler would find
    /// without the rows that are still there.
    bool DeleteRowsQuietly(int first, int last);
    bool DeleteAllItems();
    LPARAM GetItemData(int row) const;
    bool SetItemData(int row, LPARAM data);
    int GetItemIndent(int row) const;
    bool SetItemIndent(int row, int indent);
    CString GetItemText(int row, int column) const;
    bool SetItemText(int row, int column, const CString& text);
    int GetItemImage(int row) const;
    bool SetItemImage(int row, int image);
    bool GetCheck(int row) const;
    bool SetCheck(int row, bool check);

    // Selection and focus.
    UINT GetItemState(int row, UINT mask) const;
    bool SetItemState(int row, UINT state, UINT mask);
    /// The first row behind `row` (-1: from the start) with all of `flags` (LVNI_*), or -1.
    int GetNextItem(int row, UINT flags) const;
    int GetSelectionMark() const;
    void SetSelectionMark(int row);

    // Columns.
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
    /// LVIR_BOUNDS of column 0 is the whole row, as everywhere on the platform; LVIR_LABEL is the cell.
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
