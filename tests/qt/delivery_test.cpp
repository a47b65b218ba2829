#include "korvel/platform/error.h"
#include "korvel/qt/convert.h"
#include "korvel/window/controls/edit.h"
#include "korvel/window/core/exception_handler.h"
#include "korvel/window/core/serve_sends.h"
#include "korvel/window/display/window_view.h"
#include "korvel/window/list/list_ctrl.h"
#include "qt/users.h"
#include "support/table.h"

#include <QDeadlineTimer>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QTimer>
#include <QWheelEvent>
#include <atomic>
#include <gmock/gmock.h>
#include <thread>

namespace korvel::test {

namespace {

using testing::Contains;
using testing::Not;

// A frame with an edit and a surface on a desktop.
class Delivery : public testing::Test {
protected:
    Delivery() {
        m_frame.CreateEx(0, "KorvelFrame", "Delivery", WS_OVERLAPPEDWINDOW | WS_VISIBLE, {40, 40, 340, 240},
                         nullptr, 0);
        m_edit.CreateEx(0, "EDIT", "", WS_CHILD | WS_VISIBLE, {10, 10, 120, 34}, &m_frame, 1);
        m_surface.CreateEx(0, "KorvelFrame", "", WS_CHILD | WS_VISIBLE, {10, 40, 120, 80}, &m_frame, 2);
        EXPECT_TRUE(QTest::qWaitForWindowActive(m_user.Widget(m_frame.m_hWnd)));
        SetFocus(m_edit.m_hWnd);
        m_log.clear();
    }

