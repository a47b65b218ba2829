#pragma once

#include "korvel/window/base/types.h"

namespace korvel::internal {

/// Gives a control the focus as the dialog's keyboard does: the text of a field is selected whole.
void FocusControl(HWND control);
/// Moves the focus to the next (previous) tab stop of a dialog, going round, from the control that has it or
/// had it last.
void FocusNext(HWND dialog, bool previous);
/// The same for the user's Tab, which leaves a dialog at its end where the display has something to go on to.
void PressTab(HWND dialog, bool previous);
/// Gives the focus to the control inside that had it last, else to the first tab stop. Nothing when the focus
/// is inside already, or nothing inside takes it.
void RestoreFocus(HWND dialog);

} // namespace korvel::internal
