#include "korvel/qt/embed.h"
#include "korvel/window/controls/combo_box.h"
#include "qt/users.h"
#include "support/dialog_fixture.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAction>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>

namespace korvel::test {

namespace {

enum Id { Label = 10, Name, Check, Frame, Red, Green };
constexpr UINT Stop = WS_TABSTOP;

constexpr DialogItem Items[] = {
    {"STATIC", "&Name:", Label, 0, {7, 9, 40, 8}},
    {"EDIT", "", Name, Stop | WS_BORDER | ES_AUTOHSCROLL, {50, 7, 120, 14}},
    {"BUTTON", "&Closed", Check, Stop | BS_AUTOCHECKBOX, {7, 25, 80, 12}},
    {"BUTTON", "&Style", Frame, BS_GROUPBOX, {7, 40, 160, 30}},
    {"BUTTON", "Red", Red, Stop | WS_GROUP | BS_AUTORADIOBUTTON, {12, 50, 50, 12}},
    {"BUTTON", "&Green", Green, BS_AUTORADIOBUTTON, {70, 50, 50, 12}},
    {"BUTTON", "OK", IDOK, Stop | WS_GROUP | BS_DEFPUSHBUTTON, {66, 75, 50, 14}},
    {"BUTTON", "Cancel", IDCANCEL, Stop, {120, 75, 50, 14}},
};
constexpr DialogTemplate Dialogs[] = {
    {300, "Axis", WS_POPUP | WS_CAPTION | WS_SYSMENU, {0, 0, 177, 96}, Items},
    {301, "Sized", WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME, {0, 0, 177, 96}, Items}};
constexpr ResourceModule Resources{Dialogs, {}};

class HostApp {
public:
    HostApp() {
        m_app.m_pResources = &Resources;
        SetHostApp(&m_app);
    }
    ~HostApp() { SetHostApp(nullptr); }

private:
    CWinApp m_app;
};

// What keys do in a dialog, step by step.
class Session {
public:
    explicit Session(User& user) : m_user(user) {
        m_frame.CreateEx(0, "KorvelFrame", "Session", WS_OVERLAPPEDWINDOW | WS_VISIBLE, {50, 50, 450, 350},
                         nullptr, 0);
        m_edit.CreateEx(0, "EDIT", "", WS_CHILD | WS_VISIBLE, {0, 0, 80, 24}, &m_frame, 1);
        m_edit.SetFocus();
    }

    std::string Run() {
        m_user.WhenIdle([this] { UseKeys(); });
        m_log += "result " + std::to_string(m_dialog.DoModal()) + "\n";
        m_user.WhenIdle([this] {
            m_user.Click(m_dialog.Item(Green), {10, 10});
            LogFocus("click");
            m_user.Key(VK_ESCAPE);
        });
        m_log += "result " + std::to_string(m_dialog.DoModal()) + "\n";
        for (const int command : m_dialog.commands)
            m_log += "command " + std::to_string(command) + "\n";
        m_user.Key('Z', "z");
        return m_log + "the frame's field holds " + m_edit.GetWindowTextA() + "\n";
    }

private:
    void LogFocus(const std::string& act) {
        m_log += act + ": " + std::to_string(GetDlgCtrlID(GetFocus())) + "\n";
    }
    void UseKeys() {
        LogFocus("at first");
        m_user.Key('A', "a");
        const std::tuple<const char*, UINT, const char*> keys[] = {
            {"Tab", VK_TAB, "\t"}, {"Space", VK_SPACE, " "}, {"Tab", VK_TAB, "\t"},
            {"Down", VK_DOWN, ""}, {"a letter", 'C', "c"},   {"Tab", VK_TAB, "\t"},
            {"Tab", VK_TAB, "\t"}, {"Tab", VK_TAB, "\t"},    {"Return", VK_RETURN, "\r"}};
        for (const auto& [name, key, characters] : keys) {
            m_user.Key(key, characters);
            LogFocus(name);
        }
        m_log += "holds " + GetDlgItemTextA(m_dialog.m_hWnd, Name) + "\n";
    }

