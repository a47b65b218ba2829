#pragma once

#include "korvel/window/base/types.h"

#include <vector>

namespace korvel::internal {

/// A text in lines of at most `width` pixels, broken at blanks; a word that is wider stays whole. The text's
/// own breaks count as well. A width below 0: one line, whatever the text.
///
///     TipLines("Adds an entry\nto the list", 60)   // at 7 pixels a character: "Adds an", "entry", "to the", "list"
std::vector<CString> TipLines(const CString& text, int width);

} // namespace korvel::internal
