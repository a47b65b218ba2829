#pragma once

#include "korvel/window/list/list_state.h"

/// The edit over the label of column 0.
namespace korvel::internal {

enum class LabelEditEnd { Take, Cancel };

/// Puts an edit with the row's text over its label: LVN_BEGINLABELEDIT is sent while the edit exists and
/// is not shown yet; an answer of 1 refuses. Answers the edit, or null. A running edit takes its text
/// before; a row that is not there (-1) cancels it. Refused while LVN_ENDLABELEDIT is sent.
HWND BeginLabelEdit(ListState& list, int row);
/// Does nothing without an edit. LVN_ENDLABELEDIT is sent while the edit still exists; an answer other
/// than 0 to a text gives the row that text.
void EndLabelEdit(ListState& list, LabelEditEnd end);

} // namespace korvel::internal