    User& m_user;
    HostApp m_app;
    CWnd m_frame;
    CWnd m_edit;
    RecordedDialog m_dialog{300, &m_frame};
    std::string m_log;
};

TEST(Dialog, KeysDoTheSameOnTheDesktopAsWithoutScreen) {
    std::string withoutScreen;
    {
        HeadlessUser user;
        withoutScreen = Session(user).Run();
    }
    QtUser user;
    EXPECT_EQ(Session(user).Run(), withoutScreen);
    EXPECT_THAT(withoutScreen, testing::HasSubstr("at first: 11\nTab: 12\n"));
    EXPECT_THAT(withoutScreen, testing::EndsWith("the frame's field holds z\n"));
}

class DesktopDialog : public DesktopTest<> {
protected:
    QWidget* Widget(int id) const { return m_user.Widget(m_dialog.Item(id)); }
    std::intptr_t RunWith(std::function<void()> act) {
        QTimer::singleShot(0, qApp, [this, act] {
            EXPECT_TRUE(
                QTest::qWaitFor([this] { return QApplication::focusWidget() == m_user.Widget(GetFocus()); }));
            act();
            m_dialog.EndDialog(99);
        });
        return m_dialog.DoModal();
    }

    HostApp m_app;
    RecordedDialog m_dialog{300, &m_frame};
};

TEST_F(DesktopDialog, IsAWindowOfTheDesktop) {
    RunWith([&] {
        QWidget* window = m_user.Widget(m_dialog.m_hWnd)->window();
        EXPECT_EQ(window->windowTitle(), QStringLiteral("Axis"));
        EXPECT_EQ(window->windowModality(), Qt::WindowModal);
        EXPECT_EQ(window->windowType(), Qt::Dialog);
        EXPECT_EQ(window->minimumSize(), window->maximumSize());
        EXPECT_EQ(window->parentWidget()->window(), m_user.Widget(m_frame.m_hWnd)->window());
        EXPECT_TRUE(qobject_cast<QPushButton*>(Widget(IDOK))->isDefault());
        SetFocus(m_dialog.Item(IDCANCEL));
        EXPECT_TRUE(qobject_cast<QPushButton*>(Widget(IDCANCEL))->isDefault());
        EXPECT_FALSE(qobject_cast<QPushButton*>(Widget(IDOK))->isDefault());
    });
    QTimer::singleShot(0, qApp, [&] { m_user.Widget(m_dialog.m_hWnd)->window()->close(); });
    EXPECT_EQ(m_dialog.DoModal(), IDCANCEL);
}

TEST_F(DesktopDialog, OnlyOneThatStaysOpenKeepsTheApplicationFromEnding) {
    for (const auto& [border, isOwned, staysOpen, result, code] :
         Table<bool, bool, std::intptr_t, int>{{"owned", true, false, IDCANCEL, 0},
                                               {"without owner", false, false, IDCANCEL, 0},
                                               {"stays open", true, true, 5, 7}}) {
        CWnd owner;
        owner.CreateEx(0, "KorvelFrame", "Owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, {50, 50, 450, 350},
                       nullptr, 0);
        RecordedDialog dialog(300, isOwned ? &owner : nullptr);
        if (staysOpen)
            dialog.onCommand[IDCANCEL] = [] {};
        std::intptr_t answer = 0;
        QTimer::singleShot(0, qApp, [&, endsByItself = staysOpen] {
            QTimer::singleShot(0, qApp, [&, endsByItself] {
                QApplication::quit();
                if (endsByItself) {
                    dialog.EndDialog(5);
                    QApplication::exit(7);
                }
            });
            answer = dialog.DoModal();
        });
        QTimer patience;
        QObject::connect(&patience, &QTimer::timeout, [] { QApplication::exit(1); });
        patience.start(std::chrono::seconds(5));
        EXPECT_EQ(QApplication::exec(), code) << border;
        EXPECT_EQ(answer, result) << border;
    }
}

TEST_F(DesktopDialog, AccessKeysAreTheDialogs) {
    RunWith([&] {
        for (const auto& [border, key, focus] : Table<Qt::Key, int>{{"check box", Qt::Key_C, Check},
                                                                    {"label", Qt::Key_N, Name},
                                                                    {"radio button", Qt::Key_G, Green},
                                                                    {"group box", Qt::Key_S, Green}}) {
            QTest::keyClick(QApplication::focusWidget(), key, Qt::AltModifier);
            EXPECT_EQ(GetDlgCtrlID(GetFocus()), focus) << border;
        }
        EXPECT_EQ(IsDlgButtonChecked(m_dialog.m_hWnd, Check), 1);
        EXPECT_TRUE(qobject_cast<QAbstractButton*>(Widget(Green))->isChecked());
    });
}

TEST_F(DesktopDialog, FieldsAreNamedAfterTheirLabels) {
    RunWith([&] {
        CWnd added;
        added.CreateEx(0, "EDIT", "", WS_CHILD | WS_VISIBLE, {0, 0, 50, 20}, &m_dialog, 99);
        const auto nameOf = [this](int id) {
            return QAccessible::queryAccessibleInterface(Widget(id))->text(QAccessible::Name).toStdString();
        };
        EXPECT_EQ(nameOf(Name), "Name:");
        EXPECT_EQ(nameOf(Check), "Closed");
        EXPECT_EQ(nameOf(99), "Axis") << "what has no label has the title";
        m_dialog.SetWindowTextA("Road");
        QApplication::processEvents();
        EXPECT_EQ(nameOf(99), "Road");
        EXPECT_EQ(QAccessible::queryAccessibleInterface(Widget(99)->window())->role(), QAccessible::Dialog);
        const auto relations = QAccessible::queryAccessibleInterface(Widget(Label))->relations();
        ASSERT_EQ(relations.size(), 1);
        EXPECT_EQ(relations[0].first->object(), Widget(Name));
        SetDlgItemTextA(m_dialog.m_hWnd, Label, "P && &Q:");
        QApplication::processEvents();
        EXPECT_TRUE(QTest::qWaitFor([&] { return nameOf(Name) == "P & Q:"; }));
    });
}

TEST_F(DesktopDialog, TabLeavesAnOpenList) {
    RunWith([&] {
        CComboBox box;
        box.Create(WS_CHILD | WS_VISIBLE | Stop | CBS_DROPDOWN, {100, 60, 200, 160}, &m_dialog, 20);
        box.AddString("one");
        SetFocus(m_dialog.Item(IDCANCEL));
        for (const UINT key : {VK_TAB, VK_F4})
            m_user.Key(key, {});
        ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::activePopupWidget() != nullptr; }));
        QTest::keyClick(QApplication::activePopupWidget()->focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(GetFocus(), m_dialog.Item(Name));
        EXPECT_FALSE(box.GetDroppedState());
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
        EXPECT_EQ(QApplication::focusWidget(), Widget(Name));
    });
}

