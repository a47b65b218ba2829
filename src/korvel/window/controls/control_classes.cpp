#include "korvel/window/controls/button_state.h"
#include "korvel/window/controls/control_procedures.h"
#include "korvel/window/controls/edit_state.h"
#include "korvel/window/list/header_state.h"
#include "korvel/window/list/list_state.h"

namespace korvel::internal {

namespace {

class StaticState : public ControlState {
public:
    view::Kind Kind() const override { return view::Kind::Static; }
};

template <class State>
std::unique_ptr<ControlState> Make(WindowRecord& record) {
    if constexpr (std::is_constructible_v<State, WindowRecord&>)
        return std::make_unique<State>(record);
    else
        return std::make_unique<State>();
}

} // namespace

void RegisterControlClasses() {
    RegisterWindowClass({"SysListView32", ListProcedure, Make<ListState>});
    RegisterWindowClass({"SysHeader32", HeaderProcedure, Make<HeaderState>});
    RegisterWindowClass({"EDIT", EditProcedure, Make<EditState>});
    RegisterWindowClass({"BUTTON", ButtonProcedure, Make<ButtonState>});
    RegisterWindowClass({"STATIC", StaticProcedure, Make<StaticState>});
}

} // namespace korvel::internal
