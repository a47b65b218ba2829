#include "korvel/editors/grid_ctrl_combo_box_button.h"

namespace korvel {

void CGridCtrlComboBoxButton::DrawItem(DRAWITEMSTRUCT* item) {
    UINT state = DFCS_SCROLLDOWN;
    if ((item->itemState & ODS_SELECTED) != 0)
        state |= DFCS_PUSHED;
    if ((item->itemState & ODS_DISABLED) != 0)
        state |= DFCS_INACTIVE;
    item->hDC->DrawFrameControl(item->rcItem, DFC_SCROLL, state);
}

LRESULT CGridCtrlComboBoxButton::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    const LRESULT result = CButton::WindowProc(message, wParam, lParam);
    return message == WM_GETDLGCODE ? result | DLGC_WANTARROWS | DLGC_WANTALLKEYS | DLGC_WANTCHARS : result;
}

} // namespace korvel
