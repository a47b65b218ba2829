#pragma once

#include "korvel/window/core/window_record.h"

#include <cstdint>

namespace korvel::internal {

/// What a dialog keeps beyond its window.
class DialogState : public ControlState {
public:
    UINT defaultId = 0;           // of the button that Return presses; 0: none
    HWND ring = nullptr;          // the button that is shown as the default one
    HWND lastFocus = nullptr;     // the control inside that had the focus last
    bool isEnded = false;         // EndDialog was called
    std::intptr_t result = -1;    // of a modal dialog; -1: it ended without EndDialog
    HWND disabledOwner = nullptr; // by this modal dialog
};

/// The outermost dialog around a window, itself included; null outside of any. The keyboard of a dialog and
/// the pages in it is that dialog's.
HWND OutermostDialog(HWND window);

} // namespace korvel::internal
