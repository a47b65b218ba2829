#pragma once

#include "korvel/window/core/window_record.h"

namespace korvel::internal {

/// CreateWindowExA with an object that is attached before the first message. `object` may be null.
HWND CreateRecordedWindow(const CREATESTRUCTA& parameters, CWnd* object);

} // namespace korvel::internal
