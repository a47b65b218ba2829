#include "korvel/window/core/window_rectangle.h"

#include "korvel/window/core/client_area.h"
#include "korvel/window/core/window.h"
#include "korvel/window/core/window_changes.h"

namespace korvel {

using namespace internal;

bool MoveWindow(HWND window, const CRect& rect, bool /*repaint*/) {
    return OnOwner(
        window,
        [&](WindowRecord& record) {
            Place(record, rect, PlaceOrigin::Program);
            return true;
        });
}

bool SetWindowPos(HWND window, HWND /*insertAfter*/, const CRect& rect, UINT flags) {
    return OnOwner(
        window,
        [&](WindowRecord& record) {
            const CRect wanted = Placeable(rect);
            const CPoint corner = flags & SWP_NOMOVE ? record.rect.TopLeft() : wanted.TopLeft();
            const CRect size = flags & SWP_NOSIZE ? record.rect : wanted;
            Place(record, {corner.x, corner.y, corner.x + size.Width(), corner.y + size.Height()},
                  PlaceOrigin::Program);
            if (flags & SWP_HIDEWINDOW)
                ShowWindow(window, SW_HIDE);
            else if (flags & SWP_SHOWWINDOW)
                ShowWindow(window, flags & SWP_NOACTIVATE ? SW_SHOWNA : SW_SHOW);
            return true;
        });
}

CRect GetWindowRect(HWND window) {
    return OnOwner(
        window,
        [](WindowRecord& record) {
            CRect rect = record.rect;
            const CPoint origin = ClientToScreen(record.parent, {});
            rect.OffsetRect(origin.x, origin.y);
            return rect;
        });
}

CRect GetClientRect(HWND window) {
    return OnOwner(
        window,
        [](WindowRecord& record) {
            const CRect area = ClientArea(record);
            return CRect{0, 0, area.Width(), area.Height()};
        });
}

namespace internal {

void TellSize(const WindowRecord& record) {
    const CRect client = GetClientRect(record.handle);
    SendMessageA(record.handle, WM_SIZE, 0, MAKELPARAM(client.Width(), client.Height()));
}

void TellMove(const WindowRecord& record) {
    const CRect area = ClientArea(record);
    SendMessageA(record.handle, WM_MOVE, 0,
                 MAKELPARAM(record.rect.left + area.left, record.rect.top + area.top));
}

void Place(WindowRecord& record, const CRect& rect, PlaceOrigin origin) {
    const CRect placed = Placeable(rect);
    if (record.rect == placed)
        return;
    SendMessageA(record.handle, WM_WINDOWPOSCHANGING, 0, 0);
    if (!IsWindow(record.handle))
        return;
    const CRect former = std::exchange(record.rect, placed);
    if (origin == PlaceOrigin::Program)
        TellDisplay(record, Aspect::Rectangle);
    SendMessageA(record.handle, WM_WINDOWPOSCHANGED, 0, 0);
    if (former.TopLeft() != placed.TopLeft())
        TellMove(record);
    if (former.Width() != placed.Width() || former.Height() != placed.Height())
        TellSize(record);
}

} // namespace internal
} // namespace korvel
