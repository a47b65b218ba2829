#pragma once

#include "korvel/qt/qt_display.h"
#include "korvel/window/core/input.h"
#include "korvel/window/display/headless_display.h"
#include "support/recorded_window.h"

#include <QApplication>
#include <QTest>

namespace korvel::test {

/// Somebody who works with windows: through the input functions without a screen, or by events on one.
class User {
public:
    virtual ~User() = default;
    /// Presses and releases a key in the window with the focus.
    virtual void Key(UINT key, const CString& characters = "") = 0;
    virtual void Click(HWND window, CPoint point) = 0;
    /// Runs the step when the next modal loop waits.
    virtual void WhenIdle(std::function<void()> step) = 0;
    /// Answers the next box or menu.
    virtual void AnswerBox(int button) = 0;
    virtual void AnswerMenu(unsigned command) = 0;
};

/// Works through the input functions; the headless display is in force meanwhile.
class HeadlessUser final : public User {
public:
    HeadlessUser() { SetDisplay(&m_display); }
    ~HeadlessUser() override { SetDisplay(nullptr); }

    void Key(UINT key, const CString& characters) override {
        input::Key(GetFocus(), WM_KEYDOWN, key, characters);
        input::Key(GetFocus(), WM_KEYUP, key, "");
    }
    void Click(HWND window, CPoint point) override {
        input::Mouse(window, WM_LBUTTONDOWN, MK_LBUTTON, point);
        input::Mouse(window, WM_LBUTTONUP, 0, point);
    }
    void WhenIdle(std::function<void()> step) override { m_display.Then(std::move(step)); }
    void AnswerBox(int button) override { m_display.AnswerNext(button); }
    void AnswerMenu(unsigned command) override { m_display.AnswerNext(static_cast<int>(command)); }

private:
    HeadlessDisplay m_display;
};

/// Works by Qt events on the widgets that have the focus in Qt or lie at the point.
class QtUser final : public User {
public:
    QtUser() { SetDisplay(&m_display); }

    void Key(UINT key, const CString& characters) override;
    void Click(HWND window, CPoint point) override;
    void WhenIdle(std::function<void()> step) override;
    void AnswerBox(int button) override;
    void AnswerMenu(unsigned command) override;

    QWidget* Widget(HWND window) const { return m_display.WidgetOf(window); }

private:
    /// Handles events until the desktop has the focus where the window model has it: a window manager takes
    /// its time.
    void WaitForFocus() const;

    qt::QtDisplay m_display;
};

/// A window of the test on a desktop.
template <class Frame = CWnd>
class DesktopTest : public testing::Test {
protected:
    DesktopTest() {
        m_frame.CreateEx(0, "KorvelFrame", "Frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, {40, 40, 440, 340},
                         nullptr, 0);
        Activate();
    }
    /// The offscreen platform does so by itself neither at first nor after a popup.
    void Activate() {
        QWidget* top = m_user.Widget(m_frame.m_hWnd);
        QApplication::processEvents();
        top->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(top));
    }
    template <class Widget>
    Widget& WidgetOf(const CWnd& window) {
        auto* widget = qobject_cast<Widget*>(m_user.Widget(window.m_hWnd));
        EXPECT_NE(widget, nullptr);
        return *widget;
    }

    QtUser m_user;
    Frame m_frame;
};

} // namespace korvel::test