    QtUser m_user;
    Log m_log;
    RecordedWindow m_frame{"frame", m_log};
    RecordedWindow m_edit{"edit", m_log};
    RecordedWindow m_surface{"surface", m_log};
};

TEST_F(Delivery, KeysComeBeforeTheShortcutsOfTheHostUnlessControlOrAltIsHeld) {
    SetFocus(m_surface.m_hWnd);
    for (const auto& [border, key, modifiers, accepted] :
         Table<Qt::Key, Qt::KeyboardModifiers, bool>{{"F2", Qt::Key_F2, Qt::NoModifier, true},
                                                     {"Delete", Qt::Key_Delete, Qt::ShiftModifier, true},
                                                     {"Control and O", Qt::Key_O, Qt::ControlModifier, false},
                                                     {"Alt and F", Qt::Key_F, Qt::AltModifier, false}}) {
        QKeyEvent event(QEvent::ShortcutOverride, key, modifiers);
        event.ignore();
        QApplication::sendEvent(m_user.Widget(m_surface.m_hWnd), &event);
        EXPECT_EQ(event.isAccepted(), accepted) << border;
    }
}

TEST_F(Delivery, AnInputMethodChangesTheTextWithoutCharacters) {
    CEdit lines;
    lines.Create(WS_CHILD | WS_VISIBLE | ES_MULTILINE, {10, 90, 120, 140}, &m_frame, 1);
    for (const HWND edit : {m_edit.m_hWnd, lines.m_hWnd})
        for (const auto& [border, limit, text, full, changes] : // the notices of the parent
             Table<WPARAM, const char*, int, int>{{"all fits", 0, "1\xEA\x81\xE2\xE2\x32", 0, 1},
                                                  {"one fits", 5, "1\xEA\x32", 1, 1},
                                                  {"none fits", 2, "12", 1, 0}}) {
            SCOPED_TRACE(border);
            SetWindowTextA(edit, "12");
            SendMessageA(edit, EM_LIMITTEXT, limit, 0);
            SendMessageA(edit, EM_SETSEL, 1, 1);
            SetFocus(edit);
            QTest::keyClick(m_user.Widget(edit), Qt::Key_Z, Qt::ControlModifier); // takes nothing back
            m_log.clear();
            QInputMethodEvent event;
            event.setCommitString(QStringLiteral("\u00ea\u0142"));
            QApplication::sendEvent(m_user.Widget(edit), &event);
            EXPECT_EQ(GetWindowTextA(edit), text);
            EXPECT_EQ(m_user.Widget(edit)->inputMethodQuery(Qt::ImSurroundingText).toString(),
                      internal::ToQString(text))
                << "the widget shows what memory holds";
            EXPECT_EQ(std::ranges::count(m_log, "frame command 1281 of 1"), full);
            EXPECT_EQ(std::ranges::count(m_log, "frame command 768 of 1"), changes);
            EXPECT_THAT(m_log, Not(Contains(testing::HasSubstr("char"))));
        }
}

TEST_F(Delivery, SelectionsTravelBothWays) {
    // `end` after Shift and Right
    for (const auto& [border, style, text, start, end, selected, endAfter] :
         Table<UINT, const char*, int, int, QString, int>{
             {"bytes", ES_AUTOHSCROLL, "12345", 1, 3, QStringLiteral("23"), 4},
             {"a sequence and a pair", ES_AUTOHSCROLL, "1\x81\xE2\xE1\x9D\xE1\xFD\xF0\xE0", 1, 4,
              QStringLiteral("\u0141"), 9},
             {"after a line break", ES_MULTILINE, "\x81\xE2\xE1\r\n\x9D\xE1\xFD\xF0\xE0\x35", 5, 10,
              QStringLiteral("\U0001F600"), 11}}) {
        SCOPED_TRACE(border);
        CEdit edit;
        edit.Create(WS_CHILD | WS_VISIBLE | style, {10, 90, 120, 140}, &m_frame, 3);
        edit.SetFocus();
        edit.SetWindowTextA(text);
        edit.SetSel(start, end);
        QWidget* widget = m_user.Widget(edit.m_hWnd);
        EXPECT_EQ(widget->inputMethodQuery(Qt::ImCurrentSelection).toString(), selected);
        QTest::keyClick(widget, Qt::Key_Right, Qt::ShiftModifier);
        EXPECT_EQ(view::Edit(edit.m_hWnd).selectionStart, start);
        EXPECT_EQ(view::Edit(edit.m_hWnd).selectionEnd, endAfter);
    }
}

TEST_F(Delivery, WhatTheUserDoesLeavesTheRestOfATextAsItIs) {
    struct Case {
        const char* name;
        CString text;
    };
    const Case cases[] = {
        {"no-break space", "1\xA0\x30\x30"},
        {"line feed", "a\nb"},
        {"carriage return", "a\rb"},
        {"line break", "a\r\nb\r\n"},
        {"line separator", internal::FromQString(QStringLiteral("a\u2028b"))},
        {"paragraph separator", internal::FromQString(QStringLiteral("a\u2029b"))},
        {"byte order mark", internal::FromQString(QStringLiteral("\ufeff12"))},
    };
    for (const Case& row : cases)
        for (const UINT style : {ES_AUTOHSCROLL, ES_MULTILINE})
            for (const int room : {0, -1}) {
                SCOPED_TRACE(row.name);
                CEdit edit;
                edit.Create(WS_CHILD | WS_VISIBLE | style, {10, 90, 120, 140}, &m_frame, 3);
                edit.SetFocus();
                edit.SetWindowTextA(row.text);
                edit.LimitText(static_cast<int>(row.text.size()) + room);
                m_log.clear();
                QWidget* widget = m_user.Widget(edit.m_hWnd);
                QTest::keyClick(widget, Qt::Key_Right, Qt::ShiftModifier);
                QTest::keyClick(widget, Qt::Key_End, Qt::ControlModifier);
                QTest::keyClick(widget, Qt::Key_End);
                EXPECT_EQ(edit.GetWindowTextA(), row.text);
                EXPECT_FALSE(edit.GetModify());
                EXPECT_THAT(m_log, Not(Contains(testing::HasSubstr("command"))));

                edit.LimitText(0);
                QTest::keyClick(widget, 'x');
                EXPECT_EQ(edit.GetWindowTextA(), row.text + "x");
                edit.SetSel(0, 0);
                m_log.clear();
                QTest::keyClick(widget, Qt::Key_Z, Qt::ControlModifier);
                EXPECT_EQ(edit.GetWindowTextA(), row.text) << "the widget still knows what to take back";
                EXPECT_EQ(std::ranges::count(m_log, "frame command 1024 of 3"), 1);
                EXPECT_EQ(std::ranges::count(m_log, "frame command 768 of 3"), 2);
            }
}

TEST_F(Delivery, WhatHandlersThrowGoesToOneHandlerAndNeverThroughQt) {
    Log failures;
    SetExceptionHandler([&](const CString& text) { failures.push_back(text); });
    for (const UINT message : {WM_LBUTTONDOWN, WM_PAINT, WM_TIMER, WM_USER})
        m_surface.on[message] = [=] { throw Error(std::to_string(message)); };
    m_user.Click(m_surface.m_hWnd, {5, 5});
    m_user.Widget(m_surface.m_hWnd)->repaint();
    SetTimer(m_surface.m_hWnd, 1, 1);
    PostMessageA(m_surface.m_hWnd, WM_USER, 0, 0);
    for (const UINT message : {WM_LBUTTONDOWN, WM_PAINT, WM_TIMER, WM_USER})
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return std::ranges::count(failures, std::to_string(message)) > 0; }, 2000))
            << message;
    KillTimer(m_surface.m_hWnd, 1);
    m_surface.on.clear();
    SetExceptionHandler(nullptr);
}

