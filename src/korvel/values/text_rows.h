#pragma once

#include "korvel/values/text_table.h"

#include <array>

namespace korvel {

/// One text in each language, in the order of `LanguageChoice::Column`.
using TextRow = std::array<const char*, 3>;

using TextRowTable = std::array<TextRow, TextCount>;

const TextRowTable& TextRows();

} // namespace korvel
