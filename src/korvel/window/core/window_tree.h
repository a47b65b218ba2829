#pragma once

#include "korvel/window/base/types.h"

namespace korvel::internal {

/// True for the window itself and for its descendants.
bool IsWithin(HWND ancestor, HWND window);

} // namespace korvel::internal
