#pragma once

#include "korvel/window/base/control_messages.h"
#include "korvel/window/controls/control_range.h"
#include "korvel/window/core/window.h"
#include "korvel/window/core/window_record.h"

namespace korvel::internal {

/// The state of an up-down control, which paints itself.
class UpDownState : public ControlState {
public:
    explicit UpDownState(WindowRecord& window) : record(window) {}

    bool HasStyle(UINT bits) const { return (record.style & bits) != 0; }

    enum class Arrow { None, First, Second }; // up or left, down or right

    WindowRecord& record;
    HWND buddy = nullptr;
    ControlRange range{100, 0, 0};
    Arrow pressed = Arrow::None; // with the mouse
};

} // namespace korvel::internal
