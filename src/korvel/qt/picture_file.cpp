#include "korvel/qt/picture_file.h"

#include "korvel/qt/convert.h"

#include <QImageReader>

namespace korvel::internal {

namespace {

QSize Fitted(QSize size, QSize room) {
    const bool fits = size.width() <= room.width() && size.height() <= room.height();
    return fits ? size : size.scaled(room, Qt::KeepAspectRatio).expandedTo({1, 1});
}

Image ToImage(const QImage& picture) {
    Image image{picture.width(), picture.height(), {}};
    image.pixels.reserve(static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height));
    for (int y = 0; y < image.height; ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        image.pixels.insert(image.pixels.end(), line, line + image.width);
    }
    return image;
}

} // namespace

std::optional<Image> ReadPicture(const CString& path, CSize room) {
    QImageReader reader(ToQString(path));
    reader.setDecideFormatFromContent(true); // whatever the file is called
    reader.setAutoTransform(true);
    QImage picture = reader.read();
    if (picture.isNull())
        return std::nullopt;
    const QSize size = Fitted(picture.size(), {room.cx, room.cy});
    if (size != picture.size())
        picture = picture.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    return ToImage(picture.convertToFormat(QImage::Format_ARGB32));
}

} // namespace korvel::internal
