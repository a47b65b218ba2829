#pragma once

#include "korvel/window/base/types.h"

namespace korvel::internal {

/// What an edit does with a message by default.
LRESULT EditProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

} // namespace korvel::internal
