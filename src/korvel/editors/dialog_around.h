#pragma once

#include "korvel/window/core/window.h"

/// What an item window asks of the windows around it.
namespace korvel::internal {

/// The outermost window around a window, or itself. Not the owner of that: it hears nothing while a dialog is
/// modal.
HWND TopLevelAround(HWND window);

/// Moves the focus from `item`, in which a Tab was pressed (`message`), as its dialog does, or where there is
/// none among its siblings.
void LeaveByTab(HWND item, const MSG& message);

} // namespace korvel::internal
