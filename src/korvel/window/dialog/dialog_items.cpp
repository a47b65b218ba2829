#include "korvel/window/dialog/dialog_items.h"

#include "korvel/window/dialog/dialog_units.h"
#include "korvel/window/display/window_view.h"

namespace korvel {

bool SetDlgItemTextA(HWND dialog, int id, const CString& text) {
    return SetWindowTextA(GetDlgItem(dialog, id), text);
}

CString GetDlgItemTextA(HWND dialog, int id) {
    return GetWindowTextA(GetDlgItem(dialog, id));
}

LRESULT SendDlgItemMessageA(HWND dialog, int id, UINT message, WPARAM wParam, LPARAM lParam) {
    return SendMessageA(GetDlgItem(dialog, id), message, wParam, lParam);
}

bool CheckDlgButton(HWND dialog, int id, int check) {
    const HWND button = GetDlgItem(dialog, id);
    SendMessageA(button, BM_SETCHECK, static_cast<WPARAM>(check), 0);
    return IsWindow(button);
}

int IsDlgButtonChecked(HWND dialog, int id) {
    return static_cast<int>(SendDlgItemMessageA(dialog, id, BM_GETCHECK, 0, 0));
}

bool CheckRadioButton(HWND dialog, int first, int last, int checked) {
    for (const HWND child : view::Children(dialog)) {
        const int id = GetDlgCtrlID(child);
        if (id >= first && id <= last && id != checked)
            SendMessageA(child, BM_SETCHECK, BST_UNCHECKED, 0);
    }
    return CheckDlgButton(dialog, checked, BST_CHECKED);
}

void MapDialogRect(HWND dialog, CRect& rect) {
    if (IsWindow(dialog))
        rect = internal::PixelsOf(rect);
}

} // namespace korvel
