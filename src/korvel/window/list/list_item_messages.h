#pragma once

#include "korvel/window/list/list_state.h"

#include <optional>

namespace korvel::internal {

/// The messages that carry a row or a column in a record (LVITEM, LVCOLUMN), and those that ask for places,
/// counts and styles; nothing for another message. Each does what the method of CListCtrl of its name does.
std::optional<LRESULT> HandleItemMessage(ListState& list, UINT message, WPARAM wParam, LPARAM lParam);

} // namespace korvel::internal
