#pragma once

#include "korvel/window/base/types.h"

class QKeyEvent;

namespace korvel::internal {

/// A key event of Qt in the terms of the window model.
struct KeyInput {
    UINT message = 0;   // WM_KEYDOWN, WM_KEYUP, WM_SYSKEYDOWN, WM_SYSKEYUP
    UINT key = 0;       // VK_*; 0 for a key that has no code
    CString characters; // what it types; empty for a release
};

KeyInput TranslateKey(const QKeyEvent& event);

/// True for keys that the window with the focus is offered before the shortcuts of the host: all without
/// Ctrl, Alt and Meta.
bool ComesBeforeShortcuts(const QKeyEvent& event);

} // namespace korvel::internal
