#pragma once

#include "korvel/window/controls/combo_box_state.h"

/// The current entry and the drop-down list of a combo box, with the notices that go with what the user does.
/// After each notice the window may be gone.
namespace korvel::internal {

void SetText(ComboBoxState& box, const CString& text);
/// Shows an entry, or None. No notice.
void Select(ComboBoxState& box, int index);
/// A key moves to an entry, as far as there is one.
void MoveTo(ComboBoxState& box, int index);
/// The user takes an entry out of the list.
void Choose(ComboBoxState& box, int index);

enum class Closing { Take, Cancel };
void Open(ComboBoxState& box);
void Close(ComboBoxState& box, Closing how);
void LoseFocus(ComboBoxState& box);

} // namespace korvel::internal
