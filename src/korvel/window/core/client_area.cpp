#include "korvel/window/core/client_area.h"

#include "korvel/window/core/display_thread.h"
#include "korvel/window/core/window.h"

#include <algorithm>
#include <limits>

namespace korvel {

using namespace internal;

namespace {

constexpr int BorderWidth = 1;
constexpr int ClientEdgeWidth = 2;
constexpr int FarthestCoordinate = view::SizeRange::NoLimit;

// The frame of a captioned window lies outside of its rectangle: it is the desktop's.
int EdgeWidth(const WindowRecord& record) {
    const bool border = (record.style & WS_CAPTION) == WS_BORDER;
    const bool edge = (record.exStyle & WS_EX_CLIENTEDGE) != 0;
    return (border ? BorderWidth : 0) + (edge ? ClientEdgeWidth : 0);
}

// Points come from anywhere: what lies beyond the numbers of a coordinate becomes the nearest that they hold.
CPoint Clamped(std::int64_t x, std::int64_t y) {
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
            return Clamped(std::int64_t{point.x} - origin.x, std::int64_t{point.y} - origin.y);
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
    area = WithoutInsets(WithoutInsets(area, {edge, edge, edge, edge}), ScrollBarInsets(record));
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
    return Clamped(x, y);
}

} // namespace internal
} // namespace korvel
