#include "korvel/layout/base_item.h"

#include "korvel/layout/host_controls.h"
#include "korvel/layout/wrapping.h"
#include "korvel/window/core/cwnd.h"

namespace korvel {

using namespace internal;

CBaseItem::CBaseItem(HWND parent, int controlId, UINT layoutFlags)
    : hParent(parent), hWnd(ControlOf(parent, controlId)), id(controlId) {
    flags = layoutFlags;
}

void CBaseItem::MoveTo(const RECT& target) {
    MoveWindow(pOwner ? ControlOf(pOwner->m_hWnd, id) : hWnd, target);
}

void CBaseItem::CaptureRect() {
    rect = ClientRectangleOf(hWnd, hParent);
}

void CBaseItem::Shift(int dx, int dy) {
    const CPoint place = ClientRectangleOf(hWnd, hParent).TopLeft();
    const int left = WrappingSum(place.x, dx);
    const int top = WrappingSum(place.y, dy);
    SetWindowPos(hWnd, nullptr, {left, top, left, top}, SWP_NOSIZE | SWP_NOZORDER);
}

void CBaseItem::ShiftKeep(int dx, int dy) {
    Shift(dx, dy);
    rect.left = WrappingSum(rect.left, dx);
    rect.top = WrappingSum(rect.top, dy);
}

} // namespace korvel
