#include "korvel/window/core/dc.h"

#include "korvel/window/core/frame_control.h"

namespace korvel {

void CDC::SelectPen(int style, COLORREF color) {
    m_pattern = style == PS_DOT ? LinePattern::Dotted : LinePattern::Solid;
    m_penColor = color;
}

void CDC::LineTo(CPoint point) {
    m_surface.Line(m_position, point, m_penColor, m_pattern);
    m_position = point;
}

void CDC::Rectangle(const CRect& rect) {
    m_surface.Fill(rect, m_backColor);
    m_surface.Frame(rect, m_penColor);
}

void CDC::DrawFrameControl(const CRect& rect, UINT type, UINT state) {
    internal::DrawFrameControl(m_surface, rect, type, state);
}

} // namespace korvel
