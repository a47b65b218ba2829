#include "korvel/window/controls/tab_ctrl.h"

namespace korvel {

namespace {

TCITEM TextItem(const CString& text) {
    TCITEM item;
    item.mask = TCIF_TEXT;
    item.pszText = const_cast<char*>(text.c_str());
    return item;
}

LPARAM Address(const void* what) {
    return reinterpret_cast<LPARAM>(what);
}

} // namespace

bool CTabCtrl::Create(UINT style, const CRect& rect, CWnd* parent, int id) {
    return CreateEx(0, "SysTabControl32", "", style, rect, parent, id);
}

int CTabCtrl::InsertItem(int tab, const CString& text, LPARAM data) {
    TCITEM item = TextItem(text);
    item.mask |= TCIF_PARAM;
    item.lParam = data;
    return static_cast<int>(SendMessageA(TCM_INSERTITEM, static_cast<WPARAM>(tab), Address(&item)));
}

bool CTabCtrl::DeleteItem(int tab) {
    return SendMessageA(TCM_DELETEITEM, static_cast<WPARAM>(tab)) != 0;
}

bool CTabCtrl::DeleteAllItems() {
    return SendMessageA(TCM_DELETEALLITEMS) != 0;
}

int CTabCtrl::GetItemCount() const {
    return static_cast<int>(SendMessageA(TCM_GETITEMCOUNT));
}

CString CTabCtrl::GetItemText(int tab) const {
    constexpr std::size_t Longest = 1024; // far more than a tab can show
    CString text(Longest, '\0');
    TCITEM item;
    item.mask = TCIF_TEXT;
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(Longest);
    if (SendMessageA(TCM_GETITEM, static_cast<WPARAM>(tab), Address(&item)) == 0)
        return {};
    return text.c_str();
}

bool CTabCtrl::SetItemText(int tab, const CString& text) {
    const TCITEM item = TextItem(text);
    return SendMessageA(TCM_SETITEM, static_cast<WPARAM>(tab), Address(&item)) != 0;
}

LPARAM CTabCtrl::GetItemData(int tab) const {
    TCITEM item;
    item.mask = TCIF_PARAM;
    SendMessageA(TCM_GETITEM, static_cast<WPARAM>(tab), Address(&item));
    return item.lParam;
}

int CTabCtrl::GetCurSel() const {
    return static_cast<int>(SendMessageA(TCM_GETCURSEL));
}

int CTabCtrl::SetCurSel(int tab) {
    return static_cast<int>(SendMessageA(TCM_SETCURSEL, static_cast<WPARAM>(tab)));
}

void CTabCtrl::AdjustRect(bool larger, CRect& rect) const {
    SendMessageA(TCM_ADJUSTRECT, larger, Address(&rect));
}

bool CTabCtrl::GetItemRect(int tab, CRect& rect) const {
    return SendMessageA(TCM_GETITEMRECT, static_cast<WPARAM>(tab), Address(&rect)) != 0;
}

} // namespace korvel
