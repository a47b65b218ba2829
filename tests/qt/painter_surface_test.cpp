#include "korvel/qt/painter_surface.h"

#include <QImage>
#include <gtest/gtest.h>
#include <string>

namespace korvel::test {

namespace {

constexpr int Side = 12;
constexpr COLORREF Black = 0;

// An image that shows itself as rows of characters: '#' where it was painted.
class Canvas {
public:
    explicit Canvas(const QRegion& exposed = QRect(0, 0, Side, Side))
        : m_painter(&m_image), surface(m_painter, exposed) {}

    std::string Row(int y) const {
        std::string row;
        for (int x = 0; x < Side; ++x)
            row += m_image.pixelColor(x, y) == Qt::white ? '.' : '#';
        return row;
    }
    std::string Column(int x) const {
        std::string column;
        for (int y = 0; y < Side; ++y)
            column += Row(y)[static_cast<std::size_t>(x)];
        return column;
    }

private:
    static QImage White() {
        QImage image(Side, Side, QImage::Format_RGB32);
        image.fill(Qt::white);
        return image;
    }
    QImage m_image = White();
    QPainter m_painter;

public:
    internal::PainterSurface surface;
};

TEST(PainterSurface, LinesLeaveTheirLastPixelOutInBothDirections) {
    Canvas canvas;
    canvas.surface.Line({2, 1}, {6, 1}, Black, LinePattern::Solid);
    canvas.surface.Line({6, 3}, {2, 3}, Black, LinePattern::Solid);
    canvas.surface.Line({9, 2}, {9, 5}, Black, LinePattern::Solid);
    EXPECT_EQ(canvas.Row(1), "..####......");
    EXPECT_EQ(canvas.Row(3), "...####..#..");
    EXPECT_EQ(canvas.Column(9), "..###.......");
}

TEST(PainterSurface, DotsGoOnEvenlyWhereLinesMeet) {
    Canvas canvas;
    canvas.surface.Line({4, 0}, {4, 5}, Black, LinePattern::Dotted);
    canvas.surface.Line({4, 5}, {4, Side}, Black, LinePattern::Dotted);
    const std::string column = canvas.Column(4);
    EXPECT_TRUE(column == "#.#.#.#.#.#." || column == ".#.#.#.#.#.#") << column;
}

TEST(PainterSurface, AClipNeverReachesBeyondWhatIsExposed) {
    Canvas canvas(QRect(0, 0, 6, Side));
    const CRect clip = {4, 0, 10, Side};
    canvas.surface.Clip(&clip);
    canvas.surface.Fill({0, 0, Side, 1}, Black);
    canvas.surface.Clip(nullptr);
    canvas.surface.Fill({0, 2, Side, 3}, Black);
    EXPECT_EQ(canvas.Row(0), "....##......");
    EXPECT_EQ(canvas.Row(2), "######......");
}

TEST(PainterSurface, PicturesAreScaledAndBlended) {
    Canvas canvas;
    canvas.surface.Picture({2, 1, {0xFF000000, 0x00000000}}, {0, 0, 8, 4});
    EXPECT_EQ(canvas.Row(1).substr(0, 2), "##");
    EXPECT_EQ(canvas.Row(1).substr(7), ".....");
    canvas.surface.Picture({3, 3, {0xFF000000}}, {0, 8, 3, 11}); // fewer pixels than it says
    EXPECT_EQ(canvas.Row(9), "............");
}

} // namespace

} // namespace korvel::test
