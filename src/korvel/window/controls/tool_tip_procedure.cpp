#include "korvel/window/controls/tool_tip_state.h"
#include "korvel/window/core/window_class.h"

#include <optional>

namespace korvel::internal {
namespace {

LRESULT HandleTool(ToolTipState& tip, UINT message, const TOOLINFO& tool) {
    switch (message) {
    case TTM_ADDTOOL:
        return tip.Add(tool);
    case TTM_DELTOOL:
        tip.Remove(tool);
        return 0;
    default:
        tip.SetToolText(tool);
        return 0;
    }
}

std::optional<LRESULT> HandleMessage(ToolTipState& tip, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case TTM_ADDTOOL:
    case TTM_DELTOOL:
    case TTM_UPDATETIPTEXT:
        return lParam ? HandleTool(tip, message, *reinterpret_cast<const TOOLINFO*>(lParam)) : 0;
    case TTM_GETTOOLCOUNT:
        return tip.ToolCount();
    case TTM_ACTIVATE:
        return tip.Activate(wParam != 0), 0;
    case TTM_SETDELAYTIME:
        return tip.SetDelay(static_cast<UINT>(wParam), static_cast<int>(lParam)), 0;
    case TTM_GETDELAYTIME:
        return tip.Delay(static_cast<UINT>(wParam));
    case TTM_SETMAXTIPWIDTH:
        return tip.SetMaxWidth(static_cast<int>(lParam));
    case TTM_GETMAXTIPWIDTH:
        return tip.MaxWidth();
    case TTM_POP:
        return tip.Hide(), 0;
    case TTM_RELAYEVENT:
        if (lParam)
            tip.Relay(*reinterpret_cast<const MSG*>(lParam));
        return 0;
    case WM_TIMER:
        return tip.OnTimer(wParam), 0;
    case WM_ERASEBKGND:
        return 1;
    case WM_PAINT:
        if (wParam)
            tip.Paint(*reinterpret_cast<CDC*>(wParam));
        return 0;
    default:
        return std::nullopt;
    }
}

LRESULT ToolTipProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const ControlOf<ToolTipState> tip(window);
    const auto answer = tip ? HandleMessage(*tip, message, wParam, lParam) : std::nullopt;
    return answer ? *answer : DefWindowProcA(window, message, wParam, lParam);
}

[[maybe_unused]] const bool Registered =
    RegisterControlClass<ToolTipState>("tooltips_class32", ToolTipProcedure);

} // namespace
} // namespace korvel::internal
