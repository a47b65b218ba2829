#pragma once

#include "korvel/window/base/types.h"

namespace korvel {
class CEditableGrid;
}

namespace korvel::internal {

/// WM_OPENGLSINK_NOTIFICATION: runs the grid's operation that the record (lParam) stands for, and frees it;
/// also when the operation throws. Leaves alone what is no record of SinkCode. Returns 1.
LRESULT ReceiveSinkRecord(CEditableGrid& grid, LPARAM lParam);

} // namespace korvel::internal
