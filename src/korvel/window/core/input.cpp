#include "korvel/window/core/input.h"

#include "korvel/platform/code_page.h"
#include "korvel/window/core/cwnd.h"
#include "korvel/window/core/dc.h"
#include "korvel/window/core/display_thread.h"
#include "korvel/window/core/focus.h"
#include "korvel/window/core/input_delivery.h"
#include "korvel/window/core/timers.h"
#include "korvel/window/core/uncaught.h"
#include "korvel/window/core/window_changes.h"
#include "korvel/window/core/window_rectangle.h"

#include <utility>

namespace korvel::input {

using namespace internal;

namespace {

enum class Outcome { Consumed, LeftToDefault };

// From the innermost window to its top-level window; true: dropped.
bool PreTranslate(MSG& message) {
    for (HWND level = message.hwnd; level;) {
        if (CWnd* object = CWnd::FromHandlePermanent(level); object && object->PreTranslateMessage(message))
            return true;
        const RecordRef record = Find(level);
        level = record ? record->parent : nullptr;
    }
    return !IsWindow(message.hwnd);
}

Outcome Deliver(MSG message, TypedCharacter* typed = nullptr) {
    if (PreTranslate(message))
        return Outcome::Consumed;
    InputDelivery delivery(message, typed);
    SendMessageA(message.hwnd, message.message, message.wParam, message.lParam);
    return delivery.WasLeftToDefault() ? Outcome::LeftToDefault : Outcome::Consumed;
}

const KeyOnTheWay*& TheKey() {
    static thread_local const KeyOnTheWay* key = nullptr;
    return key;
}

class KeyScope {
public:
    explicit KeyScope(const KeyOnTheWay& key) : m_former(std::exchange(TheKey(), &key)) {}
    ~KeyScope() { TheKey() = m_former; }
    KeyScope(const KeyScope&) = delete;
    KeyScope& operator=(const KeyScope&) = delete;

private:
    const KeyOnTheWay* m_former;
};

// A key that a PreTranslateMessage dropped makes no characters.
Outcome DeliverKey(HWND window, UINT message, UINT key, const CString& characters) {
    const KeyOnTheWay onTheWay{window, key, characters};
    const KeyScope scope(onTheWay);
    const MSG down{window, message, key, 1};
    MSG offered = down;
    if (PreTranslate(offered))
        return Outcome::Consumed;
    InputDelivery delivery(down);
    SendMessageA(window, message, key, 1);
    bool left = delivery.WasLeftToDefault();
    const UINT characterMessage = message == WM_SYSKEYDOWN ? WM_SYSCHAR : WM_CHAR;
    for (std::size_t at = 0; at < characters.size();) {
        TypedCharacter typed{characters.substr(at, platform::NextCharacter(characters, at) - at)};
        for (const char byte : typed.bytes) {
            ++typed.sent;
            const MSG character{window, characterMessage, static_cast<unsigned char>(byte), 1};
            left &= Deliver(character, &typed) == Outcome::LeftToDefault;
        }
        at += typed.bytes.size();
    }
    return left ? Outcome::LeftToDefault : Outcome::Consumed;
}

bool CarriesScreenPoint(UINT message) {
    return message == WM_MOUSEWHEEL || message == WM_NCLBUTTONDOWN || message == WM_NCRBUTTONDOWN ||
           message == WM_NCMBUTTONDOWN;
}

// Who gets a mouse message: the window with the capture; the point becomes one of its client area.
HWND Captor(HWND window, UINT message, CPoint& point) {
    const HWND captor = GetCapture();
    if (!captor || captor == window || message == WM_MOUSELEAVE || CarriesScreenPoint(message))
        return window;
    point = ScreenToClient(captor, ClientToScreen(window, point));
    return captor;
}

void AskForCursor(HWND window, UINT message) {
    constexpr int HitClientArea = 1;
    if (message == WM_MOUSEMOVE && !GetCapture())
        SendMessageA(window, WM_SETCURSOR, reinterpret_cast<WPARAM>(window),
                     MAKELPARAM(HitClientArea, static_cast<int>(message)));
}

Outcome DeliverMouse(HWND window, UINT message, UINT flags, CPoint point, int wheel) {
    window = Captor(window, message, point);
    if (!IsWindowEnabled(window))
        return Outcome::Consumed;
    AskForCursor(window, message);
    if (CarriesScreenPoint(message))
        point = ClientToScreen(window, point);
    const WPARAM wParam = message == WM_MOUSEWHEEL ? MAKEWPARAM(flags, static_cast<unsigned>(wheel)) : flags;
    return Deliver({window, message, wParam, MAKELPARAM(point.x, point.y)});
}

// Runs a report about a control, which a disabled one does not get.
template <class Report>
void ReportToControl(HWND window, Report report) {
    Guarded([&] {
        const RecordRef record = Find(window);
        if (!record || !record->control)
            return;
        if (IsWindowEnabled(window))
            report(*record->control);
        else // the widget shows what the window does not have
            TellDisplay(*record, Aspect::Text | Aspect::State | Aspect::Scroll);
    });
}

} // namespace

bool Key(HWND window, UINT message, UINT key, const CString& characters) {
    if (!IsWindow(window))
        return false;
    Outcome outcome = Outcome::Consumed;
    Guarded([&] {
        if (IsWindowEnabled(window))
            outcome = DeliverKey(window, message, key, characters);
    });
    return outcome == Outcome::Consumed;
}

const KeyOnTheWay* CurrentKey() {
    return TheKey();
}

bool Mouse(HWND window, UINT message, UINT flags, CPoint point, int wheel) {
    if (!IsWindow(window))
        return false;
    Outcome outcome = Outcome::Consumed;
    Guarded([&] { outcome = DeliverMouse(window, message, flags, point, wheel); });
    return outcome == Outcome::Consumed;
}

void FocusMoved(HWND window) {
    Guarded([&] {
        if (IsDisplayThread() && (!window || CanTakeFocus(window)))
            MoveFocus(window, FocusOrigin::Display);
    });
}

void ProgramLeft() {
    Guarded([] {
        if (IsDisplayThread())
            MoveFocus(nullptr, FocusOrigin::Display, FocusCause::ProgramLeft);
    });
}

void Edited(HWND window, const CString& text, int selectionStart, int selectionEnd) {
    ReportToControl(
        window, [&](ControlState& control) { control.Edited(text, selectionStart, selectionEnd); });
}

void Value(HWND window, double value) {
    ReportToControl(
        window, [&](ControlState& control) { control.Value(value); });
}

void Stepped(HWND window, UINT code) {
    ReportToControl(
        window, [&](ControlState& control) { control.Stepped(code); });
}

void Scrolled(HWND window, int x, int row) {
    ReportToControl(
        window, [&](ControlState& control) { control.Scrolled(x, row); });
}

void Dropped(HWND window, bool isOpen) {
    ReportToControl(
        window, [&](ControlState& control) { control.Dropped(isOpen); });
}

void CellChosen(HWND list, view::CellPlace place) {
    Guarded([&] {
        const RecordRef record = Find(list);
        if (record && record->control && record->control->Kind() == view::Kind::List && IsWindowEnabled(list))
            SendMessageA(list, LVM_KORVEL_CHOOSECELL, 0, reinterpret_cast<LPARAM>(&place));
    });
}

void Placed(HWND window, const CRect& rect) {
    Guarded([&] {
        OnOwner(
            window, [&](WindowRecord& record) { Place(record, rect, PlaceOrigin::Display); });
    });
}

void Close(HWND window) {
    Guarded([&] {
        if (IsWindowEnabled(window))
            SendMessageA(window, WM_CLOSE, 0, 0);
    });
}

void Destroy(HWND window) {
    Guarded([&] { DestroyWindow(window); });
}

void Activated(HWND window, bool active) {
    Guarded([&] { SendMessageA(window, WM_ACTIVATE, active, 0); });
}

void Paint(HWND window, Surface& surface, const CRect& clip) {
    Guarded([&] {
        if (const RecordRef record = Find(window); record && record->control)
            record->control->PaintBegins();
        CDC dc(surface, clip);
        const auto context = reinterpret_cast<WPARAM>(&dc);
        SendMessageA(window, WM_ERASEBKGND, context, 0);
        SendMessageA(window, WM_PAINT, context, 0);
    });
}

void FireTimers() {
    if (IsDisplayThread())
        Guarded(FireDueTimers);
}

void DispatchMessages() {
    Guarded([] { ThreadQueue::Current()->Run(); });
}

} // namespace korvel::input
