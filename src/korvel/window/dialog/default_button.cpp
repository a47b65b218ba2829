#include "korvel/window/dialog/default_button.h"

#include "korvel/window/core/dialog_controls.h"
#include "korvel/window/core/focus.h"
#include "korvel/window/core/window.h"
#include "korvel/window/core/window_tree.h"
#include "korvel/window/dialog/dialog_state.h"
#include "korvel/window/display/window_view.h"

#include <algorithm>

namespace korvel::internal {
namespace {

void SetRing(DialogState& dialog, HWND button) {
    const HWND former = std::exchange(dialog.ring, button);
    if (former == button)
        return;
    if (DialogCodeOf(former) & DLGC_DEFPUSHBUTTON)
        SendMessageA(former, BM_SETSTYLE, BS_PUSHBUTTON, 1);
    if (DialogCodeOf(button) & DLGC_UNDEFPUSHBUTTON)
        SendMessageA(button, BM_SETSTYLE, BS_DEFPUSHBUTTON, 1);
}

// A push button with the focus has the ring, whichever is the default one.
void ShowRing(HWND dialog, DialogState& state) {
    const HWND focus = GetFocus();
    const bool isOnButton = IsWithin(dialog, focus) && IsPushButton(focus);
    const HWND fallback = state.defaultId ? GetDlgItem(dialog, static_cast<int>(state.defaultId)) : nullptr;
    SetRing(state, isOnButton ? focus : fallback);
}

void FollowFocus(HWND window) {
    const HWND dialog = OutermostDialog(window);
    const ControlOf<DialogState> state(dialog);
    if (!state)
        return;
    if (window != dialog)
        state->lastFocus = window;
    ShowRing(dialog, *state);
}

[[maybe_unused]] const bool Registered = SetFocusFollower(FollowFocus);

} // namespace

bool IsPushButton(HWND control) {
    return (DialogCodeOf(control) & (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON)) != 0;
}

void FindDefaultButton(HWND dialog) {
    const std::vector<HWND> children = view::Children(dialog);
    const auto found = std::ranges::find_if(
        children, [](HWND child) { return (DialogCodeOf(child) & DLGC_DEFPUSHBUTTON) != 0; });
    const ControlOf<DialogState> state(dialog);
    if (!state || found == children.end())
        return;
    state->defaultId = static_cast<UINT>(GetDlgCtrlID(*found));
    state->ring = *found;
}

void SetDefaultButton(HWND dialog, UINT id) {
    const ControlOf<DialogState> state(dialog);
    if (!state)
        return;
    state->defaultId = id;
    ShowRing(dialog, *state);
}

LRESULT DefaultButtonOf(HWND dialog) {
    const ControlOf<DialogState> state(dialog);
    return state && state->defaultId ? static_cast<LRESULT>(MAKEWPARAM(state->defaultId, DC_HASDEFID)) : 0;
}

void SendButtonCommand(HWND dialog, int id) {
    const HWND button = GetDlgItem(dialog, id);
    if (!button || IsWindowEnabled(button))
        SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(static_cast<unsigned>(id), BN_CLICKED),
                     reinterpret_cast<LPARAM>(button));
}

} // namespace korvel::internal
