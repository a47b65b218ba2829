#pragma once

#include "korvel/window/base/types.h"

#include <optional>
#include <string>
#include <string_view>

/// The record of a window's rectangle: left, top, right and bottom, 16 bytes.
namespace korvel::internal {

std::string PackRect(const CRect& rect);
/// Nothing where the bytes are too few; what is beyond is not looked at.
std::optional<CRect> UnpackRect(std::string_view record);

} // namespace korvel::internal
