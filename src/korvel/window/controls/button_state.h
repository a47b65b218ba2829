#pragma once

#include "korvel/window/base/image_list.h"
#include "korvel/window/core/window.h"
#include "korvel/window/core/window_record.h"

#include <optional>

namespace korvel::internal {

class ButtonState : public ControlState {
public:
    explicit ButtonState(WindowRecord& window) : record(window) {}

    view::Kind Kind() const override {
        return Type() == BS_OWNERDRAW ? view::Kind::Painted : view::Kind::Button;
    }
    view::ButtonView Button() const override { return {check, picture ? &*picture : nullptr}; }
    void Value(double value) override;

    UINT Type() const { return record.style & BS_TYPEMASK; }
    bool IsRadio() const { return Type() == BS_RADIOBUTTON || Type() == BS_AUTORADIOBUTTON; }

    WindowRecord& record;
    int check = 0;
    std::optional<Image> picture;
    bool isPressed = false;
};

} // namespace korvel::internal
