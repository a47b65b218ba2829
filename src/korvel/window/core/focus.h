#pragma once

#include "korvel/window/core/window_record.h"

#include <functional>

/// The focus of the display's windows. On the display's thread only.
namespace korvel::internal {

enum class FocusOrigin { Program, Display };

/// Moves the focus: display first, then WM_KILLFOCUS, then WM_SETFOCUS; stops when a handler moves it on.
void MoveFocus(HWND window, FocusOrigin origin);
/// Moves the focus to `heir` (null, or where it cannot go: to none) when it lies in the window or below.
/// Nothing for a window that the display does not show.
void TakeFocusAway(const WindowRecord& record, HWND heir);
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
