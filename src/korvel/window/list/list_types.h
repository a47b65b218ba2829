#pragma once

#include "korvel/window/core/window.h"

#include <functional>
#include <vector>

/// What a list and its parent exchange.
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

/// LVN_BEGINLABELEDIT (return 1 to refuse) and LVN_ENDLABELEDIT (return 1 to take the text).
struct NMLVDISPINFO {
    NMHDR hdr;
    int iItem = -1;
    int iSubItem = 0;
    const char* pszText = nullptr; // null: the edit was cancelled
    LPARAM lParam = 0;
};

/// What LVM_INSERTITEM, LVM_GETITEM, LVM_SETITEM, LVM_GETITEMTEXT and LVM_SETITEMTEXT carry (lParam), and
/// LVM_SETITEMSTATE, which reads the states alone: the bits of `stateMask` become those of `state` (LVIS_*).
struct LVITEM {
    UINT mask = 0; // LVIF_*: the fields that count
    int iItem = 0;
    int iSubItem = 0;
    UINT state = 0;
    UINT stateMask = 0;
    char* pszText = nullptr; // only read by the messages that set
    int cchTextMax = 0;      // bytes at pszText, for the messages that get
    int iImage = -1;
    LPARAM lParam = 0;
    int iIndent = 0;
};

/// What LVM_INSERTCOLUMN and LVM_SETCOLUMN carry (lParam).
struct LVCOLUMN {
    UINT mask = 0; // LVCF_*
    int fmt = LVCFMT_LEFT;
    int cx = 0;              // LVM_SETCOLUMN: whatever CListCtrl::SetColumnWidth takes
    char* pszText = nullptr; // only read
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

/// Gives the text of a cell whose row stores none: see CListCtrl::SetTextSource.
using ListTextSource = std::function<CString(LPARAM data, int column)>;

} // namespace korvel
