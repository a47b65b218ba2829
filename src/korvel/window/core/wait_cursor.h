#pragma once

#include "korvel/window/base/types.h"

namespace korvel {

/// Shows the wait cursor for a scope. Scopes nest: the last one that ends puts the arrow back.
///
///     CWaitCursor wait;
///     Compute();
///     MessageBoxA(frame, "Half done", "Plan", MB_OK);
///     wait.Restore();   // messages were handled: the pointer may have become another
class KORVEL_API CWaitCursor {
public:
    CWaitCursor();
    ~CWaitCursor();
    CWaitCursor(const CWaitCursor&) = delete;
    CWaitCursor& operator=(const CWaitCursor&) = delete;

    void Restore();
};

/// The same without a scope, of one count in the process. An end without a beginning has no effect, and so
/// has Restore outside. Any thread.
KORVEL_API void BeginWaitCursor();
KORVEL_API void EndWaitCursor();
KORVEL_API void RestoreWaitCursor();

} // namespace korvel
