#include "korvel/window/base/dc.h"
#include "korvel/window/core/window.h"

#include <algorithm>
#include <initializer_list>

namespace korvel {
namespace {

enum class Look { Normal, Pushed, Inactive };

// The platform lets an inactive control look inactive even while it is pushed.
Look LookOf(UINT state) {
    if (state & DFCS_INACTIVE)
        return Look::Inactive;
    return state & DFCS_PUSHED ? Look::Pushed : Look::Normal;
}

// `percent` of the way from one colour to another: darker on a light desktop, lighter on a dark one.
COLORREF Blend(COLORREF from, COLORREF to, unsigned percent) {
    const auto mix = [&](unsigned a, unsigned b) { return (a * (100 - percent) + b * percent) / 100; };
    return RGB(mix(GetRValue(from), GetRValue(to)), mix(GetGValue(from), GetGValue(to)),
               mix(GetBValue(from), GetBValue(to)));
}

COLORREF SymbolColor(Look look) {
    return GetSysColor(look == Look::Inactive ? COLOR_GRAYTEXT : COLOR_BTNTEXT);
}

COLORREF FaceColor(Look look) {
    const COLORREF face = GetSysColor(COLOR_BTNFACE);
    return look == Look::Pushed ? Blend(face, GetSysColor(COLOR_BTNTEXT), 15) : face;
}

void DrawButtonFace(CDC& dc, const CRect& rect, Look look) {
    dc.FillSolidRect(rect, FaceColor(look));
    dc.FrameRect(rect, GetSysColor(COLOR_BTNSHADOW));
}

CRect CentredSquare(const CRect& rect) {
    const int side = std::min(rect.Width(), rect.Height());
    const int left = rect.left + (rect.Width() - side) / 2;
    const int top = rect.top + (rect.Height() - side) / 2;
    return {left, top, left + side, top + side};
}

void DrawPolyline(CDC& dc, std::initializer_list<CPoint> points, COLORREF color) {
    dc.SelectPen(PS_SOLID, color);
    dc.MoveTo(*points.begin());
    for (const CPoint point : points)
        dc.LineTo(point);
}

// Corners of the tick in thirteenths of the box, the size at which it was drawn.
void DrawTick(CDC& dc, const CRect& box, COLORREF color) {
    const int side = box.Width();
    const auto at = [&](int x, int y) { return CPoint{box.left + x * side / 13, box.top + y * side / 13}; };
    const CPoint left = at(3, 6);
    const CPoint low = at(5, 8);
    const CPoint right = at(9, 4);
    for (const int down : {0, 1}) // a line of two pixels
        DrawPolyline(dc, {{left.x, left.y + down}, {low.x, low.y + down}, {right.x, right.y + down}}, color);
}

void DrawCheckBox(CDC& dc, const CRect& rect, UINT state) {
    const Look look = LookOf(state);
    const CRect box = CentredSquare(rect);
    const COLORREF inside = GetSysColor(look == Look::Normal ? COLOR_WINDOW : COLOR_BTNFACE);
    dc.FillSolidRect(box, inside);
    dc.FrameRect(box, GetSysColor(look == Look::Inactive ? COLOR_GRAYTEXT : COLOR_BTNSHADOW));
    if (state & DFCS_CHECKED)
        DrawTick(dc, box, GetSysColor(look == Look::Inactive ? COLOR_GRAYTEXT : COLOR_WINDOWTEXT));
}

void DrawDropArrow(CDC& dc, const CRect& rect, UINT state) {
    const Look look = LookOf(state);
    DrawButtonFace(dc, rect, look);
    const int half = std::max(1, std::min(rect.Width(), rect.Height()) / 5);
    const CPoint tip{rect.left + rect.Width() / 2, rect.top + (rect.Height() + half) / 2};
    for (const int down : {0, 1})
        DrawPolyline(
            dc,
            {{tip.x - half, tip.y - half + down}, {tip.x, tip.y + down}, {tip.x + half, tip.y - half + down}},
            SymbolColor(look));
}

} // namespace

void CDC::DrawFrameControl(const CRect& rect, UINT type, UINT state) {
    if (rect.IsRectEmpty())
        return;
    const COLORREF pen = m_penColor;
    const LinePattern pattern = m_pattern;
    const CPoint position = m_position;
    if (type == DFC_BUTTON && (state & DFCS_BUTTONPUSH))
        DrawButtonFace(*this, rect, LookOf(state));
    else if (type == DFC_BUTTON)
        DrawCheckBox(*this, rect, state);
    else if (type == DFC_SCROLL && (state & DFCS_SCROLLDOWN))
        DrawDropArrow(*this, rect, state);
    m_penColor = pen;
    m_pattern = pattern;
    m_position = position;
}

} // namespace korvel
