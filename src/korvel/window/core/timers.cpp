#include "korvel/window/core/timers.h"

#include "korvel/window/core/display_thread.h"
#include "korvel/window/core/window.h"

#include <algorithm>
#include <chrono>
#include <vector>

namespace korvel {

using namespace internal;
using Milliseconds = std::chrono::milliseconds;

namespace {

// The shortest period of the window model; a shorter one would starve everything else.
constexpr Milliseconds ShortestPeriod{10};

struct Timer {
    HWND window;
    std::uintptr_t id;
    Milliseconds period;
    Milliseconds due;
};

// In order of creation; touched by the display's thread only.
std::vector<Timer>& Timers() {
    static auto& timers = *new std::vector<Timer>;
    return timers;
}

Timer* Earliest() {
    const auto found = std::min_element(Timers().begin(), Timers().end(),
                                        [](const Timer& a, const Timer& b) { return a.due < b.due; });
    return found == Timers().end() ? nullptr : &*found;
}

void SetAlarm(IDisplay& display) {
    const Timer* next = Earliest();
    display.Alarm(next ? std::optional(next->due) : std::nullopt);
}

// Periods that passed unheard are skipped, as the window model merges them into one message.
void Rearm(Timer& timer, Milliseconds now) {
    timer.due = std::max(timer.due + timer.period, now + Milliseconds(1));
}

} // namespace

std::uintptr_t SetTimer(HWND window, std::uintptr_t id, unsigned milliseconds) {
    return OnOwner(
        window,
        [&](WindowRecord& record) -> std::uintptr_t {
            if (!IsOnDisplay(record) || record.destroying)
                return 0;
            std::erase_if(
                Timers(), [&](const Timer& timer) { return timer.window == window && timer.id == id; });
            const Milliseconds period = std::max(Milliseconds(milliseconds), ShortestPeriod);
            Timers().push_back({window, id, period, Display().Now() + period});
            SetAlarm(Display());
            return id;
        });
}

bool KillTimer(HWND window, std::uintptr_t id) {
    return OnOwner(
        window,
        [&](WindowRecord& record) {
            if (!IsOnDisplay(record))
                return false;
            const auto removed = std::erase_if(
                Timers(), [&](const Timer& timer) { return timer.window == window && timer.id == id; });
            if (removed > 0)
                SetAlarm(Display());
            return removed > 0;
        });
}

namespace internal {

void ForgetTimers(HWND window) {
    if (std::erase_if(Timers(), [&](const Timer& timer) { return timer.window == window; }) > 0)
        SetAlarm(Display());
}

void FireDueTimers() {
    const Milliseconds now = Display().Now();
    for (Timer* timer = Earliest(); timer && timer->due <= now; timer = Earliest()) {
        const HWND window = timer->window;
        const std::uintptr_t id = timer->id;
        Rearm(*timer, now);
        SetAlarm(Display()); // before the handler: it may run a modal loop of its own
        SendMessageA(window, WM_TIMER, id, 0);
    }
    SetAlarm(Display());
}

void ForgetTimers() {
    Timers().clear();
}

void RestartTimers(IDisplay& display) {
    for (Timer& timer : Timers())
        timer.due = display.Now() + timer.period;
    SetAlarm(display);
}

} // namespace internal
} // namespace korvel
