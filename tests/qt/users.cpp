#include "qt/users.h"

#include "korvel/qt/convert.h"

#include <QAbstractButton>
#include <QMenu>
#include <QMessageBox>
#include <QTimer>
#include <gtest/gtest.h>

namespace korvel::test {

namespace {

Qt::Key ToQtKey(UINT key) {
    static const std::map<UINT, Qt::Key> keys = {
        {VK_BACK, Qt::Key_Backspace}, {VK_DELETE, Qt::Key_Delete}, {VK_LEFT, Qt::Key_Left},
        {VK_DOWN, Qt::Key_Down},      {VK_END, Qt::Key_End},       {VK_RETURN, Qt::Key_Return},
        {VK_SPACE, Qt::Key_Space},    {VK_TAB, Qt::Key_Tab},       {VK_ESCAPE, Qt::Key_Escape},
        {VK_UP, Qt::Key_Up},          {VK_F4, Qt::Key_F4},
    };
    const auto found = keys.find(key);
    return found != keys.end() ? found->second : static_cast<Qt::Key>(key); // letters and digits are the same
}

// A box or menu is shown later, so the attempt is repeated until there is one.
void TryUntil(const std::function<bool()>& attempt) {
    QTimer::singleShot(
        1, qApp,
        [attempt] {
            if (!attempt())
                TryUntil(attempt);
        });
}

} // namespace

void QtUser::Key(UINT key, const CString& characters) {
    WaitForFocus();
    for (const auto action : {QTest::Press, QTest::Release})
        if (QWidget* widget = QApplication::focusWidget()) // another one when the press moved the focus
            QTest::sendKeyEvent(action, widget, ToQtKey(key), internal::ToQString(characters),
                                Qt::NoModifier);
}

void QtUser::Click(HWND window, CPoint point) {
    WaitForFocus();
    QTest::mouseClick(Widget(window), Qt::LeftButton, Qt::NoModifier, {point.x, point.y});
}

void QtUser::WhenIdle(std::function<void()> step) {
    QTimer::singleShot(0, qApp, std::move(step));
}

void QtUser::AnswerBox(int button) {
    TryUntil([button] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box)
            box->button(button == IDYES ? QMessageBox::Yes : QMessageBox::No)->click();
        return box != nullptr;
    });
}

void QtUser::AnswerMenu(unsigned command) {
    TryUntil([command] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        for (QAction* action : menu ? menu->actions() : QList<QAction*>()) {
            if (action->data().toUInt() != command)
                continue;
            menu->setActiveAction(action);
            QTest::keyClick(menu, Qt::Key_Return);
        }
        return menu != nullptr;
    });
}

void QtUser::WaitForFocus() const {
    QApplication::processEvents();
    const bool followed = QTest::qWaitFor(
        [this] { return !GetFocus() || QApplication::focusWidget() == Widget(GetFocus()); }, 2000);
    EXPECT_TRUE(followed) << "the focus of the desktop is not where the window model has it";
}

} // namespace korvel::test
