#include "desktop/picture_file.h"

#include "korvel/platform/code_page.h"
#include "korvel/platform/error.h"
#include "texts/messages.h"

#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QImageReader>
#include <QImageWriter>

namespace korvel::inspector {
namespace {

constexpr const char* MakerKey = "Software";
constexpr const char* Maker = "LandXML Inspector";

[[noreturn]] void Fail(const Message& message) {
    throw Error(platform::FromUtf8(Say(message)).text);
}

bool IsOwnPicture(const QString& name) {
    return QImageReader(name).text(MakerKey) == Maker;
}

QString FreeName(const QString& name) {
    const QFileInfo info(name);
    const QString ending = info.suffix().isEmpty() ? QString() : '.' + info.suffix();
    QString free = name;
    for (int number = 2; QFile::exists(free) && !IsOwnPicture(free); ++number)
        free = name.chopped(ending.size()) + '-' + QString::number(number) + ending;
    return free;
}

} // namespace

QString SavePicture(QImage image, const QString& name) {
    const std::string quoted = InQuotes(name.toStdString());
    const QByteArray ending = QFileInfo(name).suffix().toLower().toLatin1();
    const QByteArray format = ending.isEmpty() ? QByteArray("png") : ending;
    const QList<QByteArray> formats = QImageWriter::supportedImageFormats();
    if (!formats.contains(format))
        Fail({"the picture %1 cannot be written: its name ends in none of %2",
              {quoted, formats.join(", ").toStdString()}});
    if (const QFileInfo there(name); there.exists() && !there.isFile())
        Fail({"the picture %1 cannot be written", {quoted}});
    QString free = FreeName(name);
    image.setText(MakerKey, Maker);
    if (!image.save(free, format))
        Fail({"the picture %1 cannot be written", {quoted}});
    return free;
}

} // namespace korvel::inspector
