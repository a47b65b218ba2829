#pragma once

#include "korvel/window/core/window_record.h"

#include <functional>

/// The focus of the display's windows. On the display's thread only.
namespace korvel::internal {

enum class FocusOrigin { Program, Display };

/// Why a window loses the focus.
enum class FocusCause {
    Moved,       // the user or the program went elsewhere
    Hidden,      // it, or a window around it, is being hidden or destroyed
    Disabled,    // the same, and it stays on the screen: a dialog opens, say
    Question,    // the library shows a box or a chooser, and gives the focus back afterwards
    ProgramLeft, // the user went to another program
};
/// Of the innermost move of the focus that is under way: to be asked while a window hears WM_KILLFOCUS.
FocusCause CauseOfFocusMove();
/// Whether the window that loses it gets it back: a box, a dialog or another program has it meanwhile.
bool ComesFocusBack();

/// Moves the focus: display first, then WM_KILLFOCUS, then WM_SETFOCUS; stops when a handler moves it on.
void MoveFocus(HWND window, FocusOrigin origin, FocusCause cause = FocusCause::Moved);
/// Moves the focus to `heir` (null, or where it cannot go: to none) when it lies in the window or below.
/// Nothing for a window that the display does not show.
void TakeFocusAway(const WindowRecord& record, HWND heir, FocusCause cause);
bool CanTakeFocus(HWND window);
/// Is told of each move of the focus that no handler moved on, after the messages. Called when the library is
/// loaded. Returns true.
using FocusFollower = void(HWND window);
bool SetFocusFollower(FocusFollower* follow);
/// Takes the focus away while `ask` shows a box, and gives it back, also when it throws.
void LendFocusToBox(const std::function<void()>& ask);
/// Gives the focus back to the window that had it, unless another one has it now.
void ReturnFocus(HWND former);

/// No window has the focus any more if it was this one. Sends nothing.
void ForgetFocus(HWND window);
/// The same, whichever window it was.
void ForgetFocus();

} // namespace korvel::internal
