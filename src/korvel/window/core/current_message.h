#pragma once

#include "korvel/window/core/cwnd.h"

namespace korvel {

/// Makes a message the one that the calling thread handles (CWnd::GetCurrentMessage) for a scope.
class KORVEL_API CurrentMessageScope {
public:
    /// The message must outlive the scope.
    explicit CurrentMessageScope(const MSG& message);
    ~CurrentMessageScope();
    CurrentMessageScope(const CurrentMessageScope&) = delete;
    CurrentMessageScope& operator=(const CurrentMessageScope&) = delete;

private:
    const MSG* const m_former;
};

} // namespace korvel
