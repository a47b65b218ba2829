#pragma once

#include "korvel/platform/export.h"

#include <string>

namespace korvel {

/// Replaces the first occurrence of `placeholder` in `text`, byte by byte; further ones stay, and the
/// replacement is not searched again. Without an occurrence the text stays as it is.
KORVEL_API void ReplaceFirst(std::string& text, const std::string& placeholder, const std::string& value);

} // namespace korvel
