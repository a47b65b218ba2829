#pragma once

#include "korvel/window/app/dialog_template.h"
#include "korvel/window/core/window_record.h"

namespace korvel::internal {

/// Makes a dialog, disables the top-level window around `parent`, runs the display until the dialog has
/// ended, and puts everything back: the owner is enabled, the dialog destroyed, the focus where it was. All
/// of that happens also when something throws; the first exception comes out at the end. Returns the result
/// of EndDialog; -1 when the dialog cannot be made, is destroyed, or the application ends first.
std::intptr_t RunModal(const DialogTemplate& dialog, HWND parent,
                       const std::function<void(WindowRecord&)>& attach);

} // namespace korvel::internal
