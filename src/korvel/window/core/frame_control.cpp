#include "korvel/window/core/frame_control.h"

#include "korvel/window/base/color.h"
#include "korvel/window/base/messages.h"
#include "korvel/window/core/window.h"

#include <algorithm>
#include <initializer_list>

namespace korvel::internal {
namespace {

enum class Look { Normal, Hot, Pushed, Inactive };

// In the window model an inactive control looks inactive even while it is pushed.
Look LookOf(UINT state) {
    if (state & DFCS_INACTIVE)
        return Look::Inactive;
    if (state & DFCS_PUSHED)
        return Look::Pushed;
    return state & DFCS_HOT ? Look::Hot : Look::Normal;
}

COLORREF SymbolColor(Look look) {
    return GetSysColor(look == Look::Inactive ? COLOR_GRAYTEXT : COLOR_BTNTEXT);
}

COLORREF FaceColor(Look look) {
    const COLORREF face = GetSysColor(COLOR_BTNFACE);
    switch (look) {
    case Look::Pushed:
        return Mix(face, GetSysColor(COLOR_BTNTEXT), 15, 100);
    case Look::Hot:
        return Mix(face, GetSysColor(COLOR_HIGHLIGHT), 20, 100);
    default:
        return face;
    }
}

void DrawButtonFace(Surface& surface, const CRect& rect, Look look) {
    surface.Fill(rect, FaceColor(look));
    surface.Frame(rect, GetSysColor(COLOR_BTNSHADOW));
}

void DrawPolyline(Surface& surface, std::initializer_list<CPoint> points, COLORREF color) {
    for (const CPoint* end = points.begin() + 1; end < points.end(); ++end)
        surface.Line(end[-1], *end, color, LinePattern::Solid);
}

// Corners of the tick in thirteenths of the box, the size at which it was drawn.
void DrawTick(Surface& surface, const CRect& box, COLORREF color) {
    const int side = box.Width();
    const auto at = [&](int x, int y) { return CPoint{box.left + x * side / 13, box.top + y * side / 13}; };
    const CPoint left = at(3, 6);
    const CPoint low = at(5, 8);
    const CPoint right = at(9, 4);
    for (const int down : {0, 1}) // a line of two pixels
        DrawPolyline(surface, {{left.x, left.y + down}, {low.x, low.y + down}, {right.x, right.y + down}},
                     color);
}

void DrawCheckBox(Surface& surface, const CRect& rect, UINT state) {
    const Look look = LookOf(state);
    const int side = std::min(rect.Width(), rect.Height());
    const CRect box = rect.Centered({side, side});
    const COLORREF inside =
        GetSysColor(look == Look::Normal || look == Look::Hot ? COLOR_WINDOW : COLOR_BTNFACE);
    surface.Fill(box, inside);
    surface.Frame(box, GetSysColor(look == Look::Inactive ? COLOR_GRAYTEXT : COLOR_BTNSHADOW));
    if (state & DFCS_CHECKED)
        DrawTick(surface, box, GetSysColor(look == Look::Inactive ? COLOR_GRAYTEXT : COLOR_WINDOWTEXT));
}

// The corners of an arrow that points down, from the middle of its tip; the other directions turn it.
CPoint Turned(CPoint corner, UINT direction) {
    switch (direction) {
    case DFCS_SCROLLUP:
        return {corner.x, -corner.y};
    case DFCS_SCROLLLEFT:
        return {-corner.y, corner.x};
    case DFCS_SCROLLRIGHT:
        return {corner.y, corner.x};
    default:
        return corner;
    }
}

void DrawArrow(Surface& surface, const CRect& rect, UINT state) {
    const Look look = LookOf(state);
    DrawButtonFace(surface, rect, look);
    const UINT direction = state & DFCS_SCROLLRIGHT;
    const int half = std::max(1, std::min(rect.Width(), rect.Height()) / 5);
    const bool isAcross = direction == DFCS_SCROLLLEFT || direction == DFCS_SCROLLRIGHT;
    const bool isBack = direction == DFCS_SCROLLUP || direction == DFCS_SCROLLLEFT;
    const int extent = isAcross ? rect.Width() : rect.Height();
    const int reach = isBack ? extent - 1 - (extent + half) / 2 : (extent + half) / 2;
    const CPoint tip = isAcross ? CPoint{rect.left + reach, rect.top + rect.Height() / 2}
                                : CPoint{rect.left + rect.Width() / 2, rect.top + reach};
    for (const int step : {0, 1}) { // a line of two pixels
        const auto at = [&](CPoint corner) {
            const CPoint turned = Turned({corner.x, corner.y + step}, direction);
            return CPoint{tip.x + turned.x, tip.y + turned.y};
        };
        DrawPolyline(surface, {at({-half, -half}), at({0, 0}), at({half, -half})}, SymbolColor(look));
    }
}

} // namespace

void DrawFrameControl(Surface& surface, const CRect& rect, UINT type, UINT state) {
    if (rect.IsRectEmpty())
        return;
    if (type == DFC_BUTTON && (state & DFCS_BUTTONPUSH))
        DrawButtonFace(surface, rect, LookOf(state));
    else if (type == DFC_BUTTON)
        DrawCheckBox(surface, rect, state);
    else if (type == DFC_SCROLL)
        DrawArrow(surface, rect, state);
}

} // namespace korvel::internal