TEST_F(Delivery, AWindowThatChangesIsPaintedAgain) {
    int paints = 0;
    m_surface.on[WM_PAINT] = [&] { ++paints; };
    for (const auto& [border, change] :
         Table<std::function<void()>>{{"invalid", [&] { m_surface.Invalidate(); }},
                                      {"switched off", [&] { m_surface.EnableWindow(false); }},
                                      {"another text", [&] { m_surface.SetWindowTextA("new"); }}}) {
        QTest::qWait(1);
        paints = 0;
        change();
        EXPECT_TRUE(QTest::qWaitFor([&] { return paints > 0; })) << border;
    }
}

TEST_F(Delivery, AFailureOfPaintingIsShownWhenThePaintingIsOver) {
    int paints = 0;
    m_surface.on[WM_PAINT] = [&] { ++paints == 1 ? throw Error("paint") : 0; };
    m_user.Widget(m_surface.m_hWnd)->repaint();
    EXPECT_EQ(paints, 1);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    bool isAnswered = false;
    QTimer::singleShot(
        50, qApp,
        [&] {
            QWidget* box = QApplication::activeModalWidget();
            ASSERT_NE(box, nullptr);
            QTest::keyClick(box, Qt::Key_Escape);
            isAnswered = true;
        });
    EXPECT_TRUE(QTest::qWaitFor([&] { return isAnswered; }, 2000));
}

TEST_F(Delivery, WindowsMayEndInALoopInsideTheirOwnEvents) {
    RecordedWindow dialog("dialog", m_log);
    dialog.CreateEx(0, "KorvelFrame", "", WS_POPUP | WS_VISIBLE, {60, 60, 160, 160}, &m_frame, 0);
    const auto runWhenPressed = [this](RecordedWindow& window, std::function<void()> step) {
        window.on[WM_LBUTTONDOWN] = [=, this] {
            bool done = false;
            m_user.WhenIdle([&] {
                step();
                QTest::qWait(5); // what was to be deleted later is deleted, if nothing holds it
                done = true;
            });
            Display().RunUntil(
                nullptr, [&] { return done; });
        };
    };
    runWhenPressed(
        m_surface, [&] { QTest::mouseClick(m_user.Widget(dialog.m_hWnd), Qt::LeftButton); });
    runWhenPressed(dialog, [&] { m_frame.DestroyWindow(); });
    m_user.Click(m_surface.m_hWnd, {5, 5});
    EXPECT_EQ(m_surface.m_hWnd, nullptr);
    EXPECT_EQ(dialog.m_hWnd, nullptr);
}

TEST_F(Delivery, AnotherThreadIsAnsweredByWhateverLoopRuns) {
    std::atomic<bool> isRead = false;
    QDeadlineTimer limit;
    const auto isOver = [&] { return isRead || limit.hasExpired(); };
    for (const auto& [border, run] : Table<std::function<void()>>{
             {"the desktop's", [&] { EXPECT_TRUE(QTest::qWaitFor(isOver)); }},
             {"a dialog's", [&] { Display().RunUntil(nullptr, isOver); }},
             {"a box's", [&] { MessageBoxA(m_frame.m_hWnd, "text", "caption", MB_OK); }},
             {"a menu's", [&] {
                  Display().TrackMenu(m_frame.m_hWnd, {50, 50},
                                      {MenuEntry{.text = "entry", .command = 1, .popup = {}}});
              }}}) {
        m_edit.SetWindowTextA(border);
        isRead = false;
        QTimer poll;
        limit.setRemainingTime(2000);
        QObject::connect(&poll, &QTimer::timeout, [&] {
            QWidget* popup = QApplication::activePopupWidget();
            QWidget* shown = popup ? popup : QApplication::activeModalWidget();
            if (shown && isOver())
                shown->close();
        });
        poll.start(1);
        CString text;
        std::thread reader([&] {
            text = korvel::GetWindowTextA(m_edit.m_hWnd);
            isRead = true;
        });
        run();
        const bool wasRead = isRead;
        ServeSendsUntil([&] { return isRead.load(); });
        reader.join();
        EXPECT_TRUE(wasRead) << border;
        EXPECT_EQ(text, border);
    }
}

