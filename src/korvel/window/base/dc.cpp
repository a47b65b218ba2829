#include "korvel/window/base/dc.h"

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

} // namespace korvel
