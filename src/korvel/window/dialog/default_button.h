#pragma once

#include "korvel/window/base/types.h"

/// The buttons that Return and Escape press, and the ring around the first.
namespace korvel::internal {

/// True for a push button, which Return presses while it has the focus.
bool IsPushButton(HWND control);
/// The first button that was made as the default one becomes it.
void FindDefaultButton(HWND dialog);
/// DM_SETDEFID. An id of no control takes the ring from the former one.
void SetDefaultButton(HWND dialog, UINT id);
/// DM_GETDEFID.
LRESULT DefaultButtonOf(HWND dialog);
/// Sends the dialog WM_COMMAND as the button with that id does; nothing when that button is disabled.
void SendButtonCommand(HWND dialog, int id);

} // namespace korvel::internal
