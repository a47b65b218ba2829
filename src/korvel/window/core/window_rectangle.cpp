#include "korvel/window/core/window_rectangle.h"

#include "korvel/platform/first_failure.h"
#include "korvel/window/core/client_area.h"
#include "korvel/window/core/window.h"
#include "korvel/window/core/window_changes.h"
#include "korvel/window/core/window_order.h"

#include <algorithm>

namespace korvel {

using namespace internal;

namespace {

CRect WithinLimits(const WindowRecord& record, CRect rect) {
    if (rect.Width() == record.rect.Width() && rect.Height() == record.rect.Height())
        return rect;
    const view::SizeRange limits = SizesOf(record);
    rect.right = rect.left + std::clamp(rect.Width(), limits.least.cx, limits.most.cx);
    rect.bottom = rect.top + std::clamp(rect.Height(), limits.least.cy, limits.most.cy);
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

bool SetWindowPos(HWND window, HWND insertAfter, const CRect& rect, UINT flags) {
    return OnOwner(
        window,
        [&](WindowRecord& record) {
            const CRect wanted = Placeable(rect);
            const CPoint corner = flags & SWP_NOMOVE ? record.rect.TopLeft() : wanted.TopLeft();
            const CRect size = flags & SWP_NOSIZE ? record.rect : wanted;
            const CRect target{corner.x, corner.y, corner.x + size.Width(), corner.y + size.Height()};
            FirstFailure failure;
            failure.Try([&] { Place(record, target, PlaceOrigin::Program); });
            if (!(flags & SWP_NOZORDER))
                failure.Try([&] { PutAfter(record, insertAfter); });
            if (flags & SWP_HIDEWINDOW)
                failure.Try([&] { ShowWindow(window, SW_HIDE); });
            else if (flags & SWP_SHOWWINDOW)
                failure.Try([&] { ShowWindow(window, flags & SWP_NOACTIVATE ? SW_SHOWNA : SW_SHOW); });
            failure.Rethrow();
            return true;
        });
}

bool BringWindowToTop(HWND window) {
    return SetWindowPos(window, HWND_TOP, {}, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
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

view::SizeRange SizesOf(const WindowRecord& record) {
    const view::SizeRange any;
    if (record.parent || !(record.style & WS_THICKFRAME))
        return any;
    MINMAXINFO limits{{any.least.cx, any.least.cy}, {any.most.cx, any.most.cy}};
    SendMessageA(record.handle, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
    const CRect least = Placeable({0, 0, limits.ptMinTrackSize.x, limits.ptMinTrackSize.y});
    const CRect most = Placeable({0, 0, limits.ptMaxTrackSize.x, limits.ptMaxTrackSize.y});
    return {{least.right, least.bottom},
            {std::max(least.right, most.right), std::max(least.bottom, most.bottom)}};
}

// What is longer than the message can say is said to be as long as it can.
void TellSize(const WindowRecord& record) {
    constexpr int Longest = 0xFFFF;
    const CRect client = GetClientRect(record.handle);
    SendMessageA(record.handle, WM_SIZE, 0,
                 MAKELPARAM(std::min(client.Width(), Longest), std::min(client.Height(), Longest)));
}

void TellMove(const WindowRecord& record) {
    const CRect area = ClientArea(record);
    SendMessageA(record.handle, WM_MOVE, 0,
                 MAKELPARAM(record.rect.left + area.left, record.rect.top + area.top));
}

void Place(WindowRecord& record, const CRect& rect, PlaceOrigin origin) {
    const CRect wanted = Placeable(rect);
    if (record.rect == wanted)
        return;
    const CRect placed = WithinLimits(record, wanted);
    if (!IsWindow(record.handle))
        return;
    if (placed != wanted)
        origin = PlaceOrigin::Program; // what the user made of it is not what it gets
    SendMessageA(record.handle, WM_WINDOWPOSCHANGING, 0, 0);
    if (!IsWindow(record.handle))
        return;
    const CRect former = std::exchange(record.rect, placed);
    if (origin == PlaceOrigin::Program)
        TellDisplay(record, Aspect::Rectangle);
    FirstFailure failure;
    failure.Try([&] { SendMessageA(record.handle, WM_WINDOWPOSCHANGED, 0, 0); });
    if (former.TopLeft() != placed.TopLeft())
        failure.Try([&] { TellMove(record); });
    if (former.Width() != placed.Width() || former.Height() != placed.Height())
        failure.Try([&] { TellSize(record); });
    failure.Rethrow();
}

} // namespace internal
} // namespace korvel
