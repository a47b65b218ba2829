#include "gallery/ground.h"

#include <QApplication>
#include <QPalette>

namespace korvel::gallery {
namespace {

struct Colors {
    const char* name;
    QRgb window;
    QRgb base;
    QRgb button;
    QRgb text;
    QRgb disabled;
};

constexpr Colors Light = {"light", 0xF0F0F0, 0xFFFFFF, 0xF0F0F0, 0x000000, 0x787878};
constexpr Colors Dark = {"dark", 0x353535, 0x232323, 0x404040, 0xF0F0F0, 0x8C8C8C};
constexpr QRgb Highlight = 0x2A6FC9;

const Colors& ColorsOf(Ground ground) {
    return ground == Ground::Light ? Light : Dark;
}

} // namespace

QString NameOf(Ground ground) {
    return QString::fromLatin1(ColorsOf(ground).name);
}

void UseGround(Ground ground) {
    const Colors& colors = ColorsOf(ground);
    const QColor window = colors.window;
    const QColor base = colors.base;
    const QColor text = colors.text;
    const QColor disabled = colors.disabled;
    QPalette palette(text, QColor(colors.button), window.lighter(120), window.darker(160), window.darker(120),
                     text, text, base, window);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, disabled);
    palette.setColor(QPalette::PlaceholderText, disabled);
    palette.setColor(QPalette::Highlight, QColor(Highlight));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::ToolTipBase, base);
    palette.setColor(QPalette::ToolTipText, text);
    QApplication::setPalette(palette);
}

} // namespace korvel::gallery
