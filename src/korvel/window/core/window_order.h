#pragma once

#include "korvel/window/core/window_record.h"

namespace korvel::internal {

/// Puts a window among its siblings, see SetWindowPos.
void PutAfter(WindowRecord& record, HWND insertAfter);

} // namespace korvel::internal