TEST_F(DesktopDialog, TheFocusIsMarkedOnceAKeyHasMovedIt) {
    for (const auto& [border, key, modifiers] : Table<Qt::Key, Qt::KeyboardModifiers>{
             {"Tab", Qt::Key_Tab, Qt::NoModifier}, {"access key", Qt::Key_G, Qt::AltModifier}})
        RunWith([&, name = border, pressed = key, with = modifiers] {
            const QWidget* window = m_user.Widget(m_dialog.m_hWnd)->window();
            SetFocus(m_dialog.Item(Check));
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
            EXPECT_FALSE(window->testAttribute(Qt::WA_KeyboardFocusChange)) << name;
            QTest::keyClick(QApplication::focusWidget(), pressed, with);
            EXPECT_TRUE(window->testAttribute(Qt::WA_KeyboardFocusChange)) << name;
        });
}

TEST_F(DesktopDialog, LimitsOfItsSizeAreThoseOfItsWindow) {
    struct Limited : RecordedDialog {
        CSize least{300, 200};
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            if (message == WM_GETMINMAXINFO)
                reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {least.cx, least.cy};
            return RecordedDialog::WindowProc(message, wParam, lParam);
        }
    } dialog;
    ASSERT_TRUE(dialog.Create(301u, &m_frame));
    dialog.ShowWindow(SW_SHOW);
    QWidget* window = m_user.Widget(dialog.m_hWnd)->window();
    EXPECT_EQ(window->minimumSize(), QSize(300, 200));
    dialog.least = {350, 200};
    window->resize(500, 400);
    QApplication::processEvents();
    EXPECT_EQ(window->minimumSize(), QSize(350, 200));
    EXPECT_EQ(dialog.GetClientRect().Width(), 500);
}

TEST_F(DesktopDialog, SiblingsAreStackedInTheirOrder) {
    CWnd first, second;
    first.CreateEx(0, "KorvelFrame", "", WS_CHILD | WS_VISIBLE, {0, 0, 50, 50}, &m_frame, 1);
    second.CreateEx(0, "KorvelFrame", "", WS_CHILD | WS_VISIBLE, {0, 0, 50, 50}, &m_frame, 2);
    QWidget* frame = m_user.Widget(m_frame.m_hWnd);
    for (const auto& [border, window, after, top] :
         Table<CWnd*, HWND, CWnd*>{{"to the top", &first, HWND_TOP, &first},
                                   {"below another", &first, second.m_hWnd, &second},
                                   {"the other to the bottom", &second, HWND_BOTTOM, &first}}) {
        SetWindowPos(window->m_hWnd, after, {}, SWP_NOMOVE | SWP_NOSIZE);
        EXPECT_EQ(frame->childAt(10, 10), m_user.Widget(top->m_hWnd)) << border;
    }
}

