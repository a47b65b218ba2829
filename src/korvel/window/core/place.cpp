#include "korvel/window/core/place.h"

#include "korvel/window/core/desktop.h"

#include <algorithm>
#include <limits>

namespace korvel {

using namespace internal;

namespace {

constexpr int BorderWidth = 1;
constexpr int ClientEdgeWidth = 2;
constexpr int FarthestCoordinate = 1 << 24;

// The frame of a captioned window lies outside of its rectangle: it is the desktop's.
int EdgeWidth(const WindowRecord& record) {
    const bool border = (record.style & WS_CAPTION) == WS_BORDER;
    const bool edge = (record.exStyle & WS_EX_CLIENTEDGE) != 0;
    return (border ? BorderWidth : 0) + (edge ? ClientEdgeWidth : 0);
}

// Points come from anywhere: what lies beyond the numbers of a coordinate is held at their border.
CPoint Held(std::int64_t x, std::int64_t y) {
    using Limits = std::numeric_limits<int>;
    return {static_cast<int>(std::clamp<std::int64_t>(x, Limits::min(), Limits::max())),
            static_cast<int>(std::clamp<std::int64_t>(y, Limits::min(), Limits::max()))};
}

CRect WithoutInsets(CRect rect, const CRect& insets) {
    rect.left += insets.left;
    rect.top += insets.top;
    rect.right -= insets.right;
    rect.bottom -= insets.bottom;
    return Placeable(rect);
}

} // namespace

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

CPoint ClientToScreen(HWND window, CPoint point) {
    return OnOwner(
        window,
        [&](WindowRecord& record) {
            return IsOnDisplay(record) ? Display().ToScreen(window, point)
                                       : ScreenPointInMemory(window, point);
        });
}

CPoint ScreenToClient(HWND window, CPoint point) {
    return OnOwner(
        window,
        [&](WindowRecord& record) {
            const CPoint origin = ClientToScreen(record.handle, {});
            return Held(std::int64_t{point.x} - origin.x, std::int64_t{point.y} - origin.y);
        });
}

namespace internal {

CRect Placeable(CRect rect) {
    rect.left = std::clamp(rect.left, -FarthestCoordinate, FarthestCoordinate);
    rect.top = std::clamp(rect.top, -FarthestCoordinate, FarthestCoordinate);
    rect.right = std::clamp(rect.right, rect.left, FarthestCoordinate);
    rect.bottom = std::clamp(rect.bottom, rect.top, FarthestCoordinate);
    return rect;
}

CRect ClientArea(const WindowRecord& record) {
    CRect area{0, 0, record.rect.Width(), record.rect.Height()};
    const int edge = EdgeWidth(record);
    area = WithoutInsets(area, {edge, edge, edge, edge});
    if (!record.control)
        return area;
    return WithoutInsets(area, record.control->ClientInsets({area.Width(), area.Height()}));
}

CPoint ScreenPointInMemory(HWND window, CPoint client) {
    std::int64_t x = client.x;
    std::int64_t y = client.y;
    for (RecordRef record = Find(window); record; record = Find(record->parent)) {
        const CRect area = ClientArea(*record);
        x += record->rect.left + area.left;
        y += record->rect.top + area.top;
    }
    return Held(x, y);
}

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
