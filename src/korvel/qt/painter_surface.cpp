#include "korvel/qt/painter_surface.h"

#include "korvel/qt/convert.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QImage>
#include <QPalette>
#include <array>
#include <cstdlib>

namespace korvel::internal {

namespace {

// The edges of a rectangle as strips one pixel wide.
std::array<QRect, 4> EdgesOf(const CRect& rect) {
    const int width = rect.Width();
    const int height = rect.Height();
    return {QRect(rect.left, rect.top, width, 1), QRect(rect.left, rect.bottom - 1, width, 1),
            QRect(rect.left, rect.top, 1, height), QRect(rect.right - 1, rect.top, 1, height)};
}

int AlignmentOf(UINT format) {
    const int horizontal = (format & DT_CENTER)  ? Qt::AlignHCenter
                           : (format & DT_RIGHT) ? Qt::AlignRight
                                                 : Qt::AlignLeft;
    return horizontal | static_cast<int>((format & DT_VCENTER) ? Qt::AlignVCenter : Qt::AlignTop);
}

} // namespace

PainterSurface::PainterSurface(QPainter& painter, const QRegion& exposed)
    : m_painter(painter), m_exposed(exposed) {
    m_painter.setRenderHints(QPainter::Antialiasing, false);
    m_painter.setRenderHints(QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform, true);
    m_painter.setClipRegion(m_exposed);
}

void PainterSurface::Fill(const CRect& rect, COLORREF color) {
    if (!rect.IsRectEmpty())
        m_painter.fillRect(ToQRect(rect), ToQColor(color));
}

void PainterSurface::Text(const CString& text, const CRect& rect, COLORREF color, UINT format) {
    if (text.empty() || rect.IsRectEmpty())
        return;
    QString shown = ToQString(text);
    if (format & DT_END_ELLIPSIS)
        shown = m_painter.fontMetrics().elidedText(shown, Qt::ElideRight, rect.Width());
    const int flow = (format & DT_SINGLELINE) ? Qt::TextSingleLine : 0;
    m_painter.setPen(ToQColor(color));
    m_painter.drawText(ToQRect(rect), AlignmentOf(format) | flow, shown);
}

// The last pixel of a line is not painted, so that lines in a row do not overlap. Dots lie on the squares
// of one color of a chess board over the whole window, so that lines that meet go on evenly.
void PainterSurface::Line(CPoint from, CPoint to, COLORREF color, LinePattern pattern) {
    const QBrush brush(ToQColor(color),
                       pattern == LinePattern::Dotted ? Qt::Dense4Pattern : Qt::SolidPattern);
    if (from.y == to.y) {
        const int left = from.x <= to.x ? from.x : to.x + 1;
        m_painter.fillRect(left, from.y, std::abs(to.x - from.x), 1, brush);
    } else if (from.x == to.x) {
        const int top = from.y <= to.y ? from.y : to.y + 1;
        m_painter.fillRect(from.x, top, 1, std::abs(to.y - from.y), brush);
    } else {
        m_painter.setPen(QPen(brush, 1, pattern == LinePattern::Dotted ? Qt::DotLine : Qt::SolidLine));
        m_painter.drawLine(from.x, from.y, to.x, to.y);
    }
}

void PainterSurface::Frame(const CRect& rect, COLORREF color) {
    if (rect.IsRectEmpty())
        return;
    for (const QRect& edge : EdgesOf(rect))
        m_painter.fillRect(edge, ToQColor(color));
}

void PainterSurface::FocusRect(const CRect& rect) {
    if (rect.IsRectEmpty())
        return;
    const QBrush dots(QGuiApplication::palette().color(QPalette::Text), Qt::Dense4Pattern);
    for (const QRect& edge : EdgesOf(rect))
        m_painter.fillRect(edge, dots);
}

void PainterSurface::Picture(const Image& image, const CRect& rect) {
    const QImage picture = ToQImage(image);
    if (!picture.isNull() && !rect.IsRectEmpty())
        m_painter.drawImage(ToQRect(rect), picture);
}

void PainterSurface::Clip(const CRect* rect) {
    m_painter.setClipRegion(rect ? m_exposed.intersected(ToQRect(*rect)) : m_exposed);
}

void PainterSurface::ClipRegion(const CRgn& region) {
    QRegion clip;
    for (const CRect& rect : region.Rectangles())
        clip += ToQRect(rect);
    m_painter.setClipRegion(m_exposed.intersected(clip));
}

} // namespace korvel::internal