TEST_F(DesktopDialog, IsKeptOnTopWhileItIsShown) {
    const QWidget* window = m_user.Widget(m_frame.m_hWnd)->window();
    const QWindow* native = window->windowHandle();
    for (const auto& [border, after, isOnTop] :
         Table<HWND, bool>{{"on top", HWND_TOPMOST, true}, {"as others", HWND_NOTOPMOST, false}}) {
        m_frame.SetWindowPos(after, {}, SWP_NOMOVE | SWP_NOSIZE);
        EXPECT_EQ(window->windowHandle(), native) << border;
        EXPECT_EQ(native->flags().testFlag(Qt::WindowStaysOnTopHint), isOnTop) << border;
        EXPECT_TRUE(native->isVisible()) << border;
    }
}

TEST_F(DesktopDialog, TabGoesOutOfAnEmbeddedOneAndInAgain) {
    constexpr int Late = 77;
    RecordedDialog dialog;
    ASSERT_TRUE(dialog.Create(300u, nullptr));
    QWidget host;
    QVBoxLayout layout(&host);
    QLineEdit before;
    QLineEdit after;
    layout.addWidget(&before);
    layout.addWidget(qt::Embed(dialog.m_hWnd));
    layout.addWidget(&after);
    CreateWindowExA(0, "EDIT", "", WS_CHILD | WS_VISIBLE | Stop, {0, 0, 50, 20}, dialog.m_hWnd, Late);
    host.show();
    host.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&host));
    before.setFocus();
    const auto tab = [](bool isBack) {
        return [=] {
            QTest::keyClick(QApplication::focusWidget(), isBack ? Qt::Key_Backtab : Qt::Key_Tab,
                            isBack ? Qt::ShiftModifier : Qt::NoModifier);
        };
    };
    for (const auto& [border, act, outside, inside] : Table<std::function<void()>, QWidget*, int>{
             {"in at the first stop", tab(false), nullptr, Name},
             {"on inside", tab(false), nullptr, Check},
             {"back inside", tab(true), nullptr, Name},
             {"out before the first", tab(true), &before, 0},
             {"round the host, in at the last stop", [&] { after.setFocus(), tab(true)(); }, nullptr, Late},
             {"back inside from there", tab(true), nullptr, IDCANCEL},
             {"to the last again", tab(false), nullptr, Late},
             {"round for a program", [&] { dialog.NextDlgCtrl(); }, nullptr, Name},
             {"to the last once more", [&] { dialog.PrevDlgCtrl(); }, nullptr, Late},
             {"out after the last", tab(false), &after, 0},
             {"round inside where nothing else takes it",
              [&] {
                  tab(true)();
                  before.hide();
                  after.hide();
                  tab(false)();
              },
              nullptr, Name}}) {
        act();
        EXPECT_EQ(GetDlgCtrlID(GetFocus()), inside) << border;
        const QWidget* expected = outside ? outside : m_user.Widget(GetFocus());
        EXPECT_EQ(QApplication::focusWidget(), expected) << border;
    }
}

TEST_F(DesktopDialog, OfAnEmbeddedWindowDisablesTheHostsWholeWindow) {
    QMainWindow host;
    QPushButton other(QStringLiteral("Other"), &host);
    QAction save(&host);
    save.setShortcut(QKeySequence(QStringLiteral("Ctrl+S")));
    save.setShortcutContext(Qt::ApplicationShortcut);
    host.addAction(&save);
    host.setMenuWidget(&other);
    host.setCentralWidget(qt::Embed(m_frame.m_hWnd));
    host.show();
    QApplication::processEvents();
    int saved = 0;
    int clicked = 0;
    QObject::connect(
        &save, &QAction::triggered, [&] { ++saved; });
    QObject::connect(&other, &QPushButton::clicked, [&] { ++clicked; });
    const auto work = [&] {
        QTest::mouseClick(host.windowHandle(), Qt::LeftButton, {}, other.geometry().center());
        if (QWindow* window = QApplication::focusWindow())
            QTest::keyClick(window, Qt::Key_S, Qt::ControlModifier);
    };
    host.activateWindow();
    QTest::qWait(10);
    work();
    EXPECT_EQ(saved, 1);
    EXPECT_EQ(clicked, 1);
    EXPECT_EQ(RunWith(work), 99);
    EXPECT_EQ(saved, 1);
    EXPECT_EQ(clicked, 1);
    work();
    EXPECT_EQ(clicked, 2) << "enabled again";
}

} // namespace

} // namespace korvel::test
