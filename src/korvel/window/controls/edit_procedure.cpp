#include "korvel/window/controls/edit_procedure.h"

#include "korvel/window/controls/edit_keyboard.h"
#include "korvel/window/core/display_thread.h"
#include "korvel/window/core/input.h"
#include "korvel/window/core/input_delivery.h"
#include "korvel/window/core/window.h"
#include "korvel/window/core/window_changes.h"
#include "korvel/window/core/window_class.h"

#include <algorithm>
#include <optional>

namespace korvel::internal {

namespace {

LRESULT GetSelection(const EditState& edit, WPARAM wParam, LPARAM lParam) {
    const TextRange selection = SelectionOf(edit);
    if (wParam)
        *reinterpret_cast<int*>(wParam) = selection.start;
    if (lParam)
        *reinterpret_cast<int*>(lParam) = selection.end;
    return MAKELPARAM(selection.start, selection.end);
}

void SetLimit(EditState& edit, WPARAM limit) {
    edit.limit = limit == 0 ? NoTextLimit : static_cast<int>(std::min<WPARAM>(limit, NoTextLimit));
    TellDisplay(edit.record, Aspect::State);
}

void SetReadOnly(EditState& edit, bool readOnly) {
    edit.record.style = readOnly ? edit.record.style | ES_READONLY : edit.record.style & ~ES_READONLY;
    TellDisplay(edit.record, Aspect::State);
}

// Half of an average character, which a digit is.
int FontMargin() {
    return OnDisplayThread([](IDisplay& display) { return display.TextWidth("0"); }) / 2;
}

LRESULT SetMargins(EditState& edit, WPARAM which, LPARAM margins) {
    const bool isFont = which == EC_USEFONTINFO;
    const auto margin = [&](unsigned wanted) {
        return isFont || wanted == EC_USEFONTINFO ? FontMargin() : static_cast<int>(wanted);
    };
    if (which & EC_LEFTMARGIN)
        edit.leftMargin = margin(LOWORD(static_cast<WPARAM>(margins)));
    if (which & EC_RIGHTMARGIN)
        edit.rightMargin = margin(HIWORD(static_cast<WPARAM>(margins)));
    TellDisplay(edit.record, Aspect::State);
    return 0;
}

std::optional<LRESULT> HandleEditMessage(EditState& edit, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case EM_GETSEL:
        return GetSelection(edit, wParam, lParam);
    case EM_SETSEL:
        return Select(edit, static_cast<int>(wParam), static_cast<int>(lParam)), 1;
    case EM_REPLACESEL:
        ReplaceSelection(edit, lParam ? reinterpret_cast<const char*>(lParam) : "", TextOrigin::Program);
        return 0;
    case EM_GETMODIFY:
        return edit.isModified;
    case EM_SETMODIFY:
        edit.isModified = wParam != 0;
        return 0;
    case EM_LIMITTEXT:
        return SetLimit(edit, wParam), 0;
    case EM_GETLIMITTEXT:
        return edit.limit;
    case EM_SETREADONLY:
        return SetReadOnly(edit, wParam != 0), 1;
    case EM_SETMARGINS:
        return SetMargins(edit, wParam, lParam);
    case EM_GETMARGINS:
        return MAKELPARAM(edit.leftMargin, edit.rightMargin);
    case EM_UNDO:
    case WM_UNDO:
        return Undo(edit);
    case WM_COPY:
        return Copy(edit), 0;
    case WM_CUT:
        return Cut(edit), 0;
    case WM_PASTE:
        return Paste(edit), 0;
    case WM_CLEAR:
        return EraseByUser(edit, {}), 0;
    default:
        return std::nullopt;
    }
}

void HandleMouse(EditState& edit, UINT message, WPARAM wParam, LPARAM lParam) {
    const HWND window = edit.record.handle;
    const bool isDragging = GetCapture() == window;
    if (message == WM_LBUTTONDOWN) {
        SetCapture(window);
        PressMouse(edit, PointOf(lParam), (wParam & MK_SHIFT) != 0);
    } else if (message == WM_LBUTTONDBLCLK) {
        SelectWordAt(edit, PointOf(lParam));
    } else if (message == WM_MOUSEMOVE && isDragging) {
        DragMouse(edit, PointOf(lParam));
    } else if (message == WM_LBUTTONUP && isDragging) {
        ReleaseCapture();
    }
}

// What the field does when no native widget acts for it; false: nothing.
bool HandleInput(EditState& edit, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_KEYDOWN)
        return PressKey(edit, static_cast<UINT>(wParam));
    HandleMouse(edit, message, wParam, lParam);
    return true;
}

