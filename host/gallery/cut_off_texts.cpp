#include "gallery/cut_off_texts.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QLabel>
#include <QRadioButton>
#include <QStyleOptionButton>

namespace korvel::gallery {
namespace {

// Beside the box or circle that some buttons have.
int RoomForText(const QAbstractButton& button) {
    const auto part = qobject_cast<const QCheckBox*>(&button)      ? QStyle::SE_CheckBoxContents
                      : qobject_cast<const QRadioButton*>(&button) ? QStyle::SE_RadioButtonContents
                                                                   : QStyle::SE_PushButtonContents;
    QStyleOptionButton option;
    option.initFrom(&button);
    return button.style()->subElementRect(part, &option, &button).width();
}

bool IsCutOff(const QAbstractButton& button) {
    const QString text = button.text().remove(QLatin1Char('&'));
    const int icon = button.icon().isNull() ? 0 : button.iconSize().width();
    return button.fontMetrics().horizontalAdvance(text) + icon > RoomForText(button) ||
           button.fontMetrics().height() > button.height();
}

bool IsCutOff(const QLabel& label) {
    if (label.wordWrap())
        return label.heightForWidth(label.width()) > label.height();
    return label.sizeHint().height() > label.height() || label.sizeHint().width() > label.width();
}

template <class Widget>
QStringList CutOffTextsOf(const QWidget& window) {
    QStringList texts;
    for (const Widget* widget : window.findChildren<Widget*>())
        if (widget->isVisible() && !widget->text().isEmpty() && IsCutOff(*widget))
            texts += widget->text();
    return texts;
}

} // namespace

QStringList CutOffTexts(const QWidget& window) {
    return CutOffTextsOf<QAbstractButton>(window) + CutOffTextsOf<QLabel>(window);
}

} // namespace korvel::gallery