TEST_F(Delivery, AWindowClosesWhenItsHandlersLetItAndTheLastOneEndsTheApplication) {
    QApplication::setQuitOnLastWindowClosed(true);
    m_frame.answer[WM_CLOSE] = 0;
    QTimer::singleShot(0, qApp, [&] {
        m_user.Widget(m_frame.m_hWnd)->close();
        EXPECT_TRUE(m_user.Widget(m_frame.m_hWnd)->isVisible());
        m_frame.answer.clear();
        m_user.Widget(m_frame.m_hWnd)->close();
        EXPECT_EQ(m_frame.m_hWnd, nullptr);
    });
    QTimer tooLate;
    QObject::connect(&tooLate, &QTimer::timeout, [] { QApplication::exit(1); });
    tooLate.start(2000);
    EXPECT_EQ(QApplication::exec(), 0);
    QApplication::setQuitOnLastWindowClosed(false);
}

TEST_F(Delivery, AListScrollsByItsBarsAndTheyFollowIt) {
    class : public CListCtrl {
    public:
        int pressesOutside = 0;
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            pressesOutside += message == WM_NCLBUTTONDOWN;
            return CListCtrl::WindowProc(message, wParam, lParam);
        }
    } list;
    list.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, {130, 10, 290, 190}, &m_frame, 3);
    list.InsertColumn(0, "Name", 400);
    for (int row = 0; row < 100; ++row)
        list.InsertItem(row, "row");
    const QList<QScrollBar*> bars = m_user.Widget(list.m_hWnd)->parentWidget()->findChildren<QScrollBar*>();
    const auto bar = [&](Qt::Orientation orientation) {
        return *std::ranges::find(bars, orientation, &QScrollBar::orientation);
    };
    QScrollBar* down = bar(Qt::Vertical);
    ASSERT_TRUE(down->isVisible() && bar(Qt::Horizontal)->isVisible());
    QTest::mouseClick(down, Qt::LeftButton, Qt::NoModifier, {3, 3});
    EXPECT_EQ(list.pressesOutside, 1) << "closes what dropped down over the list";
    down->setValue(40);
    EXPECT_EQ(list.GetTopIndex(), 40);
    list.EnsureVisible(0, false);
    EXPECT_EQ(down->value(), 0);
    EXPECT_EQ(down->maximum(), 100 - list.GetCountPerPage());
    bar(Qt::Horizontal)->setValue(30);
    EXPECT_EQ(view::Scroll(list.m_hWnd).x, 30);
    CEdit cell;
    cell.Create(WS_CHILD | WS_VISIBLE, {0, 40, 60, 60}, &list, 4);
    QWheelEvent notch({5, 5}, m_user.Widget(cell.m_hWnd)->mapToGlobal(QPointF(5, 5)), {}, {0, -120},
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&notch); // Qt hands on only what the user does
    qApp->notify(m_user.Widget(cell.m_hWnd), &notch);
    EXPECT_EQ(list.GetTopIndex(), 3) << "hears once of a wheel that turns over its child";
}

TEST(Display, LeavesTheFocusToTheWindowsThatOutliveIt) {
    CWnd frame;
    CEdit edit;
    {
        const QtUser user;
        frame.CreateEx(0, "KorvelFrame", "", WS_VISIBLE, {40, 40, 340, 240}, nullptr, 0);
        edit.Create(WS_CHILD | WS_VISIBLE, {10, 10, 120, 34}, &frame, 1);
        EXPECT_TRUE(QTest::qWaitForWindowActive(user.Widget(frame.m_hWnd)));
        SetFocus(edit.m_hWnd);
    }
    EXPECT_EQ(GetFocus(), edit.m_hWnd);
}

} // namespace

} // namespace korvel::test