// The native widget types a key's characters together, after all of them have come here.
bool HasRoomForKey(const EditState& edit) {
    const input::KeyOnTheWay* key = input::CurrentKey();
    return !key || HasRoomFor(edit, TextOfCharacters(edit, key->characters));
}

// A native widget knows no limit, so a key that goes beyond it is not left to it.
std::optional<LRESULT> HandleCharacter(EditState& edit, WPARAM byte) {
    const HWND window = edit.record.handle;
    const auto character = TypedText(window, byte);
    if ((HasRoomForKey(edit) && LeaveToNativeWidget(window, WM_CHAR, byte, 0)) || !character ||
        TypeCharacter(edit, *character))
        return 0;
    return std::nullopt;
}

// A field of several lines leaves its dialog the keys that it does not type.
UINT DialogCode(const EditState& edit, const MSG* key) {
    const bool isLeft = key && (key->wParam == VK_TAB || key->wParam == VK_ESCAPE ||
                                (key->wParam == VK_RETURN && !edit.HasStyle(ES_WANTRETURN)));
    return DLGC_WANTARROWS | DLGC_HASSETSEL | DLGC_WANTCHARS |
           (edit.HasStyle(ES_MULTILINE) && !isLeft ? DLGC_WANTALLKEYS : 0u);
}

std::optional<LRESULT> HandleWindow(EditState& edit, UINT message, WPARAM wParam, LPARAM lParam) {
    const HWND window = edit.record.handle;
    switch (message) {
    case WM_SETTEXT:
        return SetText(edit, wParam, lParam);
    case WM_SETFOCUS:
        NotifyParentCommand(window, EN_SETFOCUS);
        return 0;
    case WM_KILLFOCUS:
        edit.isUndoLeft = false;
        NotifyParentCommand(window, EN_KILLFOCUS);
        return 0;
    case WM_KEYUP:
        edit.isUndoLeft = false; // the native widget had nothing to take back
        return std::nullopt;
    case WM_GETDLGCODE:
        return DialogCode(edit, reinterpret_cast<const MSG*>(lParam));
    case WM_CHAR:
        return HandleCharacter(edit, wParam);
    case WM_LBUTTONDOWN:
        SetFocus(window);
        [[fallthrough]];
    case WM_KEYDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_MOUSEMOVE:
    case WM_LBUTTONUP:
        if (LeaveToNativeWidget(window, message, wParam, lParam)) {
            edit.isUndoLeft = message == WM_KEYDOWN && IsUndoKey(static_cast<UINT>(wParam));
            return 0;
        }
        return HandleInput(edit, message, wParam, lParam) ? std::optional<LRESULT>(0) : std::nullopt;
    default:
        return std::nullopt;
    }
}

} // namespace

LRESULT EditProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (const ControlOf<EditState> edit(window); edit) {
        for (const auto handle : {HandleWindow, HandleEditMessage})
            if (const auto answer = handle(*edit, message, wParam, lParam))
                return *answer;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

namespace {

[[maybe_unused]] const bool Registered = RegisterControlClass<EditState>("EDIT", EditProcedure);

} // namespace

} // namespace korvel::internal
