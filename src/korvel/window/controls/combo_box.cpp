#include "korvel/window/controls/combo_box.h"

#include <algorithm>

namespace korvel {

namespace {

WPARAM Number(int value) {
    return static_cast<WPARAM>(value);
}

LPARAM Address(const CString& text) {
    return reinterpret_cast<LPARAM>(text.c_str());
}

} // namespace

bool CComboBox::Create(UINT style, const CRect& rect, CWnd* parent, int id) {
    return CreateEx(0, "COMBOBOX", "", style, rect, parent, id);
}

int CComboBox::GetCount() const {
    return static_cast<int>(SendMessageA(CB_GETCOUNT));
}

int CComboBox::AddString(const CString& text) {
    return static_cast<int>(SendMessageA(CB_ADDSTRING, 0, Address(text)));
}

int CComboBox::InsertString(int index, const CString& text) {
    return static_cast<int>(SendMessageA(CB_INSERTSTRING, Number(index), Address(text)));
}

int CComboBox::DeleteString(int index) {
    return static_cast<int>(SendMessageA(CB_DELETESTRING, Number(index)));
}

void CComboBox::ResetContent() {
    SendMessageA(CB_RESETCONTENT);
}

int CComboBox::GetCurSel() const {
    return static_cast<int>(SendMessageA(CB_GETCURSEL));
}

int CComboBox::SetCurSel(int index) {
    return static_cast<int>(SendMessageA(CB_SETCURSEL, Number(index)));
}

int CComboBox::FindString(int after, const CString& text) const {
    return static_cast<int>(SendMessageA(CB_FINDSTRING, Number(after), Address(text)));
}

int CComboBox::FindStringExact(int after, const CString& text) const {
    return static_cast<int>(SendMessageA(CB_FINDSTRINGEXACT, Number(after), Address(text)));
}

int CComboBox::SelectString(int after, const CString& text) {
    return static_cast<int>(SendMessageA(CB_SELECTSTRING, Number(after), Address(text)));
}

CString CComboBox::GetLBText(int index) const {
    CString text(static_cast<std::size_t>(std::max(GetLBTextLen(index), 0)), '\0');
    if (!text.empty())
        SendMessageA(CB_GETLBTEXT, Number(index), reinterpret_cast<LPARAM>(text.data()));
    return text;
}

int CComboBox::GetLBTextLen(int index) const {
    return static_cast<int>(SendMessageA(CB_GETLBTEXTLEN, Number(index)));
}

LPARAM CComboBox::GetItemData(int index) const {
    return SendMessageA(CB_GETITEMDATA, Number(index));
}

int CComboBox::SetItemData(int index, LPARAM data) {
    return static_cast<int>(SendMessageA(CB_SETITEMDATA, Number(index), data));
}

bool CComboBox::LimitText(int bytes) {
    return SendMessageA(CB_LIMITTEXT, Number(std::max(bytes, 0))) == 1;
}

LPARAM CComboBox::GetEditSel() const {
    return SendMessageA(CB_GETEDITSEL);
}

bool CComboBox::SetEditSel(int start, int end) {
    return SendMessageA(CB_SETEDITSEL, 0, MAKELPARAM(start, end)) == 1;
}

void CComboBox::ShowDropDown(bool show) {
    SendMessageA(CB_SHOWDROPDOWN, show);
}

bool CComboBox::GetDroppedState() const {
    return SendMessageA(CB_GETDROPPEDSTATE) != 0;
}

} // namespace korvel
