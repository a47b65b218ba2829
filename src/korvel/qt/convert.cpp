#include "korvel/qt/convert.h"

#include "korvel/platform/code_page.h"
#include "korvel/window/core/window.h"

#include <QStringDecoder>

namespace korvel::internal {

// QString::fromUtf8 takes a character U+FEFF at the beginning for a byte order mark and drops it.
QString ToQString(const CString& text) {
    QStringDecoder decode(QStringDecoder::Utf8, QStringConverter::Flag::ConvertInitialBom);
    const std::string utf8 = platform::ToUtf8(text);
    return decode(QByteArrayView(utf8.data(), static_cast<qsizetype>(utf8.size())));
}

CString FromQString(const QString& text) {
    return platform::FromUtf8(text.toStdString()).text;
}

namespace {

struct Place {
    int byte = 0;
    int unit = 0; // of a QString
};

// Goes over the characters of a text, as long as `goesOn` from one border to the next.
template <class Condition>
Place WalkWhile(const CString& text, Condition goesOn) {
    constexpr char32_t LastOfOneUnit = 0xFFFF;
    Place place;
    while (place.byte < static_cast<int>(text.size())) {
        const auto character = platform::CharacterAt(text, static_cast<std::size_t>(place.byte));
        const Place next = {place.byte + static_cast<int>(character.length),
                            place.unit + (character.code > LastOfOneUnit ? 2 : 1)};
        if (!goesOn(place, next))
            break;
        place = next;
    }
    return place;
}

} // namespace

int ToByte(const CString& text, int unit) {
    return WalkWhile(
               text, [=](Place place, Place) { return place.unit < unit; })
        .byte;
}

int FromByte(const CString& text, int byte) {
    return WalkWhile(
               text, [=](Place, Place next) { return next.byte <= byte; })
        .unit;
}

CString BytesOf(HWND window) {
    try {
        return GetWindowTextA(window);
    } catch (...) {
        return {}; // no way out through Qt
    }
}

QString TextOf(HWND window) {
    return ToQString(BytesOf(window));
}

QColor ToQColor(COLORREF color) {
    return QColor(static_cast<int>(GetRValue(color)), static_cast<int>(GetGValue(color)),
                  static_cast<int>(GetBValue(color)));
}

COLORREF FromQColor(const QColor& color) {
    return RGB(static_cast<unsigned>(color.red()), static_cast<unsigned>(color.green()),
               static_cast<unsigned>(color.blue()));
}

QImage ToQImage(const Image& image) {
    if (image.width <= 0 || image.height <= 0)
        return {};
    const auto needed = static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height);
    if (image.pixels.size() < needed)
        return {};
    return {reinterpret_cast<const uchar*>(image.pixels.data()), image.width, image.height,
            qsizetype{image.width} * 4, QImage::Format_ARGB32};
}

} // namespace korvel::internal
