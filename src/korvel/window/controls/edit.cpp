#include "korvel/window/controls/edit.h"

namespace korvel {

bool CEdit::Create(UINT style, const CRect& rect, CWnd* parent, int id) {
    return CreateEx(0, "EDIT", "", style, rect, parent, id);
}

void CEdit::SetSel(int start, int end) {
    SendMessageA(EM_SETSEL, static_cast<WPARAM>(start), end);
}

void CEdit::GetSel(int& start, int& end) const {
    start = end = 0;
    SendMessageA(EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
}

void CEdit::ReplaceSel(const CString& text) {
    SendMessageA(EM_REPLACESEL, 1, reinterpret_cast<LPARAM>(text.c_str()));
}

void CEdit::LimitText(int bytes) {
    SendMessageA(EM_LIMITTEXT, static_cast<WPARAM>(std::max(bytes, 0)));
}

void CEdit::SetMargins(unsigned left, unsigned right) {
    SendMessageA(EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, static_cast<LPARAM>(MAKEWPARAM(left, right)));
}

unsigned CEdit::GetMargins() const {
    return static_cast<unsigned>(SendMessageA(EM_GETMARGINS));
}

void CEdit::SetReadOnly(bool readOnly) {
    SendMessageA(EM_SETREADONLY, readOnly);
}

bool CEdit::GetModify() const {
    return SendMessageA(EM_GETMODIFY) != 0;
}

void CEdit::SetModify(bool modified) {
    SendMessageA(EM_SETMODIFY, modified);
}

} // namespace korvel
