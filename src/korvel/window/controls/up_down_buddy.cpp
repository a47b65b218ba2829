#include "korvel/window/controls/up_down_buddy.h"

#include "korvel/platform/regional_settings.h"
#include "korvel/window/controls/spin_button_ctrl.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <map>
#include <mutex>
#include <utility>

namespace korvel::internal {

namespace {

constexpr int ArrowsWidth = 17;

// --- the keys of the buddy ---

struct Hook {
    WNDPROC former = nullptr;
    HWND control = nullptr;
};

// By buddy; a buddy keeps its hook until it ends, as another procedure may have been put above it. Never
// destroyed, as windows may end while the process does.
struct Hooks {
    std::mutex mutex;
    std::map<HWND, Hook> byBuddy;
};

Hooks& TheHooks() {
    static auto& hooks = *new Hooks;
    return hooks;
}

Hook HookOf(HWND buddy, UINT message) {
    const std::lock_guard lock(TheHooks().mutex);
    const auto found = TheHooks().byBuddy.find(buddy);
    const Hook hook = found == TheHooks().byBuddy.end() ? Hook() : found->second;
    if (message == WM_NCDESTROY)
        TheHooks().byBuddy.erase(buddy);
    return hook;
}

bool StepByKey(HWND window, UINT message, WPARAM key) {
    const ControlOf<UpDownState> control(window);
    const UINT first = control && control->HasStyle(UDS_HORZ) ? VK_LEFT : VK_UP;
    const UINT second = control && control->HasStyle(UDS_HORZ) ? VK_RIGHT : VK_DOWN;
    if (!control || !control->HasStyle(UDS_ARROWKEYS) || (key != first && key != second))
        return false;
    if (message == WM_KEYDOWN)
        Step(*control, key == first ? UpDownState::Arrow::First : UpDownState::Arrow::Second);
    else
        EndSteps(*control);
    return true;
}

LRESULT BuddyProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const Hook hook = HookOf(window, message);
    const bool isKey = message == WM_KEYDOWN || message == WM_KEYUP;
    if (isKey && StepByKey(hook.control, message, wParam))
        return 0;
    return CallWindowProcA(hook.former ? hook.former : DefWindowProcA, window, message, wParam, lParam);
}

void HookKeys(HWND buddy, HWND control) {
    const std::lock_guard lock(TheHooks().mutex);
    const auto [hook, isNew] = TheHooks().byBuddy.try_emplace(buddy);
    hook->second.control = control;
    if (!isNew)
        return;
    hook->second.former = reinterpret_cast<WNDPROC>(GetWindowLongPtrA(buddy, GWLP_WNDPROC));
    SetWindowLongPtrA(buddy, GWLP_WNDPROC, reinterpret_cast<LPARAM>(BuddyProcedure));
}

void UnhookKeys(HWND buddy, HWND control) {
    const std::lock_guard lock(TheHooks().mutex);
    const auto known = TheHooks().byBuddy.find(buddy);
    if (known != TheHooks().byBuddy.end() && known->second.control == control)
        known->second.control = nullptr;
}

// The buddy gives up the width of the arrows.
void AlignAt(const UpDownState& control, HWND buddy) {
    const RecordRef record = Find(buddy);
    if (!record || !control.HasStyle(UDS_ALIGNLEFT | UDS_ALIGNRIGHT))
        return;
    CRect field = record->rect;
    CRect arrows = field;
    if (control.HasStyle(UDS_ALIGNRIGHT))
        arrows.left = field.right = std::max(field.left, field.right - ArrowsWidth);
    else
        arrows.right = field.left = std::min(field.right, field.left + ArrowsWidth);
    MoveWindow(buddy, field);
    MoveWindow(control.record.handle, arrows);
}

// --- the number ---

CString WithSeparators(CString digits, const CString& separator) {
    const std::size_t sign = digits.front() == '-' ? 1 : 0;
    for (std::size_t at = digits.size(); at > sign + 3;)
        digits.insert(at -= 3, separator);
    return digits;
}

CString WithoutSeparators(CString text, const CString& separator) {
    for (std::size_t at = 0; !separator.empty() && (at = text.find(separator, at)) != CString::npos;)
        text.erase(at, separator.size());
    return text;
}

CString Separator(const UpDownState& control) {
    return control.HasStyle(UDS_NOTHOUSANDS) ? CString()
                                             : platform::ReadRegionalSettings().thousandsSeparator;
}

std::int64_t Wrapped(const ControlRange& range, std::int64_t position) {
    if (position > range.Upper())
        return range.Lower();
    return position < range.Lower() ? range.Upper() : position;
}

void TellScroll(const UpDownState& control, UINT code, int position) {
    SendMessageA(GetParent(control.record.handle), control.HasStyle(UDS_HORZ) ? WM_HSCROLL : WM_VSCROLL,
                 MAKEWPARAM(code, static_cast<unsigned>(position)),
                 reinterpret_cast<LPARAM>(control.record.handle));
}

} // namespace

void SetBuddy(UpDownState& control, HWND buddy) {
    UnhookKeys(control.buddy, control.record.handle);
    control.buddy = buddy;
    if (!Find(buddy)) // gone, or of another thread
        return;
    AlignAt(control, buddy);
    if (Find(buddy)) // a handler of its new size may have ended it
        HookKeys(buddy, control.record.handle);
}

std::optional<int> ReadBuddy(const UpDownState& control) {
    const CString text = WithoutSeparators(GetWindowTextA(control.buddy), Separator(control));
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isWhole = error == std::errc() && end == text.data() + text.size();
    return isWhole ? std::optional(number) : std::nullopt;
}

void WriteBuddy(UpDownState& control) {
    if (!control.HasStyle(UDS_SETBUDDYINT) || !IsWindow(control.buddy))
        return;
    const CString text = WithSeparators(std::to_string(control.range.position), Separator(control));
    if (GetWindowTextA(control.buddy) != text)
        SetWindowTextA(control.buddy, text);
}

void Step(UpDownState& control, UpDownState::Arrow arrow) {
    if (const auto shown = control.HasStyle(UDS_SETBUDDYINT) ? ReadBuddy(control) : std::nullopt)
        control.range.position = control.range.Clamped(*shown);
    // The arrow that points up or right leads to the second number of the range.
    const bool isForward = (arrow == UpDownState::Arrow::Second) == control.HasStyle(UDS_HORZ);
    const bool isUp = isForward == (control.range.first <= control.range.second);
    NMUPDOWN notice;
    notice.iPos = control.range.position;
    notice.iDelta = isUp ? 1 : -1;
    if (NotifyParent(control.record.handle, UDN_DELTAPOS, notice.hdr) != 0)
        return;
    const std::int64_t wanted = std::int64_t{control.range.position} + notice.iDelta;
    control.range.position =
        control.range.Clamped(control.HasStyle(UDS_WRAP) ? Wrapped(control.range, wanted) : wanted);
    WriteBuddy(control);
    TellScroll(control, SB_THUMBPOSITION, control.range.position);
}

void EndSteps(const UpDownState& control) {
    TellScroll(control, SB_ENDSCROLL, control.range.position);
}

} // namespace korvel::internal
