#pragma once

#include "korvel/window/list/list_state.h"

#include <optional>

namespace korvel::internal {

/// The messages of lists that are read and used without looking at them: see window/base/list_view.h.
std::optional<LRESULT> HandleReading(ListState& list, UINT message, WPARAM wParam, LPARAM lParam);

} // namespace korvel::internal
