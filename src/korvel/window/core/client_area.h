#pragma once

#include "korvel/window/core/window_record.h"

namespace korvel::internal {

/// The client area in the window's own coordinates (from its upper left corner): without border and
/// scroll bars.
CRect ClientArea(const WindowRecord& record);
/// The point on the screen as rectangles in memory say it.
CPoint ScreenPointInMemory(HWND window, CPoint client);

/// The rectangle with no negative size and no coordinate beyond what sums of parents can hold.
CRect Placeable(CRect rect);

} // namespace korvel::internal
