#include "korvel/qt/desktop_theme.h"

#include "korvel/qt/convert.h"
#include "korvel/window/base/color.h"
#include "korvel/window/base/messages.h"

#include <QApplication>
#include <QFontMetrics>
#include <QPalette>
#include <QScreen>
#include <QStyle>
#include <QStyleOptionComboBox>

namespace korvel::internal {

namespace {

struct ColorRow {
    int index;
    QPalette::ColorGroup group;
    QPalette::ColorRole role;
};

constexpr ColorRow Colors[] = {
    {COLOR_WINDOW, QPalette::Active, QPalette::Base},
    {COLOR_WINDOWTEXT, QPalette::Active, QPalette::Text},
    {COLOR_HIGHLIGHT, QPalette::Active, QPalette::Highlight},
    {COLOR_HIGHLIGHTTEXT, QPalette::Active, QPalette::HighlightedText},
    {COLOR_BTNFACE, QPalette::Active, QPalette::Window},
    {COLOR_GRAYTEXT, QPalette::Disabled, QPalette::Text},
    {COLOR_BTNTEXT, QPalette::Active, QPalette::ButtonText},
    {COLOR_INFOTEXT, QPalette::Active, QPalette::ToolTipText},
    {COLOR_INFOBK, QPalette::Active, QPalette::ToolTipBase},
};

constexpr int SunkenEdge = 2;       // of a border of the style's own
constexpr int DoubleClickReach = 4; // how far apart two presses of a double click may be

// The color of lines and of frames. The shadows of a dark palette are darker than its ground, where nobody
// sees them.
COLORREF ShadowColor() {
    constexpr int MiddleLightness = 128;
    const QPalette palette = QApplication::palette();
    const QColor ground = palette.color(QPalette::Active, QPalette::Base);
    const COLORREF text = FromQColor(palette.color(QPalette::Active, QPalette::Text));
    return ground.lightness() < MiddleLightness ? Mix(FromQColor(ground), text, 1, 3)
                                                : FromQColor(palette.color(QPalette::Active, QPalette::Mid));
}

int ArrowWidth() {
    QStyleOptionComboBox box;
    box.editable = true;
    box.rect = {0, 0, 200, QFontMetrics(QApplication::font()).height() + 8};
    return QApplication::style()->subControlRect(QStyle::CC_ComboBox, &box, QStyle::SC_ComboBoxArrow).width();
}

QSize ScreenSize() {
    const QScreen* screen = QApplication::primaryScreen();
    return screen ? screen->geometry().size() : QSize();
}

} // namespace

COLORREF SystemColor(int index) {
    if (index == COLOR_BTNSHADOW)
        return ShadowColor();
    for (const ColorRow& row : Colors)
        if (row.index == index)
            return FromQColor(QApplication::palette().color(row.group, row.role));
    return 0;
}

int SystemMetric(int index) {
    switch (index) {
    case SM_CXSCREEN:
        return ScreenSize().width();
    case SM_CYSCREEN:
        return ScreenSize().height();
    case SM_CXVSCROLL:
    case SM_CYHSCROLL:
    case SM_CXHSCROLL:
        return QApplication::style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    case SM_CXEDGE:
    case SM_CYEDGE:
        return SunkenEdge;
    case SM_CXDOUBLECLK:
        return DoubleClickReach;
    case SM_KORVEL_TEXTHEIGHT:
        return QFontMetrics(QApplication::font()).height();
    case SM_KORVEL_TABHEIGHT:
        return QFontMetrics(QApplication::font()).height() +
               QApplication::style()->pixelMetric(QStyle::PM_TabBarTabVSpace);
    case SM_KORVEL_ARROWWIDTH:
        return ArrowWidth();
    default:
        return 0;
    }
}

std::vector<CRect> ScreenRectangles() {
    std::vector<CRect> rectangles;
    for (const QScreen* screen : QGuiApplication::screens())
        rectangles.push_back(FromQRect(screen->availableGeometry()));
    return rectangles;
}

int TextWidth(const CString& text) {
    return QFontMetrics(QApplication::font()).horizontalAdvance(ToQString(text));
}

} // namespace korvel::internal
