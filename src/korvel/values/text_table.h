#pragma once

#include "korvel/platform/export.h"

namespace korvel {

/// The text of a row of the table of all texts that the library shows, in the language of the process (see
/// language.h); empty for a number outside the table.
///
///     std::string question = Text(48);           // "erase '$1'" in English
///     ReplaceFirst(question, "$1", "Axis 3");    // "erase 'Axis 3'"
///
/// Rows 63 to 66 hold printf fields; others may hold the markers $1 and $2. The characters are valid for the
/// life of the process. \throws Error when the settings name no language, see `GetLanguage`
KORVEL_API const char* Text(int id);

/// Number of rows of the table.
inline constexpr int TextCount = 133;

} // namespace korvel
