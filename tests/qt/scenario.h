#pragma once

#include "qt/recorder.h"

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

/// Works with a frame of controls from its creation to its end. The log of messages, and of what the windows
/// hold after each step, depends on no display.
Log RunScenario(User& user);

} // namespace korvel::test
