#include "korvel/editors/colored_button.h"

#include "korvel/window/core/window.h"

namespace korvel::mfcSharedCtrls {

namespace {

constexpr int FrameWidth = 1;

// Kept as it is, also where a color is called bright for its blue alone: a host may have chosen its colors by
// it.
COLORREF TextColorOn(COLORREF color) {
    constexpr COLORREF Middle = 0x808080;
    return color - Middle < Middle ? RGB(0, 0, 0) : RGB(255, 255, 255);
}

} // namespace

void CColoredButton::DrawItem(DRAWITEMSTRUCT* item) {
    CDC& dc = *item->hDC;
    const COLORREF shown = color & 0xFFFFFF;
    CRect rect = item->rcItem;
    UINT state = DFCS_BUTTONPUSH;
    if (item->itemState & ODS_SELECTED)
        state |= DFCS_PUSHED;
    if (item->itemState & ODS_DISABLED)
        state |= DFCS_INACTIVE;
    dc.DrawFrameControl(rect, DFC_BUTTON, state);
    rect.DeflateRect(FrameWidth, FrameWidth);
    dc.FillSolidRect(rect, shown);
    if (showText) {
        dc.SetTextColor(TextColorOn(shown));
        dc.DrawText(GetWindowTextA(), rect, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    }
    if (item->itemState & ODS_FOCUS) {
        dc.FrameRect(rect, TextColorOn(shown));
        dc.DrawFocusRect(rect);
    }
}

} // namespace korvel::mfcSharedCtrls
