#include "korvel/qt/qt_display.h"
#include "support/table.h"

#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace korvel {
namespace {

TEST(PictureFile, IsReadAndFitted) {
    QTemporaryDir folder;
    qt::QtDisplay display;
    for (const auto& [border, format, size, fitted] :
         Table<const char*, QSize, CSize>{{"small ones stay", "PNG", {30, 20}, {30, 20}},
                                          {"wide", "JPEG", {400, 100}, {200, 50}},
                                          {"high", "BMP", {100, 400}, {50, 200}},
                                          {"as large as the room", "PNG", {200, 200}, {200, 200}},
                                          {"a line keeps a pixel", "PNG", {4000, 1}, {200, 1}}}) {
        SCOPED_TRACE(border);
        QImage picture(size, QImage::Format_RGB32);
        picture.fill(QColor(0, 0, 255));
        const QString path = folder.filePath("picture"); // the name says nothing of the format
        ASSERT_TRUE(picture.save(path, format));
        const auto image = display.LoadPicture(path.toStdString(), {200, 200});
        ASSERT_TRUE(image);
        EXPECT_EQ((CSize{image->width, image->height}), fitted);
        ASSERT_EQ(image->pixels.size(), static_cast<std::size_t>(fitted.cx * fitted.cy));
        EXPECT_GE(image->pixels.back() & 0xFF, 0xFAu);
        EXPECT_EQ(image->pixels.back() >> 24, 0xFFu);
    }
}

TEST(PictureFile, BrokenOnesAreNone) {
    QTemporaryDir folder;
    qt::QtDisplay display;
    const auto write = [&](const char* name, const QByteArray& content) {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        return file.fileName().toStdString();
    };
    // A PNG that ends inside its header.
    const QByteArray head = QByteArray::fromHex("89504e470d0a1a0a0000000d49484452000001");
    for (const std::string& path :
         {std::string(), folder.path().toStdString(), std::string("/nowhere.png"), write("empty.png", {}),
          write("text.png", "no picture"), write("head.png", head)})
        EXPECT_FALSE(display.LoadPicture(path, {200, 200})) << path;
}

} // namespace
} // namespace korvel
