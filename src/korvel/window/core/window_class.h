#pragma once

#include "korvel/window/core/window_record.h"

#include <optional>
#include <string_view>

namespace korvel::internal {

struct WindowClass {
    std::string name; // compared without case
    WNDPROC procedure = nullptr;
    /// Makes the state of a control; empty for windows without one. The rest of the record is complete.
    std::function<std::unique_ptr<ControlState>(WindowRecord&)> makeControl = {};
};

/// A second registration of a name replaces the first for new windows. Returns true.
bool RegisterWindowClass(WindowClass windowClass);
/// The class registered under a name, whatever its case.
std::optional<WindowClass> FindWindowClass(std::string_view name);

/// Registers the class of a control whose state is a `State`, made of the record or of nothing. Each control
/// does it when the library is loaded:
///
///     [[maybe_unused]] const bool Registered = RegisterControlClass<EditState>("EDIT", EditProcedure);
template <class State>
bool RegisterControlClass(const char* name, WNDPROC procedure) {
    return RegisterWindowClass({name, procedure,
                                [](WindowRecord& record) -> std::unique_ptr<ControlState> {
                                    if constexpr (std::is_constructible_v<State, WindowRecord&>)
                                        return std::make_unique<State>(record);
                                    else
                                        return std::make_unique<State>();
                                }});
}

} // namespace korvel::internal
