#pragma once

#include "korvel/window/app/dialog_template.h"
#include "korvel/window/core/window_record.h"

namespace korvel::internal {

enum class DialogMode { Modeless, Modal };

/// Makes a dialog with its controls and sends it WM_INITDIALOG. Null, and nothing is left, when a control or
/// the dialog cannot be made, or it is destroyed meanwhile; an exception of a handler leaves nothing either.
/// A modal dialog is a top-level window that is not shown yet, whatever its template says.
HWND CreateDialogWindow(const DialogTemplate& dialog, HWND parent, DialogMode mode,
                        const std::function<void(WindowRecord&)>& attach);

} // namespace korvel::internal
