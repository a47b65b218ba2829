#pragma once

#include "editing/grid_pane.h"

#include <string>

namespace korvel::inspector {

/// Opens the cell of the selected row of a pane and writes a text into it, as a user at the keyboard would:
/// types it and ends with Return, chooses an entry of a list, a date or a color, toggles a flag. A display
/// without a screen must be in force. `text` is in the bytes of the library's texts; a date is written as in
/// the file (2026-03-04), and an empty text is none; a flag is "true" or "false".
///
/// Throws Error with the reason, in the language of the process, when the text is refused; nothing is written
/// then.
void TypeValue(GridPane& pane, const std::string& text);

} // namespace korvel::inspector
