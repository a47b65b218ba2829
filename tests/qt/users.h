#pragma once

#include "korvel/qt/qt_display.h"
#include "korvel/window/display/headless_display.h"
#include "qt/scenario.h"

namespace korvel::test {

/// Works through the input functions; the headless display is in force meanwhile.
class HeadlessUser final : public User {
public:
    HeadlessUser() { SetDisplay(&m_display); }
    ~HeadlessUser() override { SetDisplay(nullptr); }

    void Key(UINT key, const CString& characters) override;
    void Click(HWND window, CPoint point) override;
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
    /// Handles events until the desktop has the focus where the window model has it: a window manager takes its
    /// time.
    void WaitForFocus() const;

    qt::QtDisplay m_display;
};

} // namespace korvel::test
