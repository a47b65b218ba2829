#include "korvel/window/controls/date_time_keyboard.h"
#include "korvel/window/core/input_delivery.h"
#include "korvel/window/core/window_changes.h"
#include "korvel/window/core/window_class.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace korvel::internal {

namespace {

using Range = std::array<SYSTEMTIME, 2>;

LRESULT GetTime(const DateTimeState& control, LPARAM time) {
    if (control.isNone)
        return GDT_NONE;
    if (time)
        *reinterpret_cast<SYSTEMTIME*>(time) = TimeOf(control.moment, control.milliseconds);
    return GDT_VALID;
}

bool SetTime(DateTimeState& control, WPARAM flag, LPARAM time) {
    if (flag == GDT_NONE && control.HasStyle(DTS_SHOWNONE))
        return SetNone(control, true), true;
    if (flag != GDT_VALID || !time)
        return false;
    const auto& fields = *reinterpret_cast<const SYSTEMTIME*>(time);
    const auto moment = MomentOf(fields);
    if (!moment || *moment < control.first.value_or(*moment) || *moment > control.last.value_or(*moment))
        return false;
    control.milliseconds = fields.wMilliseconds;
    SetNone(control, false);
    SetMoment(control, *moment);
    return true;
}

LRESULT GetRange(const DateTimeState& control, LPARAM range) {
    Range times;
    if (control.first)
        times[0] = TimeOf(*control.first);
    if (control.last)
        times[1] = TimeOf(*control.last);
    if (range)
        std::copy(times.begin(), times.end(), reinterpret_cast<SYSTEMTIME*>(range));
    return (control.first ? GDTR_MIN : 0u) | (control.last ? GDTR_MAX : 0u);
}

bool SetRange(DateTimeState& control, WPARAM flags, LPARAM range) {
    const auto* times = reinterpret_cast<const SYSTEMTIME*>(range);
    if (flags != 0 && !times)
        return false;
    const auto first = flags & GDTR_MIN ? MomentOf(times[0]) : std::nullopt;
    const auto last = flags & GDTR_MAX ? MomentOf(times[1]) : std::nullopt;
    const bool isMissing = ((flags & GDTR_MIN) && !first) || ((flags & GDTR_MAX) && !last);
    if (isMissing || (first && last && *last < *first))
        return false;
    control.first = first;
    control.last = last;
    const double nearest = std::max(control.moment, first.value_or(control.moment));
    SetMoment(control, std::min(nearest, last.value_or(nearest)));
    return true;
}

std::optional<LRESULT> HandleDateMessage(DateTimeState& control, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case DTM_GETSYSTEMTIME:
        return GetTime(control, lParam);
    case DTM_SETSYSTEMTIME:
        return SetTime(control, wParam, lParam);
    case DTM_GETRANGE:
        return GetRange(control, lParam);
    case DTM_SETRANGE:
        return SetRange(control, wParam, lParam);
    case DTM_SETFORMAT:
        return SetPicture(control, lParam ? reinterpret_cast<const char*>(lParam) : ""), 1;
    case DTM_GETMONTHCAL:
        return 0;
    case DTM_CLOSEMONTHCAL:
        return CloseCalendar(control, CalendarEnd::Take), 0;
    case WM_SETTEXT: // it shows its date
        return 0;
    default:
        return std::nullopt;
    }
}

// Without a native widget: the box of DTS_SHOWNONE is at the left, the button of the calendar at the right.
void PressMouse(DateTimeState& control, CPoint point) {
    const CRect client = GetClientRect(control.record.handle);
    if (point.x >= client.right - GetSystemMetrics(SM_CXVSCROLL))
        PressKey(control, WM_KEYDOWN, VK_F4);
    else if (control.HasStyle(DTS_SHOWNONE) && point.x < client.Height())
        PressKey(control, WM_KEYDOWN, VK_SPACE);
}

bool ActOn(DateTimeState& control, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
        return PressKey(control, message, static_cast<UINT>(wParam));
    case WM_CHAR:
        return TypeDigit(control, static_cast<char>(wParam));
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
        return PressMouse(control, PointOf(lParam)), true;
    case WM_MOUSEWHEEL:
        return PressKey(control, WM_KEYDOWN, static_cast<std::int16_t>(HIWORD(wParam)) > 0 ? VK_UP : VK_DOWN);
    default:
        return true;
    }
}

std::optional<LRESULT> HandleInput(DateTimeState& control, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK)
        SetFocus(control.record.handle);
    const bool isKey = message == WM_KEYDOWN || message == WM_SYSKEYDOWN;
    const bool isOwn = isKey && IsKeyOfWindow(control, message, static_cast<UINT>(wParam));
    if (!isOwn && LeaveToNativeWidget(control.record.handle, message, wParam, lParam))
        return 0;
    return ActOn(control, message, wParam, lParam) ? std::optional<LRESULT>(0) : std::nullopt;
}

std::optional<LRESULT> HandleWindow(DateTimeState& control, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_CREATE:
        return SetPicture(control, {}), 0;
    case WM_KILLFOCUS:
        control.typedDigits = 0;
        return CloseCalendar(control, CalendarEnd::Take), 0;
    case WM_GETDLGCODE:
        return DLGC_WANTARROWS | DLGC_WANTCHARS | (control.isDropped ? DLGC_WANTALLKEYS : 0u);
    case WM_MOUSEWHEEL: // a widget turns the part that it has selected, with the focus only
        if (GetFocus() != control.record.handle)
            return std::nullopt;
        [[fallthrough]];
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
    case WM_CHAR:
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_LBUTTONUP:
    case WM_MOUSEMOVE:
        return HandleInput(control, message, wParam, lParam);
    default:
        return std::nullopt;
    }
}

LRESULT DateTimeProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (const ControlOf<DateTimeState> control(window); control) {
        for (const auto handle : {HandleWindow, HandleDateMessage})
            if (const auto answer = handle(*control, message, wParam, lParam))
                return *answer;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

[[maybe_unused]] const bool Registered =
    RegisterControlClass<DateTimeState>("SysDateTimePick32", DateTimeProcedure);

} // namespace

} // namespace korvel::internal
