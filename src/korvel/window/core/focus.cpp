#include "korvel/window/core/focus.h"

#include "korvel/platform/first_failure.h"
#include "korvel/window/core/display_thread.h"
#include "korvel/window/core/window.h"
#include "korvel/window/core/window_tree.h"

namespace korvel {

using namespace internal;

namespace {

struct Focus {
    HWND window = nullptr; // who has it
    HWND told = nullptr;   // who got WM_SETFOCUS last; another than `window` only while it moves
    unsigned moves = 0;
};

// Touched by the display's thread only.
Focus& TheFocus() {
    static Focus focus;
    return focus;
}

FocusCause& TheCause() {
    static FocusCause cause = FocusCause::Moved;
    return cause;
}

// A handler may move the focus on for another cause.
class CauseScope {
public:
    explicit CauseScope(FocusCause cause) : m_former(std::exchange(TheCause(), cause)) {}
    ~CauseScope() { TheCause() = m_former; }
    CauseScope(const CauseScope&) = delete;
    CauseScope& operator=(const CauseScope&) = delete;

private:
    const FocusCause m_former;
};

FocusFollower*& Follower() {
    static FocusFollower* follow = nullptr;
    return follow;
}

// Every window that got WM_SETFOCUS gets WM_KILLFOCUS, also when handlers move the focus on while it moves:
// the inner move sends it to the loser, the outer one then stops.
void TellMove(unsigned move) {
    Focus& focus = TheFocus();
    if (focus.moves != move)
        return;
    const HWND loser = std::exchange(focus.told, nullptr);
    FirstFailure failure;
    failure.Try([&] { SendMessageA(loser, WM_KILLFOCUS, reinterpret_cast<WPARAM>(focus.window), 0); });
    if (focus.moves == move && focus.window && !failure) {
        focus.told = focus.window;
        failure.Try([&] { SendMessageA(focus.window, WM_SETFOCUS, reinterpret_cast<WPARAM>(loser), 0); });
    }
    if (focus.moves == move && Follower())
        failure.Try([&] { Follower()(focus.window); });
    failure.Rethrow();
}

} // namespace

HWND SetFocus(HWND window) {
    if (!IsDisplayThread())
        return OnOwner(
            window, [&](WindowRecord& record) { return IsOnDisplay(record) ? SetFocus(window) : nullptr; });
    if (window && !CanTakeFocus(window))
        return nullptr;
    const HWND former = TheFocus().window;
    MoveFocus(window, FocusOrigin::Program);
    return former;
}

HWND GetFocus() {
    return IsDisplayThread() ? TheFocus().window : nullptr;
}

namespace internal {

bool SetFocusFollower(FocusFollower* follow) {
    Follower() = follow;
    return true;
}

FocusCause CauseOfFocusMove() {
    return TheCause();
}

bool ComesFocusBack() {
    const FocusCause cause = CauseOfFocusMove();
    return cause != FocusCause::Moved && cause != FocusCause::Hidden;
}

void MoveFocus(HWND window, FocusOrigin origin, FocusCause cause) {
    Focus& focus = TheFocus();
    if (focus.window == window)
        return;
    const CauseScope scope(cause);
    focus.window = window;
    const unsigned move = ++focus.moves;
    // The display comes first: a change of focus may make it commit an unfinished input.
    if (origin == FocusOrigin::Program)
        Display().Focus(window);
    TellMove(move);
}

void TakeFocusAway(const WindowRecord& record, HWND heir, FocusCause cause) {
    if (IsOnDisplay(record) && IsWithin(record.handle, TheFocus().window))
        MoveFocus(CanTakeFocus(heir) ? heir : nullptr, FocusOrigin::Program, cause);
}

bool CanTakeFocus(HWND window) {
    const RecordRef record = Find(window);
    if (!record || !IsOnDisplay(*record))
        return false;
    for (RecordRef level = record; level; level = Find(level->parent))
        if (level->destroying || !level->IsSwitchedOn())
            return false;
    return true;
}

void LendFocusToBox(const std::function<void()>& ask) {
    const HWND former = TheFocus().window;
    FirstFailure failure;
    failure.Try([&] {
        MoveFocus(nullptr, FocusOrigin::Display, FocusCause::Question);
        ask();
    });
    failure.Try([&] { ReturnFocus(former); });
    failure.Rethrow();
}

void ReturnFocus(HWND former) {
    if (!TheFocus().window && CanTakeFocus(former))
        MoveFocus(former, FocusOrigin::Program);
}

void ForgetFocus(HWND window) {
    Focus& focus = TheFocus();
    if (focus.window == window) {
        focus.window = nullptr;
        ++focus.moves;
    }
    if (focus.told == window)
        focus.told = nullptr;
}

void ForgetFocus() {
    ForgetFocus(TheFocus().window);
}

} // namespace internal
} // namespace korvel
