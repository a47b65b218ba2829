#pragma once

#include "korvel/values/text_table.h"

#include <array>

namespace korvel {

/// One text in each language, in the order of `SLanguage::Column`.
using STextRow = std::array<const char*, 3>;

using STextRows = std::array<STextRow, TextCount>;

const STextRows& TextRows();

} // namespace korvel
