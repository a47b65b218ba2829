#pragma once

#include "korvel/window/base/control_messages.h"
#include "korvel/window/controls/control_range.h"
#include "korvel/window/core/window.h"
#include "korvel/window/core/window_record.h"

namespace korvel::internal {

/// The state of a slider.
class SliderState : public ControlState {
public:
    explicit SliderState(WindowRecord& window) : record(window) {}

    view::Kind Kind() const override { return view::Kind::Slider; }
    view::RangeView Range() const override;
    void Value(double value) override;
    void Stepped(UINT code) override;

    bool IsVertical() const { return (record.style & TBS_VERT) != 0; }
    int Page() const;

    WindowRecord& record;
    ControlRange range;
    int line = 1;
    int page = 0; // 0: a fifth of the range
    int tick = 1;
    bool isPressed = false;  // with the mouse
    bool isDragging = false; // its thumb has moved since
    bool isKeyDown = false;  // a key that moves it
};

} // namespace korvel::internal
