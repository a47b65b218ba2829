#include "korvel/qt/date_peer.h"

#include "korvel/platform/calendar.h"
#include "korvel/qt/convert.h"
#include "korvel/qt/date_edit.h"
#include "korvel/qt/keys.h"
#include "korvel/qt/peer_context.h"
#include "korvel/window/base/control_messages.h"
#include "korvel/window/core/input.h"
#include "korvel/window/core/window.h"
#include "korvel/window/display/window_view.h"

#include <QCalendarWidget>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <algorithm>
#include <limits>

namespace korvel::internal {

namespace {

QDateTime ToDateTime(double date) {
    const auto fields = platform::FieldsFromDate(date).value_or(platform::CalendarFields());
    return QDateTime(QDate(fields.year, fields.month, fields.day),
                     QTime(fields.hour, fields.minute, fields.second), Qt::UTC); // no hour is left out
}

double FromDateTime(const QDateTime& moment) {
    const QDate date = moment.date();
    const QTime time = moment.time();
    return platform::DateFromFields(
               {date.year(), date.month(), date.day(), time.hour(), time.minute(), time.second()})
        .value_or(0);
}

// A run of one letter of a picture in the letters of Qt.
QString ToQtRun(QChar letter, qsizetype count) {
    switch (letter.unicode()) {
    case 't':
        return QStringLiteral("AP");
    case 'y':
        return count > 2 ? QStringLiteral("yyyy") : QStringLiteral("yy");
    case 'd':
    case 'M':
        return QString(std::min<qsizetype>(count, 4), letter);
    case 'h':
    case 'H':
    case 'm':
    case 's':
        return QString(std::min<qsizetype>(count, 2), letter);
    default:
        return letter.isLetter() ? u'\'' + QString(count, letter) + u'\'' : QString(count, letter);
    }
}

QString ToQtPicture(const QString& picture) {
    QString format;
    bool isQuoted = false;
    for (qsizetype at = 0; at < picture.size();) {
        qsizetype end = at + 1;
        if (isQuoted || picture[at] == u'\'') {
            isQuoted ^= picture[at] == u'\'';
            format += picture[at];
        } else {
            while (end < picture.size() && picture[end] == picture[at])
                ++end;
            format += ToQtRun(picture[at], end - at);
        }
        at = end;
    }
    return isQuoted ? format + u'\'' : format;
}

DateEdit& MakeEdit(HWND window, QWidget* parent) {
    const UINT style = view::Style(window);
    auto* edit = new DateEdit(style & DTS_SHOWNONE ? DateEdit::Box::HasDate : DateEdit::Box::None, parent);
    edit->setTimeSpec(Qt::UTC);
    edit->setCalendarPopup(!(style & DTS_UPDOWN));
    edit->setWrapping(true);
    return *edit;
}

} // namespace

DatePeer::DatePeer(PeerContext& context, HWND window, QWidget* parent)
    : DatePeer(context, window, MakeEdit(window, parent)) {}

DatePeer::DatePeer(PeerContext& context, HWND window, DateEdit& edit)
    : Peer(context, window, edit, edit), m_edit(edit) {
    Watch(m_edit.Line());
    connect(&m_edit, &QDateTimeEdit::dateTimeChanged, this, [this] { Report(); });
    if (m_edit.HasDateBox())
        connect(m_edit.HasDateBox(), &QCheckBox::clicked, this, [this] { Report(); });
}

void DatePeer::Apply(Aspects aspects) {
    Peer::Apply(aspects);
    if (aspects & (Aspect::State | Aspect::Text))
        ShowState();
}

void DatePeer::ShowState() {
    const QScopedValueRollback showing(m_isShowing, true);
    const view::DateView view = view::Date(Window());
    const QString format = ToQtPicture(ToQString(view.picture));
    if (m_edit.displayFormat() != format)
        m_edit.setDisplayFormat(format);
    m_edit.setDateTimeRange(ToDateTime(view.first), ToDateTime(view.last));
    if (m_edit.dateTime() != ToDateTime(view.date)) // which would end what is being typed
        m_edit.setDateTime(ToDateTime(view.date));
    m_edit.ShowAsNone(view.isNone);
    FollowCalendar(view.isDropped);
}

void DatePeer::FollowCalendar(bool isDropped) {
    QWidget* calendar = m_edit.Calendar();
    if (!calendar || calendar->isVisible() == isDropped)
        return;
    if (!isDropped)
        return calendar->hide();
    WatchCalendar();
    m_edit.OpenCalendar();
}

// The signals also come for what ShowState sets, which is no news.
void DatePeer::Report() {
    if (m_isShowing || !Window())
        return;
    const Busy busy(*this);
    const bool isNone = m_edit.HasDateBox() && !m_edit.HasDateBox()->isChecked();
    input::Value(Window(),
                 isNone ? std::numeric_limits<double>::quiet_NaN() : FromDateTime(m_edit.dateTime()));
}

void DatePeer::WatchCalendar() {
    Watch(*m_edit.Calendar());
    Watch(*m_edit.calendarWidget()->focusProxy());
}

// The window opens and closes the calendar, and brings the date back; the rest is Qt's.
bool DatePeer::OnCalendarKey(const QKeyEvent& event) {
    const KeyInput key = TranslateKey(event);
    return input::Key(Window(), key.message, key.key, key.characters);
}

bool DatePeer::OnEvent(QWidget& widget, QEvent& event) {
    if (event.type() == QEvent::MouseButtonPress && m_edit.Calendar())
        WatchCalendar(); // the press may open it
    if (&widget == &m_edit || &widget == &m_edit.Line())
        return Peer::OnEvent(widget, event) || (event.type() == QEvent::Wheel && GetFocus() != Window());
    if (&widget != m_edit.Calendar())
        return event.type() == QEvent::KeyPress && OnCalendarKey(static_cast<QKeyEvent&>(event));
    if (event.type() == QEvent::Hide)
        Context().focus.ExpectActivation(*m_edit.window()); // a popup may have been the active window
    if ((event.type() == QEvent::Show || event.type() == QEvent::Hide) && !m_isShowing)
        input::Dropped(Window(), event.type() == QEvent::Show);
    return false;
}

} // namespace korvel::internal
