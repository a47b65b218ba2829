#pragma once

#include "korvel/window/core/cwnd.h"
#include "korvel/window/core/thread_queue.h"

namespace korvel::internal {

/// Switches the redraw of a window off for its lifetime; then the whole window is painted again.
class RedrawPause {
public:
    explicit RedrawPause(CWnd& window) : m_window(window) {
        try {
            window.SetRedraw(false);
        } catch (...) { // of a handler: it may be off by then
            End();
            throw;
        }
    }
    ~RedrawPause() { End(); }
    RedrawPause(const RedrawPause&) = delete;
    RedrawPause& operator=(const RedrawPause&) = delete;

private:
    void End() {
        GuardedUntilRun([this] { m_window.SetRedraw(true); });
    }

    CWnd& m_window;
};

} // namespace korvel::internal
