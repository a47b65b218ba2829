#pragma once

#include "korvel/window/core/window.h"
#include "korvel/window/core/window_record.h"

namespace korvel::internal {

/// CreateWindowExA that calls `attach` (may be empty) before the window's first message.
HWND CreateRecordedWindow(const CREATESTRUCTA& parameters, const std::function<void(WindowRecord&)>& attach);

} // namespace korvel::internal
