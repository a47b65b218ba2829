#pragma once

#include "korvel/window/controls/combo_box_state.h"

namespace korvel::internal {

/// What the box says to WM_GETDLGCODE beyond its arrows and letters: Return and Escape are an open list's,
/// while Tab leaves it.
UINT KeysOfOpenList(const ComboBoxState& box, WPARAM key);
/// False: the box does nothing with the key.
bool PressKey(ComboBoxState& box, UINT message, UINT key);
/// A letter goes to the next entry that begins with it; only in a box without text field.
bool TypeCharacter(ComboBoxState& box, WPARAM byte);

} // namespace korvel::internal
