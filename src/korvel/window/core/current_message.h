#pragma once

#include "korvel/window/core/window.h"

namespace korvel::internal {

/// Makes a message the one that the calling thread handles (CWnd::GetCurrentMessage) for a scope.
class CurrentMessageScope {
public:
    /// The message must outlive the scope.
    explicit CurrentMessageScope(const MSG& message);
    ~CurrentMessageScope();
    CurrentMessageScope(const CurrentMessageScope&) = delete;
    CurrentMessageScope& operator=(const CurrentMessageScope&) = delete;

    /// All zero outside of any scope.
    static MSG Current();

private:
    const MSG* const m_former;
};

} // namespace korvel::internal
