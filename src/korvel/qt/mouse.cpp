#include "korvel/qt/mouse.h"

#include "korvel/qt/convert.h"
#include "korvel/window/base/messages.h"
#include "korvel/window/core/input.h"

#include <QApplication>
#include <QCursor>
#include <QWheelEvent>
#include <utility>

namespace korvel::internal {

namespace {

struct ButtonMessage {
    QEvent::Type type;
    Qt::MouseButton button;
    UINT message;
};

// Only the left button has double clicks in the window model; a second press of another is one more press.
constexpr ButtonMessage ButtonMessages[] = {
    {QEvent::MouseButtonPress, Qt::LeftButton, WM_LBUTTONDOWN},
    {QEvent::MouseButtonRelease, Qt::LeftButton, WM_LBUTTONUP},
    {QEvent::MouseButtonDblClick, Qt::LeftButton, WM_LBUTTONDBLCLK},
    {QEvent::MouseButtonPress, Qt::RightButton, WM_RBUTTONDOWN},
    {QEvent::MouseButtonRelease, Qt::RightButton, WM_RBUTTONUP},
    {QEvent::MouseButtonDblClick, Qt::RightButton, WM_RBUTTONDOWN},
    {QEvent::MouseButtonPress, Qt::MiddleButton, WM_MBUTTONDOWN},
    {QEvent::MouseButtonDblClick, Qt::MiddleButton, WM_MBUTTONDOWN},
};

constexpr ButtonMessage OutsideMessages[] = {
    {QEvent::MouseButtonPress, Qt::LeftButton, WM_NCLBUTTONDOWN},
    {QEvent::MouseButtonPress, Qt::RightButton, WM_NCRBUTTONDOWN},
    {QEvent::MouseButtonPress, Qt::MiddleButton, WM_NCMBUTTONDOWN},
};

UINT MessageOf(const QMouseEvent& event) {
    if (event.type() == QEvent::MouseMove)
        return WM_MOUSEMOVE;
    for (const ButtonMessage& row : ButtonMessages)
        if (row.type == event.type() && row.button == event.button())
            return row.message;
    return 0;
}

UINT FlagsOf(Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers) {
    return (buttons.testFlag(Qt::LeftButton) ? MK_LBUTTON : 0) |
           (buttons.testFlag(Qt::RightButton) ? MK_RBUTTON : 0) |
           (buttons.testFlag(Qt::MiddleButton) ? MK_MBUTTON : 0) |
           (modifiers.testFlag(Qt::ShiftModifier) ? MK_SHIFT : 0) |
           (modifiers.testFlag(Qt::ControlModifier) ? MK_CONTROL : 0);
}

} // namespace

bool Mouse::Deliver(const Target& target, const QEvent& event) {
    if (event.type() == QEvent::Leave)
        return Send(target, WM_MOUSELEAVE, 0, QCursor::pos(), 0);
    if (event.type() == QEvent::Wheel) {
        const auto& wheel = static_cast<const QWheelEvent&>(event);
        const UINT flags = FlagsOf(wheel.buttons(), wheel.modifiers());
        return Send(target, WM_MOUSEWHEEL, flags, wheel.globalPosition().toPoint(), wheel.angleDelta().y());
    }
    const auto& button = static_cast<const QMouseEvent&>(event);
    const UINT message = MessageOf(button);
    if (!message)
        return false;
    return Send(target, message, FlagsOf(button.buttons(), button.modifiers()),
                button.globalPosition().toPoint(), 0);
}

void Mouse::ReportPressOutside(const Target& target, const QEvent& event) {
    if (event.type() != QEvent::MouseButtonPress && event.type() != QEvent::NonClientAreaMouseButtonPress)
        return;
    const auto& press = static_cast<const QMouseEvent&>(event);
    for (const ButtonMessage& row : OutsideMessages) {
        if (row.button == press.button())
            Send(target, row.message, FlagsOf(press.buttons(), press.modifiers()),
                 press.globalPosition().toPoint(), 0);
    }
}

bool Mouse::Send(const Target& target, UINT message, UINT flags, QPoint screen, int wheel) {
    const auto formerPosition = std::exchange(m_position, screen);
    const auto formerUnder = std::exchange(m_under, target.showsWindowCursor ? &target.content : nullptr);
    const CPoint point = FromQPoint(target.content.mapFromGlobal(screen));
    const bool consumed = input::Mouse(target.window, message, flags, point, wheel);
    m_position = formerPosition;
    m_under = formerUnder;
    return consumed;
}

QPoint Mouse::Position() const {
    return m_position.value_or(QCursor::pos());
}

Mouse::~Mouse() {
    ShowWaiting(false);
}

// The user waits wherever the pointer is, and work that a key has begun comes without a mouse event.
void Mouse::ShowWaiting(bool waiting) {
    if (std::exchange(m_isWaiting, waiting) == waiting)
        return;
    if (waiting)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QGuiApplication::restoreOverrideCursor();
}

void Mouse::SetCursor(int cursor) {
    ShowWaiting(cursor == IDC_WAIT);
    if (!m_under)
        return;
    if (cursor == IDC_SIZEWE)
        m_under->setCursor(Qt::SplitHCursor);
    else
        m_under->unsetCursor();
}

} // namespace korvel::internal
