#pragma once

#include "korvel/window/core/dc.h"
#include "korvel/window/list/list_state.h"

namespace korvel::internal {

/// WM_PAINT: the background, the rows that the clip box touches and the grid lines. A row is painted by
/// the parent's WM_DRAWITEM with LVS_OWNERDRAWFIXED, else here.
void PaintList(ListState& list, CDC& dc);

} // namespace korvel::internal
