#include "korvel/window/dialog/dialog_focus.h"

#include "korvel/window/core/focus.h"
#include "korvel/window/core/window.h"
#include "korvel/window/core/window_tree.h"
#include "korvel/window/dialog/dialog_state.h"

namespace korvel::internal {

void FocusControl(HWND control) {
    if (SendMessageA(control, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL)
        SendMessageA(control, EM_SETSEL, 0, -1);
    SetFocus(control);
}

void FocusNext(HWND dialog, bool previous) {
    const ControlOf<DialogState> state(dialog);
    if (!state)
        return;
    const HWND from = IsChild(dialog, GetFocus()) ? GetFocus() : state->lastFocus;
    if (const HWND next = GetNextDlgTabItem(dialog, from, previous))
        FocusControl(next);
}

void RestoreFocus(HWND dialog) {
    const ControlOf<DialogState> state(dialog);
    if (!state || IsChild(dialog, GetFocus()))
        return;
    const HWND last = state->lastFocus;
    if (IsWithin(dialog, last) && IsWindowVisible(last) && CanTakeFocus(last))
        SetFocus(last);
    else if (const HWND first = GetNextDlgTabItem(dialog, nullptr, false))
        FocusControl(first);
}

} // namespace korvel::internal
