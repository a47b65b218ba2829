#include "korvel/qt/convert.h"

#include "korvel/platform/code_page.h"
#include "korvel/window/core/window.h"

namespace korvel::internal {

QString ToQString(const CString& text) {
    return QString::fromStdString(platform::ToUtf8(text));
}

CString FromQString(const QString& text) {
    return platform::FromUtf8(text.toStdString()).text;
}

QString TextOf(HWND window) {
    try {
        return ToQString(GetWindowTextA(window));
    } catch (...) {
        return {}; // no way out through Qt
    }
}

QColor ToQColor(COLORREF color) {
    return QColor(static_cast<int>(GetRValue(color)), static_cast<int>(GetGValue(color)),
                  static_cast<int>(GetBValue(color)));
}

COLORREF FromQColor(const QColor& color) {
    return RGB(static_cast<unsigned>(color.red()), static_cast<unsigned>(color.green()),
               static_cast<unsigned>(color.blue()));
}

} // namespace korvel::internal
