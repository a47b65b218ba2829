#include "korvel/editors/dialog_around.h"

#include "korvel/window/dialog/dialog_keyboard.h"

namespace korvel::internal {

HWND TopLevelAround(HWND window) {
    HWND parent = GetParent(window);
    while (parent && parent != GetOwner(window)) { // by style an embedded window is no child
        window = parent;
        parent = GetParent(window);
    }
    return window;
}

// An editor in the item wants all keys, so the dialog would leave Tab to it.
void LeaveByTab(HWND item, const MSG& message) {
    MSG own = message;
    own.hwnd = item;
    const HWND parent = GetParent(item);
    if (!IsDialogMessageA(parent, own))
        SetFocus(GetNextDlgTabItem(parent, item, IsKeyDown(VK_SHIFT)));
}

} // namespace korvel::internal
