#pragma once

#include "korvel/window/core/window.h"

namespace korvel {

/// The procedure of the window class "#32770". WM_CLOSE is IDCANCEL; DM_GETDEFID, DM_SETDEFID, WM_NEXTDLGCTL
/// do what CDialog says of them; a dialog that becomes active or gets the focus hands it to the control that
/// had it last, else to its first tab stop. The rest goes to DefWindowProcA.
KORVEL_API LRESULT DefDlgProcA(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

/// Ends a modal dialog with that result: its owner is enabled again, the dialog hides, and DoModal returns
/// when the handler that called has returned. The last call counts. Any other dialog is hidden. False for a
/// window that is no dialog.
KORVEL_API bool EndDialog(HWND dialog, std::intptr_t result);

} // namespace korvel
