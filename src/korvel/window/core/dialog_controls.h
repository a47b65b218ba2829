#pragma once

#include "korvel/window/core/window_record.h"

/// How controls belong together in a dialog.
namespace korvel::internal {

/// What a control says about the keyboard of its dialog (WM_GETDLGCODE): DLGC_*.
LRESULT DialogCodeOf(HWND control);
/// The children of `parent` from one with WS_GROUP to before the next, around this one; none around another
/// window.
std::vector<HWND> GroupAround(const WindowRecord& parent, HWND child);
/// As GetNextDlgTabItem, but not round: null after the last tab stop, or before the first.
HWND NextTabStop(HWND parent, HWND from, bool previous);

} // namespace korvel::internal
