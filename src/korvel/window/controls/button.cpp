#include "korvel/window/controls/button.h"

namespace korvel {

bool CButton::Create(const CString& text, UINT style, const CRect& rect, CWnd* parent, int id) {
    return CreateEx(0, "BUTTON", text.c_str(), style, rect, parent, id);
}

int CButton::GetCheck() const {
    return static_cast<int>(SendMessageA(BM_GETCHECK));
}

void CButton::SetCheck(int check) {
    SendMessageA(BM_SETCHECK, static_cast<WPARAM>(check));
}

void CButton::DrawItem(DRAWITEMSTRUCT*) {}

bool CButton::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    if (message != WM_DRAWITEM)
        return CWnd::OnChildNotify(message, wParam, lParam, result);
    DrawItem(reinterpret_cast<DRAWITEMSTRUCT*>(lParam));
    *result = 1;
    return true;
}

} // namespace korvel
