#pragma once

#include "korvel/window/base/image_list.h"

#include <QColor>
#include <QImage>
#include <QPoint>
#include <QRect>
#include <QString>

/// The edge between the library's bytes, rectangles and colors and those of Qt.
namespace korvel::internal {

QString ToQString(const CString& text);
CString FromQString(const QString& text);
/// A place in `text` (bytes), given as a place in its QString, and the other way round. Inside a character
/// `ToByte` gives its end, `FromByte` its beginning.
int ToByte(const CString& text, int unit);
int FromByte(const CString& text, int byte);
/// The text of a window; empty when the window throws while it is asked.
CString BytesOf(HWND window);
QString TextOf(HWND window);
QColor ToQColor(COLORREF color);
COLORREF FromQColor(const QColor& color);
/// Uses the pixels of the picture, which must outlive it; a null one where they are too few for its size.
QImage ToQImage(const Image& image);

inline QRect ToQRect(const CRect& rect) {
    return {rect.left, rect.top, rect.Width(), rect.Height()};
}
inline CRect FromQRect(const QRect& rect) {
    return {rect.x(), rect.y(), rect.x() + rect.width(), rect.y() + rect.height()};
}
inline CPoint FromQPoint(const QPoint& point) {
    return {point.x(), point.y()};
}

} // namespace korvel::internal
