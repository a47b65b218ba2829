#include "korvel/window/controls/button_state.h"
#include "korvel/window/controls/group_box.h"
#include "korvel/window/core/dc.h"
#include "korvel/window/core/dialog_controls.h"
#include "korvel/window/core/input_delivery.h"
#include "korvel/window/core/window.h"
#include "korvel/window/core/window_changes.h"
#include "korvel/window/core/window_class.h"
#include "korvel/window/display/window_view.h"

#include <algorithm>
#include <optional>

namespace korvel::internal {

namespace {

// The tab stop of a group of radio buttons is the one that is checked.
void SetCheck(ButtonState& button, int check) {
    if (button.IsRadio())
        button.record.style = check ? button.record.style | WS_TABSTOP : button.record.style & ~WS_TABSTOP;
    if (button.check == check)
        return;
    button.check = check;
    TellDisplay(button.record, Aspect::State);
    Repaint(button.record);
}

void UncheckOthersInGroup(const ButtonState& button) {
    const RecordRef parent = Find(button.record.parent);
    if (!parent)
        return;
    for (const HWND sibling : GroupAround(*parent, button.record.handle)) {
        const ControlOf<ButtonState> other(sibling);
        if (other && other.get() != &button && other->Type() == BS_AUTORADIOBUTTON)
            SetCheck(*other, 0);
    }
}

void SetStyle(ButtonState& button, WPARAM type, bool redraw) {
    button.record.style = (button.record.style & ~BS_TYPEMASK) | (static_cast<UINT>(type) & BS_TYPEMASK);
    TellDisplay(button.record, Aspect::Style | Aspect::State);
    if (redraw)
        Repaint(button.record);
}

void SetPicture(ButtonState& button, const Image* picture) {
    button.picture = picture ? std::optional(*picture) : std::nullopt;
    TellDisplay(button.record, Aspect::State);
    Repaint(button.record);
}

UINT DialogCode(const ButtonState& button) {
    switch (button.Type()) {
    case BS_PUSHBUTTON:
        return DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON;
    case BS_DEFPUSHBUTTON:
        return DLGC_BUTTON | DLGC_DEFPUSHBUTTON;
    case BS_RADIOBUTTON:
    case BS_AUTORADIOBUTTON:
        return DLGC_BUTTON | DLGC_RADIOBUTTON;
    case BS_GROUPBOX:
        return DLGC_STATIC;
    default:
        return DLGC_BUTTON;
    }
}

void Check(ButtonState& button, int check) {
    SetCheck(button, check);
    if (check != 0 && button.Type() == BS_AUTORADIOBUTTON)
        UncheckOthersInGroup(button);
}

void Click(ButtonState& button) {
    if (button.Type() == BS_AUTOCHECKBOX)
        Check(button, button.check == 0);
    else if (button.Type() == BS_AUTORADIOBUTTON)
        Check(button, 1);
    NotifyParentCommand(button.record.handle, BN_CLICKED);
}

void ShowPressed(ButtonState& button, bool pressed) {
    if (button.isPressed == pressed)
        return;
    button.isPressed = pressed;
    Repaint(button.record);
}

bool IsInside(const ButtonState& button, LPARAM point) {
    return GetClientRect(button.record.handle).PtInRect(PointOf(point));
}

void Release(ButtonState& button, LPARAM point) {
    const HWND window = button.record.handle;
    if (GetCapture() != window)
        return;
    ShowPressed(button, false);
    ReleaseCapture();
    if (IsInside(button, point))
        Click(button);
}

void DrawOwn(const ButtonState& button, CDC& dc) {
    const HWND window = button.record.handle;
    DRAWITEMSTRUCT item;
    item.CtlType = ODT_BUTTON;
    item.CtlID = static_cast<UINT>(button.record.id);
    item.itemState = (button.isPressed ? ODS_SELECTED : 0u) | (GetFocus() == window ? ODS_FOCUS : 0u) |
                     (button.record.IsSwitchedOn() ? 0u : ODS_DISABLED);
    item.hwndItem = window;
    item.hDC = &dc;
    item.rcItem = GetClientRect(window);
    SendMessageA(GetParent(window), WM_DRAWITEM, item.CtlID, reinterpret_cast<LPARAM>(&item));
}

void HandleMouse(ButtonState& button, UINT message, LPARAM lParam) {
    const HWND window = button.record.handle;
    if (message == WM_LBUTTONUP) {
        Release(button, lParam);
    } else if (message == WM_MOUSEMOVE) {
        if (GetCapture() == window)
            ShowPressed(button, IsInside(button, lParam));
    } else {
        SetCapture(window);
        ShowPressed(button, true);
    }
}

void HandleSpace(ButtonState& button, UINT message) {
    const bool wasPressed = button.isPressed;
    ShowPressed(button, message == WM_KEYDOWN);
    if (message == WM_KEYUP && wasPressed)
        Click(button);
}

// What the button does when no native widget acts for it; false: nothing.
bool HandleInput(ButtonState& button, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_KEYDOWN && message != WM_KEYUP)
        HandleMouse(button, message, lParam);
    else if (wParam == VK_SPACE)
        HandleSpace(button, message);
    else
        return false;
    return true;
}

std::optional<LRESULT> HandleMessage(ButtonState& button, UINT message, WPARAM wParam, LPARAM lParam) {
    const HWND window = button.record.handle;
    const bool isGroupBox = button.Type() == BS_GROUPBOX;
    switch (message) {
    case BM_GETCHECK:
        return button.check;
    case BM_SETCHECK:
        return Check(button, static_cast<int>(wParam)), 0;
    case BM_SETSTYLE:
        return SetStyle(button, wParam, lParam != 0), 0;
    case BM_SETIMAGE:
        return SetPicture(button, reinterpret_cast<const Image*>(lParam)), 0;
    case BM_CLICK:
        if (IsWindowEnabled(window))
            Click(button);
        return 0;
    case WM_GETDLGCODE:
        return DialogCode(button);
    case WM_PAINT:
        if (button.Type() == BS_OWNERDRAW)
            DrawOwn(button, *reinterpret_cast<CDC*>(wParam));
        else if (isGroupBox)
            PaintGroupBox(window, *reinterpret_cast<CDC*>(wParam));
        return 0;
    case WM_ERASEBKGND: // what is inside a group box are its siblings
        return isGroupBox ? std::optional<LRESULT>(1) : std::nullopt;
    case WM_SETTEXT:
        if (isGroupBox)
            Repaint(button.record);
        return std::nullopt;
    case WM_KILLFOCUS: // Space may be released in another window
        button.isPressed = false;
        [[fallthrough]];
    case WM_SETFOCUS:
    case WM_ENABLE:
        Repaint(button.record);
        return 0;
    case WM_CAPTURECHANGED:
        return ShowPressed(button, false), 0;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
        if (isGroupBox)
            return std::nullopt;
        SetFocus(window);
        [[fallthrough]];
    case WM_MOUSEMOVE:
    case WM_LBUTTONUP:
    case WM_KEYDOWN:
    case WM_KEYUP:
        if (isGroupBox)
            return std::nullopt;
        if (button.Type() != BS_OWNERDRAW && LeaveToNativeWidget(window, message, wParam, lParam))
            return 0;
        return HandleInput(button, message, wParam, lParam) ? std::optional<LRESULT>(0) : std::nullopt;
    default:
        return std::nullopt;
    }
}

} // namespace

// A check box that does not check itself keeps its state, whatever its widget has shown.
void ButtonState::Value(double value) {
    if (Type() == BS_AUTOCHECKBOX || Type() == BS_AUTORADIOBUTTON)
        internal::Check(*this, value != 0);
    else
        TellDisplay(record, Aspect::State);
    NotifyParentCommand(record.handle, BN_CLICKED);
}

namespace {

LRESULT ButtonProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const ControlOf<ButtonState> button(window);
    const auto answer = button ? HandleMessage(*button, message, wParam, lParam) : std::nullopt;
    return answer ? *answer : DefWindowProcA(window, message, wParam, lParam);
}

[[maybe_unused]] const bool Registered = RegisterControlClass<ButtonState>("BUTTON", ButtonProcedure);

} // namespace

} // namespace korvel::internal
