#include "korvel/window/dialog/dialog_procedure.h"

#include "korvel/platform/first_failure.h"
#include "korvel/window/core/window_class.h"
#include "korvel/window/core/window_tree.h"
#include "korvel/window/dialog/default_button.h"
#include "korvel/window/dialog/dialog_focus.h"
#include "korvel/window/dialog/dialog_state.h"

namespace korvel {

using namespace internal;

namespace {

void MoveToControl(HWND dialog, WPARAM wParam, LPARAM lParam) {
    if (LOWORD(static_cast<WPARAM>(lParam)))
        FocusControl(reinterpret_cast<HWND>(wParam));
    else
        FocusNext(dialog, wParam != 0);
}

// A control that loses the focus to its dialog is about to be hidden or destroyed.
void TakeFocus(HWND dialog, HWND loser) {
    if (!IsWithin(dialog, loser))
        RestoreFocus(dialog);
}

} // namespace

LRESULT DefDlgProcA(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_CLOSE:
        SendButtonCommand(dialog, IDCANCEL);
        return 0;
    case DM_GETDEFID:
        return DefaultButtonOf(dialog);
    case DM_SETDEFID:
        SetDefaultButton(dialog, static_cast<UINT>(wParam));
        return 1;
    case WM_NEXTDLGCTL:
        MoveToControl(dialog, wParam, lParam);
        return 0;
    case WM_SETFOCUS:
        TakeFocus(dialog, reinterpret_cast<HWND>(wParam));
        return 0;
    case WM_ACTIVATE:
        if (wParam)
            RestoreFocus(dialog);
        return 0;
    default:
        return DefWindowProcA(dialog, message, wParam, lParam);
    }
}

bool EndDialog(HWND dialog, std::intptr_t result) {
    return OnOwner(
        dialog,
        [&](WindowRecord& record) {
            auto* state = dynamic_cast<DialogState*>(record.control.get());
            if (!state)
                return false;
            state->result = result;
            state->isEnded = true;
            FirstFailure failure; // an enabled owner can become the active window
            failure.Try([&] { EnableWindow(std::exchange(state->disabledOwner, nullptr), true); });
            failure.Try([&] { ShowWindow(dialog, SW_HIDE); });
            failure.Rethrow();
            return true;
        });
}

namespace {

[[maybe_unused]] const bool Registered = RegisterControlClass<DialogState>("#32770", DefDlgProcA);

} // namespace
} // namespace korvel
