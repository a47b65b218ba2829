#pragma once

#include "korvel/window/base/control_messages.h"
#include "korvel/window/core/cwnd.h"

namespace korvel {

/// A tab as TCM_INSERTITEM, TCM_SETITEM and TCM_GETITEM carry it (lParam); `mask` says which fields count.
struct TCITEM {
    UINT mask = 0;           // TCIF_*
    char* pszText = nullptr; // not changed by the first two
    int cchTextMax = 0;      // bytes at pszText, of TCM_GETITEM
    int iImage = -1;
    LPARAM lParam = 0;
};

/// What TCM_HITTEST carries (lParam).
struct TCHITTESTINFO {
    CPoint pt;
    UINT flags = 0;
};

/// Tabs above the room for pages, which are windows of the host: class "SysTabControl32". The first tab that
/// is inserted is the current one.
///
///     tabs.InsertItem(0, "General");
///     tabs.InsertItem(1, "Formats");
///     tabs.SetCurSel(1);                            // 0, the former one; sends nothing
///     CRect page = tabs.GetClientRect();
///     tabs.AdjustRect(false, page);                 // the room for the page
///
/// Another tab that the user takes, by mouse or arrow key, is told to the parent: TCN_SELCHANGING while the
/// former one is still current (return 1 to refuse), then TCN_SELCHANGE.
class KORVEL_API CTabCtrl : public CWnd {
public:
    bool Create(UINT style, const CRect& rect, CWnd* parent, int id);

    /// Beyond the end appends. Returns the number of the tab, -1 for one below 0.
    int InsertItem(int tab, const CString& text, LPARAM data = 0);
    /// Without the current tab none is current.
    bool DeleteItem(int tab);
    bool DeleteAllItems();
    int GetItemCount() const;
    CString GetItemText(int tab) const;
    bool SetItemText(int tab, const CString& text);
    LPARAM GetItemData(int tab) const;

    /// -1: none.
    int GetCurSel() const;
    /// Returns the former one. -1: none is current from now on; beyond the end nothing changes, and the
    /// result is -1.
    int SetCurSel(int tab);
    /// Between the room for the page and the rectangle of the control: `larger` turns the former into the
    /// latter.
    void AdjustRect(bool larger, CRect& rect) const;
    bool GetItemRect(int tab, CRect& rect) const;
};

} // namespace korvel
