#include "korvel/window/dialog/dialog_keyboard.h"

#include "korvel/platform/code_page.h"
#include "korvel/window/core/dialog_controls.h"
#include "korvel/window/core/input.h"
#include "korvel/window/core/window_tree.h"
#include "korvel/window/dialog/access_keys.h"
#include "korvel/window/dialog/default_button.h"
#include "korvel/window/dialog/dialog_focus.h"
#include "korvel/window/dialog/dialog_state.h"

namespace korvel {

using namespace internal;

namespace {

void PressDefaultButton(HWND dialog) {
    const LRESULT answer = SendMessageA(dialog, DM_GETDEFID, 0, 0);
    const bool hasDefault = HIWORD(static_cast<WPARAM>(answer)) == DC_HASDEFID;
    SendButtonCommand(dialog, hasDefault ? static_cast<int>(LOWORD(static_cast<WPARAM>(answer))) : IDOK);
}

void PressReturn(HWND dialog, HWND control) {
    if (IsPushButton(control))
        NotifyParentCommand(control, BN_CLICKED);
    else
        PressDefaultButton(dialog);
}

void PressArrow(HWND dialog, HWND control, bool previous) {
    const HWND next = GetNextDlgGroupItem(dialog, control, previous);
    if (!next || next == control)
        return;
    FocusControl(next);
    if ((DialogCodeOf(next) & DLGC_RADIOBUTTON) && !SendMessageA(next, BM_GETCHECK, 0, 0))
        SendMessageA(next, BM_CLICK, 0, 0);
}

bool PressKey(HWND dialog, HWND control, UINT key, UINT wanted) {
    const auto wants = [&](UINT bits) { return (wanted & (bits | DLGC_WANTALLKEYS)) != 0; };
    switch (key) {
    case VK_TAB:
        if (wants(DLGC_WANTTAB) || IsKeyDown(VK_CONTROL))
            return false;
        PressTab(dialog, IsKeyDown(VK_SHIFT));
        return true;
    case VK_LEFT:
    case VK_UP:
    case VK_RIGHT:
    case VK_DOWN:
        if (wants(DLGC_WANTARROWS))
            return false;
        PressArrow(dialog, control, key == VK_LEFT || key == VK_UP);
        return true;
    case VK_RETURN:
        if (wants(0))
            return false;
        PressReturn(dialog, control);
        return true;
    case VK_ESCAPE:
        if (wants(0))
            return false;
        SendButtonCommand(dialog, IDCANCEL);
        return true;
    default:
        return false;
    }
}

// The character of a key that begins with this byte; empty for its later bytes.
CString CharacterOf(char byte) {
    const input::KeyOnTheWay* key = input::CurrentKey();
    const std::size_t at = key ? key->characters.find(byte) : CString::npos;
    if (at == CString::npos)
        return CString(1, byte); // sent by a program
    if (platform::CharacterBorder(key->characters, at) != at)
        return {};
    return key->characters.substr(at, platform::NextCharacter(key->characters, at) - at);
}

bool TypeAccessKey(HWND dialog, WPARAM byte) {
    constexpr WPARAM Space = ' ';
    const CString character = CharacterOf(static_cast<char>(byte));
    return byte > Space && !character.empty() && PressAccessKey(dialog, character);
}

} // namespace

bool IsDialogMessageA(HWND dialog, MSG& message) {
    const HWND outermost = OutermostDialog(dialog);
    if (!outermost || !IsWithin(outermost, message.hwnd))
        return false;
    if (message.message == WM_SYSCHAR)
        return TypeAccessKey(outermost, message.wParam);
    if (message.message != WM_KEYDOWN && message.message != WM_CHAR)
        return false;
    const auto wanted = static_cast<UINT>(
        SendMessageA(message.hwnd, WM_GETDLGCODE, message.wParam, reinterpret_cast<LPARAM>(&message)));
    if (message.message == WM_KEYDOWN)
        return PressKey(outermost, message.hwnd, static_cast<UINT>(message.wParam), wanted);
    return !(wanted & (DLGC_WANTCHARS | DLGC_WANTALLKEYS)) && TypeAccessKey(outermost, message.wParam);
}

} // namespace korvel
