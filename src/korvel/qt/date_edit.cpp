#include "korvel/qt/date_edit.h"

#include <QCalendarWidget>
#include <QEvent>
#include <QLineEdit>
#include <QMouseEvent>

namespace korvel::internal {

namespace {

constexpr int BoxInset = 4;

} // namespace

DateEdit::DateEdit(Box box, QWidget* parent) : QDateTimeEdit(parent) {
    if (box == Box::None)
        return;
    m_box = new QCheckBox(this);
    m_box->setFocusPolicy(Qt::NoFocus);
    lineEdit()->setTextMargins(m_box->sizeHint().width() + BoxInset, 0, 0, 0);
    m_box->raise();
}

QWidget& DateEdit::Line() const {
    return *lineEdit();
}

QWidget* DateEdit::Calendar() const {
    const QCalendarWidget* calendar = calendarPopup() ? calendarWidget() : nullptr;
    return calendar ? calendar->window() : nullptr;
}

// Qt opens it for a press on its button only.
void DateEdit::OpenCalendar() {
    const QPointF button(width() - 2.0 * BoxInset, height() / 2.0);
    QMouseEvent press(QEvent::MouseButtonPress, button, mapToGlobal(button), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    mousePressEvent(&press);
}

void DateEdit::ShowAsNone(bool isNone) {
    setReadOnly(isNone);
    QPalette colors;
    if (isNone)
        colors.setColor(QPalette::Text, colors.color(QPalette::Disabled, QPalette::Text));
    lineEdit()->setPalette(colors);
    if (m_box)
        m_box->setChecked(!isNone);
}

void DateEdit::resizeEvent(QResizeEvent* event) {
    QDateTimeEdit::resizeEvent(event);
    if (m_box)
        m_box->setGeometry(BoxInset, 1, m_box->sizeHint().width(), height() - 2);
}

} // namespace korvel::internal
