#pragma once

#include "korvel/window/core/cwnd.h"
#include "korvel/window/core/registered_messages.h"

#include <functional>
#include <string>

namespace korvel {

/// A parent that writes down what it is told of undoable steps: "[title" opens one, "]" closes it, "!" rolls
/// it back.
class HistoryParent : public CWnd {
public:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message != WM_HISTORY && message != WM_HISTORY_ROLLBACK)
            return CWnd::WindowProc(message, wParam, lParam);
        if (message == WM_HISTORY_ROLLBACK)
            log += "!";
        else
            log += wParam == 1 ? "[" + std::string(reinterpret_cast<const char*>(lParam)) : "]";
        if (onStep)
            onStep(message, wParam);
        return 0;
    }
    std::string Take() { return std::exchange(log, {}); }

    std::string log;
    std::function<void(UINT message, WPARAM wParam)> onStep;
};

} // namespace korvel
