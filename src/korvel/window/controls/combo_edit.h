#pragma once

#include "korvel/window/controls/combo_box_state.h"

#include <optional>

/// The text field of a combo box: a child that is an "EDIT" window, but for the keys that its box takes.
namespace korvel::internal {

void CreateEdit(ComboBoxState& box);
/// Beside the button, on top of the list of a simple box.
void PlaceEdit(const ComboBoxState& box);
/// What the field tells its box (WM_COMMAND) becomes notices of the box; false for another child.
bool HearEdit(ComboBoxState& box, WPARAM wParam, LPARAM lParam);
/// CB_GETEDITSEL, CB_SETEDITSEL, CB_LIMITTEXT, and the messages of the text of the box; nothing for others.
std::optional<LRESULT> HandleText(ComboBoxState& box, UINT message, WPARAM wParam, LPARAM lParam);

} // namespace korvel::internal
