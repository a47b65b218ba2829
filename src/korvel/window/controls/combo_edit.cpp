#include "korvel/window/controls/combo_edit.h"

#include "korvel/platform/raised_flag.h"
#include "korvel/window/controls/combo_choice.h"
#include "korvel/window/controls/combo_keyboard.h"
#include "korvel/window/controls/edit_procedure.h"
#include "korvel/window/core/window_changes.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace korvel::internal {

namespace {

constexpr int EditId = 1001; // the window model's
constexpr int Frame = 3;     // round the field

bool GoesToBox(const ComboBoxState& box, UINT message, WPARAM wParam) {
    const bool isReturnOrEscape = wParam == VK_RETURN || wParam == VK_ESCAPE;
    return message == WM_SYSKEYDOWN || (message == WM_KEYDOWN && (!isReturnOrEscape || box.isDropped));
}

LRESULT EditInBoxProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const ControlOf<ComboBoxState> box(GetParent(window));
    if (box && GoesToBox(*box, message, wParam) && PressKey(*box, message, static_cast<UINT>(wParam)))
        return 0;
    const LRESULT result = EditProcedure(window, message, wParam, lParam);
    return box && message == WM_GETDLGCODE ? result | KeysOfOpenList(*box, wParam) : result;
}

void Notify(const ComboBoxState& box, UINT code) {
    NotifyParentCommand(box.record.handle, code);
}

LRESULT SetSelection(const ComboBoxState& box, LPARAM places) {
    const CPoint range = PointOf(places); // signed words
    return SendMessageA(box.edit, EM_SETSEL, static_cast<WPARAM>(range.x), range.y);
}

LRESULT SetBoxText(ComboBoxState& box, LPARAM text) {
    if (!box.edit)
        return CB_ERR; // it shows its entries only
    const RaisedFlag setting(box.isSettingText);
    return SendMessageA(box.edit, WM_SETTEXT, 0, text);
}

// A display that does not know it has arrows as wide as scroll bars.
int ArrowWidth() {
    const int width = GetSystemMetrics(SM_KORVEL_ARROWWIDTH);
    return width > 0 ? width : GetSystemMetrics(SM_CXVSCROLL);
}

} // namespace

void CreateEdit(ComboBoxState& box) {
    const UINT disabled = box.record.style & WS_DISABLED;
    const CString text = std::exchange(box.record.text, {});
    if (!box.HasEdit())
        return;
    box.edit = CreateWindowExA(0, "EDIT", text.c_str(), WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL | disabled, {},
                               box.record.handle, EditId);
    SetWindowLongPtrA(box.edit, GWLP_WNDPROC, reinterpret_cast<LPARAM>(EditInBoxProcedure));
}

void PlaceEdit(const ComboBoxState& box) {
    if (!box.edit)
        return;
    const CRect client = GetClientRect(box.record.handle);
    const int button = box.IsSimple() ? 0 : ArrowWidth();
    const int line = GetSystemMetrics(SM_KORVEL_TEXTHEIGHT) + 2;
    MoveWindow(box.edit, {Frame, Frame, std::max(Frame, client.right - Frame - button),
                          box.IsSimple() ? Frame + line : std::max(Frame, client.bottom - Frame)});
}

bool HearEdit(ComboBoxState& box, WPARAM wParam, LPARAM lParam) {
    if (!box.edit || reinterpret_cast<HWND>(lParam) != box.edit)
        return false;
    switch (HIWORD(wParam)) {
    case EN_SETFOCUS:
        Notify(box, CBN_SETFOCUS);
        break;
    case EN_KILLFOCUS:
        LoseFocus(box);
        break;
    case EN_UPDATE:
        if (box.isSettingText)
            break;
        box.current = ComboEntries::None;
        TellDisplay(box.record, Aspect::State);
        Notify(box, CBN_EDITUPDATE);
        break;
    case EN_CHANGE:
        if (!box.isSettingText)
            Notify(box, CBN_EDITCHANGE);
        break;
    default:
        break;
    }
    return true;
}

std::optional<LRESULT> HandleText(ComboBoxState& box, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case CB_GETEDITSEL:
        return box.edit ? SendMessageA(box.edit, EM_GETSEL, wParam, lParam) : CB_ERR;
    case CB_SETEDITSEL:
        return box.edit ? SetSelection(box, lParam) : CB_ERR;
    case CB_LIMITTEXT:
        if (box.edit)
            SendMessageA(box.edit, EM_LIMITTEXT, wParam, 0);
        return box.edit ? 1 : CB_ERR;
    case WM_SETTEXT:
        return SetBoxText(box, lParam);
    case WM_GETTEXT:
    case WM_GETTEXTLENGTH:
    case WM_CUT:
    case WM_COPY:
    case WM_PASTE:
    case WM_CLEAR:
    case WM_UNDO:
        if (!box.edit)
            return std::nullopt;
        return SendMessageA(box.edit, message, wParam, lParam);
    default:
        return std::nullopt;
    }
}

} // namespace korvel::internal
