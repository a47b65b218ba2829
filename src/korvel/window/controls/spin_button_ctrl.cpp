#include "korvel/window/controls/spin_button_ctrl.h"

namespace korvel {

bool CSpinButtonCtrl::Create(UINT style, const CRect& rect, CWnd* parent, int id) {
    return CreateEx(0, "msctls_updown32", "", style, rect, parent, id);
}

HWND CSpinButtonCtrl::SetBuddy(HWND buddy) {
    return reinterpret_cast<HWND>(SendMessageA(UDM_SETBUDDY, reinterpret_cast<WPARAM>(buddy)));
}

HWND CSpinButtonCtrl::GetBuddy() const {
    return reinterpret_cast<HWND>(SendMessageA(UDM_GETBUDDY));
}

void CSpinButtonCtrl::SetRange32(int lower, int upper) {
    SendMessageA(UDM_SETRANGE32, static_cast<WPARAM>(lower), upper);
}

void CSpinButtonCtrl::GetRange32(int& lower, int& upper) const {
    lower = upper = 0;
    SendMessageA(UDM_GETRANGE32, reinterpret_cast<WPARAM>(&lower), reinterpret_cast<LPARAM>(&upper));
}

int CSpinButtonCtrl::SetPos32(int position) {
    return static_cast<int>(SendMessageA(UDM_SETPOS32, 0, position));
}

int CSpinButtonCtrl::GetPos32(bool* error) const {
    BOOL failed = 0;
    const auto position = static_cast<int>(SendMessageA(UDM_GETPOS32, 0, reinterpret_cast<LPARAM>(&failed)));
    if (error)
        *error = failed != 0;
    return position;
}

} // namespace korvel
