#pragma once

#include "korvel/window/core/window.h"

namespace korvel {

/// The keyboard of a dialog, asked before a key message reaches its window. True: the dialog has handled it.
///
/// - Tab and Shift+Tab go to the next and the previous tab stop; a field is then selected whole. At its end
///   they leave a dialog that a host embeds in a window of its own; any other one begins anew.
/// - The arrows go through the group of the control that has the focus; a radio button is checked.
/// - Return presses the push button with the focus, else the default button, else IDOK.
/// - Escape is IDCANCEL.
/// - A letter marked by "&", with Alt or, where nothing is typed, alone, leads to its control.
///
/// A button that is disabled is not pressed. What the control with the focus wants for itself (WM_GETDLGCODE,
/// with the message in lParam) is left to it. CDialog calls it in PreTranslateMessage. A message for no
/// window of the dialog is left alone; for a page, the outermost dialog around it decides.
KORVEL_API bool IsDialogMessageA(HWND dialog, MSG& message);

} // namespace korvel
