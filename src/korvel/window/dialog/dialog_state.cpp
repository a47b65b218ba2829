#include "korvel/window/dialog/dialog_state.h"

namespace korvel::internal {

HWND OutermostDialog(HWND window) {
    HWND dialog = nullptr;
    for (RecordRef level = Find(window); level; level = Find(level->parent))
        if (dynamic_cast<const DialogState*>(level->control.get()))
            dialog = level->handle;
    return dialog;
}

} // namespace korvel::internal
