#pragma once

#include "korvel/window/list/list_state.h"

namespace korvel::internal {

/// WM_KEYDOWN: LVN_KEYDOWN, then focus and selection move or the row is checked. False: no key of a list.
bool PressKey(ListState& list, UINT key);
/// WM_CHAR: goes on to the next row whose text begins with what was typed. False: not a text.
bool TypeCharacter(ListState& list, WPARAM byte);

} // namespace korvel::internal
