#pragma once

#include "korvel/window/list/list_ctrl.h"

#include <functional>
#include <vector>

namespace korvel::internal {

/// Replaces all rows of a list by rows with these data, from the top; no notice is sent. What was selected stays
/// selected, and focus and top row stay at their data, as far as these are there. To be called while redraw
/// is off and no label is edited.
void ReplaceRows(CListCtrl& list, const std::vector<LPARAM>& data,
                 const std::function<int(LPARAM data)>& imageOf);

} // namespace korvel::internal
