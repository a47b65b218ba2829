#include "korvel/window/dialog/modal_loop.h"

#include "korvel/platform/first_failure.h"
#include "korvel/window/core/display_thread.h"
#include "korvel/window/core/focus.h"
#include "korvel/window/core/window.h"
#include "korvel/window/core/window_tree.h"
#include "korvel/window/dialog/create_dialog.h"
#include "korvel/window/dialog/dialog_state.h"

namespace korvel::internal {
namespace {

void RunUntilEnded(HWND window, const DialogState& state) {
    const auto isDone = [&] { return state.isEnded || !IsWindow(window); };
    if (isDone())
        return;
    ShowWindow(window, SW_SHOW);
    if (!isDone())
        Display().RunUntil(window, isDone);
}

std::intptr_t RunHere(const DialogTemplate& dialog, HWND parent,
                      const std::function<void(WindowRecord&)>& attach) {
    const HWND formerFocus = GetFocus();
    const HWND root = RootOf(parent);
    const HWND owner = IsWindowEnabled(root) ? root : nullptr;
    HWND window = nullptr;
    std::intptr_t result = -1;
    FirstFailure failure;
    failure.Try([&] {
        EnableWindow(owner, false);
        window = CreateDialogWindow(
            dialog, parent, DialogMode::Modal,
            [&](WindowRecord& record) {
                static_cast<DialogState&>(*record.control).disabledOwner = owner;
                attach(record);
            });
        const ControlOf<DialogState> state(window);
        if (!state)
            return;
        RunUntilEnded(window, *state);
        result = state->result;
    });
    failure.Try([&] { EnableWindow(owner, true); });
    failure.Try([&] { DestroyWindow(window); });
    failure.Try([&] { ReturnFocus(formerFocus); });
    failure.Rethrow();
    return result;
}

} // namespace

std::intptr_t RunModal(const DialogTemplate& dialog, HWND parent,
                       const std::function<void(WindowRecord&)>& attach) {
    std::intptr_t result = -1;
    OnDisplayThread([&](IDisplay&) { result = RunHere(dialog, parent, attach); });
    return result;
}

} // namespace korvel::internal
