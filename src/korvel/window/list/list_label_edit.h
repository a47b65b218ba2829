#pragma once

#include "korvel/window/list/list_state.h"

/// The edit over the label of column 0. Return takes its text, Escape gives it up, and the loss of the focus
/// takes it; but where a box, a dialog or another program has the focus meanwhile, the edit waits, for the
/// next press in the list or for the focus to come to it.
namespace korvel::internal {

/// Puts an edit with the row's text over its label: LVN_BEGINLABELEDIT is sent while the edit exists and is
/// not shown yet; a return value of 1 refuses. Returns the edit, or null. An edit that is open is ended
/// first, with its text; when there is no such row (-1), it is cancelled. Refused while LVN_ENDLABELEDIT is
/// sent.
HWND BeginLabelEdit(ListState& list, int row);

/// Ends an edit that is open with its text. False when the parent does not accept that, and from within the
/// end.
bool TakeLabel(HWND list);

} // namespace korvel::internal
