#pragma once

#include "korvel/window/core/window.h"
#include "korvel/window/core/window_record.h"

namespace korvel::internal {

class ButtonState : public ControlState {
public:
    explicit ButtonState(WindowRecord& window) : record(window) {}

    view::Kind Kind() const override {
        return Type() == BS_OWNERDRAW ? view::Kind::Painted : view::Kind::Button;
    }
    int Check() const override { return check; }
    void Value(double value) override;

    UINT Type() const { return record.style & BS_TYPEMASK; }
    bool IsRadio() const { return Type() == BS_RADIOBUTTON || Type() == BS_AUTORADIOBUTTON; }

    WindowRecord& record;
    int check = 0;
    bool isPressed = false;
};

} // namespace korvel::internal
