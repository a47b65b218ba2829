#pragma once

#include "korvel/window/list/list_state.h"

/// The header of a list as a child window.
namespace korvel::internal {

/// Makes the header window; part of the list's WM_CREATE.
void CreateHeader(ListState& list);
/// Moves the header to where the list is scrolled, and shows or hides it as the style says.
void PlaceHeader(ListState& list, int clientWidth);

} // namespace korvel::internal
