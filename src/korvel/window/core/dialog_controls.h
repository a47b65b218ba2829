#pragma once

#include "korvel/window/base/types.h"

namespace korvel::internal {

/// As GetNextDlgTabItem, but not round: null after the last tab stop, or before the first.
HWND NextTabStop(HWND parent, HWND from, bool previous);

} // namespace korvel::internal
