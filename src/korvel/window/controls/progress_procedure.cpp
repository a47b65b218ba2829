#include "korvel/window/base/control_messages.h"
#include "korvel/window/controls/control_range.h"
#include "korvel/window/core/window.h"
#include "korvel/window/core/window_changes.h"
#include "korvel/window/core/window_class.h"

#include <cstdint>
#include <optional>
#include <utility>

namespace korvel::internal {

namespace {

class ProgressState : public ControlState {
public:
    explicit ProgressState(WindowRecord& window) : record(window) {}

    view::Kind Kind() const override { return view::Kind::Progress; }
    view::RangeView Range() const override {
        view::RangeView view{range.Lower(), range.Upper(), range.position};
        view.isMarquee = isRunning && (record.style & PBS_MARQUEE);
        return view;
    }

    WindowRecord& record;
    ControlRange range;
    int step = 10;
    bool isRunning = false; // as a marquee
};

int Clamped(const ControlRange& range, std::int64_t position) {
    return range.second < range.first ? range.Lower() : range.Clamped(position);
}

LRESULT SetPosition(ProgressState& bar, std::int64_t position) {
    const int former = std::exchange(bar.range.position, Clamped(bar.range, position));
    TellDisplay(bar.record, Aspect::State);
    return former;
}

LRESULT SetRange(ProgressState& bar, int lower, int upper) {
    const LRESULT former = MAKELPARAM(bar.range.first, bar.range.second);
    bar.range.first = lower;
    bar.range.second = upper;
    SetPosition(bar, bar.range.position);
    return former;
}

// Beyond an end it begins anew at the other one.
LRESULT Step(ProgressState& bar) {
    const std::int64_t lower = bar.range.Lower();
    const std::int64_t span = bar.range.Upper() - lower;
    std::int64_t next = std::int64_t{bar.range.position} + bar.step;
    if (span > 0 && !bar.range.Holds(next))
        next = lower + ((next - lower) % span + span) % span;
    return SetPosition(bar, next);
}

std::optional<LRESULT> HandleMessage(ProgressState& bar, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto number = static_cast<int>(wParam);
    switch (message) {
    case PBM_SETRANGE:
        return SetRange(bar, static_cast<int>(LOWORD(static_cast<WPARAM>(lParam))),
                        static_cast<int>(HIWORD(static_cast<WPARAM>(lParam))));
    case PBM_SETRANGE32:
        return SetRange(bar, number, static_cast<int>(lParam));
    case PBM_GETRANGE:
        return wParam ? bar.range.first : bar.range.second;
    case PBM_SETPOS:
        return SetPosition(bar, number);
    case PBM_DELTAPOS:
        return SetPosition(bar, std::int64_t{bar.range.position} + number);
    case PBM_GETPOS:
        return bar.range.position;
    case PBM_SETSTEP:
        return std::exchange(bar.step, number);
    case PBM_STEPIT:
        return Step(bar);
    case PBM_SETMARQUEE:
        bar.isRunning = wParam != 0;
        TellDisplay(bar.record, Aspect::State);
        return 1;
    case WM_GETDLGCODE:
        return DLGC_STATIC;
    default:
        return std::nullopt;
    }
}

LRESULT ProgressProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const ControlOf<ProgressState> bar(window);
    const auto answer = bar ? HandleMessage(*bar, message, wParam, lParam) : std::nullopt;
    return answer ? *answer : DefWindowProcA(window, message, wParam, lParam);
}

[[maybe_unused]] const bool Registered =
    RegisterControlClass<ProgressState>("msctls_progress32", ProgressProcedure);

} // namespace

} // namespace korvel::internal
