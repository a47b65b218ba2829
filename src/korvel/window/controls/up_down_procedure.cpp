#include "korvel/window/controls/up_down_buddy.h"
#include "korvel/window/core/dc.h"
#include "korvel/window/core/window_changes.h"
#include "korvel/window/core/window_class.h"

#include <algorithm>
#include <utility>

namespace korvel::internal {

namespace {

using Arrow = UpDownState::Arrow;

// While an arrow is held down it steps again and again, after a pause.
constexpr std::uintptr_t RepeatTimer = 1;
constexpr unsigned FirstPause = 500; // milliseconds
constexpr unsigned NextPause = 50;

struct Halves {
    CRect first;
    CRect second;
};

Halves HalvesOf(const UpDownState& control) {
    const CRect client = GetClientRect(control.record.handle);
    Halves halves{client, client};
    if (control.HasStyle(UDS_HORZ))
        halves.first.right = halves.second.left = client.Width() / 2;
    else
        halves.first.bottom = halves.second.top = client.Height() / 2;
    return halves;
}

Arrow ArrowAt(const UpDownState& control, CPoint point) {
    const Halves halves = HalvesOf(control);
    if (halves.first.PtInRect(point))
        return Arrow::First;
    return halves.second.PtInRect(point) ? Arrow::Second : Arrow::None;
}

void Paint(const UpDownState& control, CDC& dc) {
    const bool isHorizontal = control.HasStyle(UDS_HORZ);
    const UINT inactive = control.record.IsSwitchedOn() ? 0 : DFCS_INACTIVE;
    const auto state = [&](Arrow arrow) { return inactive | (control.pressed == arrow ? DFCS_PUSHED : 0u); };
    const Halves halves = HalvesOf(control);
    dc.DrawFrameControl(halves.first, DFC_SCROLL,
                        (isHorizontal ? DFCS_SCROLLLEFT : DFCS_SCROLLUP) | state(Arrow::First));
    dc.DrawFrameControl(halves.second, DFC_SCROLL,
                        (isHorizontal ? DFCS_SCROLLRIGHT : DFCS_SCROLLDOWN) | state(Arrow::Second));
}

void Press(UpDownState& control, CPoint point) {
    control.pressed = ArrowAt(control, point);
    if (control.pressed == Arrow::None)
        return;
    SetFocus(control.buddy);
    SetCapture(control.record.handle);
    SetTimer(control.record.handle, RepeatTimer, FirstPause);
    Repaint(control.record);
    Step(control, control.pressed);
}

void Release(UpDownState& control) {
    if (std::exchange(control.pressed, Arrow::None) == Arrow::None)
        return;
    KillTimer(control.record.handle, RepeatTimer);
    if (GetCapture() == control.record.handle)
        ReleaseCapture();
    Repaint(control.record);
    EndSteps(control);
}

void Repeat(UpDownState& control) {
    if (control.pressed == Arrow::None)
        return;
    SetTimer(control.record.handle, RepeatTimer, NextPause);
    Step(control, control.pressed);
}

int SetPosition(UpDownState& control, int position) {
    const int former = std::exchange(control.range.position, control.range.Clamped(position));
    WriteBuddy(control);
    return former;
}

LRESULT GetPosition(UpDownState& control, bool& failed) {
    const auto shown = control.HasStyle(UDS_SETBUDDYINT) && IsWindow(control.buddy)
                           ? ReadBuddy(control)
                           : std::optional(control.range.position);
    failed = !shown || !control.range.Holds(*shown);
    if (!failed)
        control.range.position = *shown;
    return control.range.position;
}

LRESULT GetShortPosition(UpDownState& control) {
    bool failed = false;
    const LRESULT position = GetPosition(control, failed);
    return MAKELPARAM(static_cast<int>(position), failed);
}

LRESULT GetLongPosition(UpDownState& control, LPARAM error) {
    bool failed = false;
    const LRESULT position = GetPosition(control, failed);
    if (error)
        *reinterpret_cast<BOOL*>(error) = failed;
    return position;
}

LRESULT GetRange(const UpDownState& control, WPARAM lower, LPARAM upper) {
    if (lower)
        *reinterpret_cast<int*>(lower) = control.range.first;
    if (upper)
        *reinterpret_cast<int*>(upper) = control.range.second;
    return 0;
}

void SetRange(UpDownState& control, int lower, int upper) {
    control.range.first = lower;
    control.range.second = upper;
    control.range.position = control.range.Clamped(control.range.position);
}

LRESULT ChangeBuddy(UpDownState& control, HWND buddy) {
    const HWND former = control.buddy;
    SetBuddy(control, buddy);
    return reinterpret_cast<LRESULT>(former);
}

// The control before it among its siblings.
void FindBuddy(UpDownState& control) {
    const RecordRef parent = Find(control.record.parent);
    if (!parent || !control.HasStyle(UDS_AUTOBUDDY))
        return;
    const auto self = std::find(parent->children.begin(), parent->children.end(), control.record.handle);
    if (self != parent->children.begin())
        SetBuddy(control, *(self - 1));
}

std::optional<LRESULT> HandleMessage(UpDownState& control, UINT message, WPARAM wParam, LPARAM lParam) {
    const CPoint words = PointOf(lParam);
    switch (message) {
    case UDM_SETRANGE:
        return SetRange(control, words.y, words.x), 0;
    case UDM_SETRANGE32:
        return SetRange(control, static_cast<int>(wParam), static_cast<int>(lParam)), 0;
    case UDM_GETRANGE:
        return MAKELPARAM(control.range.second, control.range.first);
    case UDM_GETRANGE32:
        return GetRange(control, wParam, lParam);
    case UDM_SETPOS:
        return SetPosition(control, words.x);
    case UDM_SETPOS32:
        return SetPosition(control, static_cast<int>(lParam));
    case UDM_GETPOS:
        return GetShortPosition(control);
    case UDM_GETPOS32:
        return GetLongPosition(control, lParam);
    case UDM_SETBUDDY:
        return ChangeBuddy(control, reinterpret_cast<HWND>(wParam));
    case UDM_GETBUDDY:
        return reinterpret_cast<LRESULT>(control.buddy);
    case WM_CREATE:
        return FindBuddy(control), 0;
    case WM_PAINT:
        return Paint(control, *reinterpret_cast<CDC*>(wParam)), 0;
    case WM_ENABLE:
        return Repaint(control.record), 0;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
        return Press(control, words), 0;
    case WM_LBUTTONUP:
    case WM_CAPTURECHANGED:
        return Release(control), 0;
    case WM_TIMER:
        return Repeat(control), 0;
    case WM_GETDLGCODE:
        return DLGC_STATIC;
    default:
        return std::nullopt;
    }
}

LRESULT UpDownProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const ControlOf<UpDownState> control(window);
    const auto answer = control ? HandleMessage(*control, message, wParam, lParam) : std::nullopt;
    return answer ? *answer : DefWindowProcA(window, message, wParam, lParam);
}

[[maybe_unused]] const bool Registered =
    RegisterControlClass<UpDownState>("msctls_updown32", UpDownProcedure);

} // namespace

} // namespace korvel::internal
