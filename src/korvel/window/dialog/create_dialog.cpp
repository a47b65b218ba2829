#include "korvel/window/dialog/create_dialog.h"

#include "korvel/window/core/create_window.h"
#include "korvel/window/core/window_tree.h"
#include "korvel/window/dialog/default_button.h"
#include "korvel/window/dialog/dialog_focus.h"
#include "korvel/window/dialog/dialog_state.h"
#include "korvel/window/dialog/dialog_units.h"

namespace korvel::internal {
namespace {

CRect CenteredOver(HWND parent, CSize size) {
    const HWND owner = RootOf(parent);
    const CRect screen{0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    return (IsWindowVisible(owner) ? GetWindowRect(owner) : screen).Centered(size);
}

CRect PlaceOf(const DialogTemplate& dialog, UINT style, HWND parent) {
    CRect rect = PixelsOf(dialog.place);
    if ((style & WS_CHILD) || (style & DS_ABSALIGN))
        return rect;
    const bool hasNoPlace = dialog.place.x == 0 && dialog.place.y == 0;
    if ((style & DS_CENTER) || hasNoPlace)
        return CenteredOver(parent, {rect.Width(), rect.Height()});
    const CPoint origin = ClientToScreen(parent, {});
    rect.OffsetRect(origin.x, origin.y);
    return rect;
}

bool CreateItems(const DialogTemplate& dialog, HWND window) {
    for (const DialogItem& item : dialog.items)
        if (!CreateWindowExA(item.exStyle, item.className, item.text, WS_CHILD | WS_VISIBLE | item.style,
                             PixelsOf(item.place), window, item.id))
            return false;
    return true;
}

// A dialog that is not shown, and a page, leave the focus where it is.
void Initialize(HWND window, bool takesFocus) {
    FindDefaultButton(window);
    const HWND first = GetNextDlgTabItem(window, nullptr, false);
    const LRESULT wantsDefault = SendMessageA(window, WM_INITDIALOG, reinterpret_cast<WPARAM>(first), 0);
    const ControlOf<DialogState> state(window);
    if (!state || state->isEnded || !wantsDefault || !takesFocus)
        return;
    // A handler may have hidden or disabled what was the first.
    if (const HWND now = GetNextDlgTabItem(window, nullptr, false))
        FocusControl(now);
    else
        SetFocus(window);
}

bool Complete(const DialogTemplate& dialog, HWND window, bool takesFocus) {
    try {
        if (!CreateItems(dialog, window)) {
            DestroyWindow(window);
            return false;
        }
        Initialize(window, takesFocus);
        return IsWindow(window);
    } catch (...) {
        DestroyWindow(window);
        throw;
    }
}

HWND CreateHere(const DialogTemplate& dialog, HWND parent, DialogMode mode,
                const std::function<void(WindowRecord&)>& attach) {
    const bool isModal = mode == DialogMode::Modal;
    const UINT style = isModal ? (dialog.style & ~WS_CHILD) | WS_POPUP : dialog.style;
    const bool isPage = (style & WS_CHILD) != 0;
    const bool isShown = !isModal && (style & WS_VISIBLE);
    // The keys of a page are those of the dialog around it, which looks into it.
    const UINT exStyle = isPage ? dialog.exStyle | WS_EX_CONTROLPARENT : dialog.exStyle;
    const HWND window = CreateRecordedWindow({exStyle, "#32770", dialog.caption, style & ~WS_VISIBLE,
                                              PlaceOf(dialog, style, parent), parent, 0, nullptr},
                                             attach);
    if (!window || !Complete(dialog, window, isModal || (isShown && !isPage)))
        return nullptr;
    if (isShown)
        ShowWindow(window, SW_SHOW);
    return IsWindow(window) ? window : nullptr;
}

} // namespace

HWND CreateDialogWindow(const DialogTemplate& dialog, HWND parent, DialogMode mode,
                        const std::function<void(WindowRecord&)>& attach) {
    // The default button and the first focus are the business of the thread that gets the window.
    const auto create = [&] { return CreateHere(dialog, parent, mode, attach); };
    return parent ? OnOwner(parent, [&](WindowRecord&) { return create(); }) : create();
}

} // namespace korvel::internal
