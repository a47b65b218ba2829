#include "korvel/qt/convert.h"

#include "korvel/platform/code_page.h"
#include "korvel/window/core/window.h"

namespace korvel::internal {

QString ToQString(const CString& text) {
    QString result(static_cast<qsizetype>(text.size()), Qt::Uninitialized);
    for (std::size_t i = 0; i < text.size(); ++i)
        result[static_cast<qsizetype>(i)] = QChar(static_cast<char16_t>(platform::ToUnicode(text[i])));
    return result;
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
