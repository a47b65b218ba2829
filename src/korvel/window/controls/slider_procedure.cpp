#include "korvel/platform/first_failure.h"
#include "korvel/window/controls/slider_state.h"
#include "korvel/window/core/input_delivery.h"
#include "korvel/window/core/window_changes.h"
#include "korvel/window/core/window_class.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>
#include <utility>

namespace korvel::internal {

namespace {

constexpr int ThumbLength = 10; // along the slider, without a native widget

void SetPosition(SliderState& slider, std::int64_t position) {
    slider.range.position = slider.range.Clamped(position);
    TellDisplay(slider.record, Aspect::State);
}

void SetRange(SliderState& slider, int lower, int upper) {
    slider.range.first = lower;
    slider.range.second = upper;
    SetPosition(slider, slider.range.position);
}

void Tell(const SliderState& slider, UINT code) {
    const bool tellsPosition = code == TB_THUMBPOSITION || code == TB_THUMBTRACK;
    const auto position = tellsPosition ? static_cast<unsigned>(slider.range.position) : 0u;
    SendMessageA(GetParent(slider.record.handle), slider.IsVertical() ? WM_VSCROLL : WM_HSCROLL,
                 MAKEWPARAM(code, position), reinterpret_cast<LPARAM>(slider.record.handle));
}

// What a key asks for.
std::optional<UINT> CodeOf(UINT key) {
    switch (key) {
    case VK_LEFT:
    case VK_UP:
        return TB_LINEUP;
    case VK_RIGHT:
    case VK_DOWN:
        return TB_LINEDOWN;
    case VK_PRIOR:
        return TB_PAGEUP;
    case VK_NEXT:
        return TB_PAGEDOWN;
    case VK_HOME:
        return TB_TOP;
    case VK_END:
        return TB_BOTTOM;
    default:
        return std::nullopt;
    }
}

std::int64_t TargetOf(const SliderState& slider, UINT code) {
    const std::int64_t position = slider.range.position;
    switch (code) {
    case TB_LINEUP:
        return position - slider.line;
    case TB_LINEDOWN:
        return position + slider.line;
    case TB_PAGEUP:
        return position - slider.Page();
    case TB_PAGEDOWN:
        return position + slider.Page();
    case TB_TOP:
        return slider.range.Lower();
    default:
        return slider.range.Upper();
    }
}

void Move(SliderState& slider, UINT code) {
    SetPosition(slider, TargetOf(slider, code));
    Tell(slider, code);
}

bool HandleKey(SliderState& slider, UINT message, UINT key) {
    const auto code = CodeOf(key);
    if (!code)
        return false;
    if (message == WM_KEYDOWN) {
        slider.isKeyDown = true;
        Move(slider, *code);
    } else if (std::exchange(slider.isKeyDown, false)) {
        Tell(slider, TB_ENDTRACK);
    }
    return true;
}

// --- the mouse, without a native widget ---

struct Track {
    int length; // of the way of the thumb's middle
    int place;  // of a point on it
};

Track TrackAt(const SliderState& slider, CPoint point) {
    const CRect client = GetClientRect(slider.record.handle);
    const int length = slider.IsVertical() ? client.Height() : client.Width();
    const int place = slider.IsVertical() ? point.y : point.x;
    return {std::max(1, length - ThumbLength), place - ThumbLength / 2};
}

int PositionAt(const SliderState& slider, CPoint point) {
    const Track track = TrackAt(slider, point);
    const double span = double{1} * slider.range.Upper() - slider.range.Lower();
    const double at = std::clamp(double{1} * track.place / track.length, 0.0, 1.0);
    return slider.range.Clamped(slider.range.Lower() + std::llround(at * span));
}

int ThumbPlace(const SliderState& slider) {
    const double span = double{1} * slider.range.Upper() - slider.range.Lower();
    const double passed = double{1} * slider.range.position - slider.range.Lower();
    return span > 0 ? static_cast<int>(passed / span * TrackAt(slider, {}).length) : 0;
}

void Drag(SliderState& slider, int position) {
    if (position == slider.range.position)
        return;
    slider.isDragging = true;
    SetPosition(slider, position);
    Tell(slider, TB_THUMBTRACK);
}

void Press(SliderState& slider, CPoint point) {
    SetCapture(slider.record.handle);
    const int distance = TrackAt(slider, point).place - ThumbPlace(slider);
    if (std::abs(distance) > ThumbLength / 2)
        Move(slider, distance < 0 ? TB_PAGEUP : TB_PAGEDOWN);
}

// A parent that fails is told the end nevertheless.
void EndMove(SliderState& slider, FirstFailure& failure) {
    if (std::exchange(slider.isDragging, false))
        failure.Try([&] { Tell(slider, TB_THUMBPOSITION); });
    failure.Try([&] { Tell(slider, TB_ENDTRACK); });
}

void EndPress(SliderState& slider) {
    if (!std::exchange(slider.isPressed, false))
        return;
    FirstFailure failure;
    EndMove(slider, failure);
    failure.Rethrow();
}

// The release comes here before a native widget gets it.
LRESULT HandleMouse(SliderState& slider, UINT message, WPARAM wParam, LPARAM lParam) {
    const HWND window = slider.record.handle;
    const bool isPress = message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK;
    if (isPress)
        SetFocus(window);
    slider.isPressed = slider.isPressed || isPress;
    const bool isNative = LeaveToNativeWidget(window, message, wParam, lParam);
    if (message == WM_LBUTTONUP) {
        if (GetCapture() == window)
            ReleaseCapture();
        EndPress(slider);
    } else if (!isNative && isPress) {
        Press(slider, PointOf(lParam));
    } else if (!isNative && GetCapture() == window) {
        Drag(slider, PositionAt(slider, PointOf(lParam)));
    }
    return 0;
}

// Only with the focus, so that a slider under the pointer does not move while its dialog scrolls.
std::optional<LRESULT> TurnWheel(SliderState& slider, WPARAM wParam, LPARAM lParam) {
    const HWND window = slider.record.handle;
    if (GetFocus() != window)
        return std::nullopt;
    if (!LeaveToNativeWidget(window, WM_MOUSEWHEEL, wParam, lParam))
        Move(slider, static_cast<std::int16_t>(HIWORD(wParam)) > 0 ? TB_LINEUP : TB_LINEDOWN);
    return 0;
}

LRESULT SetPage(SliderState& slider, int size) {
    const int former = slider.Page();
    slider.page = std::max(0, size);
    TellDisplay(slider.record, Aspect::State);
    return former;
}

LRESULT SetLine(SliderState& slider, int size) {
    const int former = std::exchange(slider.line, std::max(0, size));
    TellDisplay(slider.record, Aspect::State);
    return former;
}

std::optional<LRESULT> HandleSliderMessage(SliderState& slider, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto number = static_cast<int>(lParam);
    switch (message) {
    case TBM_GETPOS:
        return slider.range.position;
    case TBM_SETPOS:
        return SetPosition(slider, number), 0;
    case TBM_GETRANGEMIN:
        return slider.range.first;
    case TBM_GETRANGEMAX:
        return slider.range.second;
    case TBM_SETRANGE:
        return SetRange(slider, PointOf(lParam).x, PointOf(lParam).y), 0;
    case TBM_SETRANGEMIN:
        return SetRange(slider, number, slider.range.second), 0;
    case TBM_SETRANGEMAX:
        return SetRange(slider, slider.range.first, number), 0;
    case TBM_SETTICFREQ:
        slider.tick = std::max(1, static_cast<int>(wParam));
        TellDisplay(slider.record, Aspect::State);
        return 0;
    case TBM_SETPAGESIZE:
        return SetPage(slider, number);
    case TBM_GETPAGESIZE:
        return slider.Page();
    case TBM_SETLINESIZE:
        return SetLine(slider, number);
    case TBM_GETLINESIZE:
        return slider.line;
    default:
        return std::nullopt;
    }
}

std::optional<LRESULT> HandleWindow(SliderState& slider, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_GETDLGCODE:
        return DLGC_WANTARROWS;
    case WM_KEYDOWN:
    case WM_KEYUP:
        return HandleKey(slider, message, static_cast<UINT>(wParam)) ? std::optional<LRESULT>(0)
                                                                     : std::nullopt;
    case WM_KILLFOCUS: // the key may be released in another window
        if (std::exchange(slider.isKeyDown, false))
            Tell(slider, TB_ENDTRACK);
        return 0;
    case WM_CAPTURECHANGED:
        return EndPress(slider), 0;
    case WM_MOUSEWHEEL:
        return TurnWheel(slider, wParam, lParam);
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_LBUTTONUP:
    case WM_MOUSEMOVE:
        return HandleMouse(slider, message, wParam, lParam);
    default:
        return std::nullopt;
    }
}

LRESULT SliderProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (const ControlOf<SliderState> slider(window); slider) {
        for (const auto handle : {HandleWindow, HandleSliderMessage})
            if (const auto answer = handle(*slider, message, wParam, lParam))
                return *answer;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

[[maybe_unused]] const bool Registered =
    RegisterControlClass<SliderState>("msctls_trackbar32", SliderProcedure);

} // namespace

int SliderState::Page() const {
    const std::int64_t span = std::int64_t{range.Upper()} - range.Lower();
    return page > 0 ? page : std::max(1, static_cast<int>(span / 5));
}

view::RangeView SliderState::Range() const {
    return {range.Lower(), range.Upper(), range.position, line, Page(), tick};
}

// The release of the mouse ends the steps that its press has begun.
void SliderState::Stepped(UINT code) {
    FirstFailure failure;
    failure.Try([&] { Move(*this, code); });
    if (!isPressed)
        EndMove(*this, failure);
    failure.Rethrow();
}

// Without the mouse pressed it is the wheel that has moved it.
void SliderState::Value(double value) {
    if (!(std::abs(value) <= std::numeric_limits<int>::max()))
        return;
    FirstFailure failure;
    failure.Try([&] { Drag(*this, range.Clamped(std::llround(value))); });
    if (!isPressed && isDragging)
        EndMove(*this, failure);
    failure.Rethrow();
}

} // namespace korvel::internal
