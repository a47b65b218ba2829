#pragma once

#include "korvel/window/core/dc.h"

#include <QPainter>
#include <QRegion>

namespace korvel::internal {

/// The eight calls of a surface on a QPainter, in device-independent pixels. Nothing outside `exposed` is
/// touched, whatever clip the window sets.
class PainterSurface final : public Surface {
public:
    PainterSurface(QPainter& painter, const QRegion& exposed);

    void Fill(const CRect& rect, COLORREF color) override;
    void Text(const CString& text, const CRect& rect, COLORREF color, UINT format) override;
    void Line(CPoint from, CPoint to, COLORREF color, LinePattern pattern) override;
    void Frame(const CRect& rect, COLORREF color) override;
    void FocusRect(const CRect& rect) override;
    void Picture(const Image& image, const CRect& rect) override;
    void Clip(const CRect* rect) override;
    void ClipRegion(const CRgn& region) override;

private:
    QPainter& m_painter;
    const QRegion m_exposed;
};

} // namespace korvel::internal
