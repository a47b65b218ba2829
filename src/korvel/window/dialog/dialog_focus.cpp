#include "korvel/window/dialog/dialog_focus.h"

#include "korvel/window/core/dialog_controls.h"
#include "korvel/window/core/display_thread.h"
#include "korvel/window/core/focus.h"
#include "korvel/window/core/window.h"
#include "korvel/window/core/window_tree.h"
#include "korvel/window/dialog/dialog_state.h"

namespace korvel::internal {

void FocusControl(HWND control) {
    if (DialogCodeOf(control) & DLGC_HASSETSEL)
        SendMessageA(control, EM_SETSEL, 0, -1);
    SetFocus(control);
}

namespace {

HWND StartOf(HWND dialog) {
    const ControlOf<DialogState> state(dialog);
    return IsChild(dialog, GetFocus()) || !state ? GetFocus() : state->lastFocus;
}

} // namespace

void FocusNext(HWND dialog, bool previous) {
    if (const HWND next = GetNextDlgTabItem(dialog, StartOf(dialog), previous))
        FocusControl(next);
}

void PressTab(HWND dialog, bool previous) {
    if (const HWND next = NextTabStop(dialog, StartOf(dialog), previous))
        FocusControl(next);
    else if (!IsDisplayThread() || !Display().LeaveByTab(RootOf(dialog), previous))
        FocusNext(dialog, previous);
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
