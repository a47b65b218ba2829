#pragma once

#include <string>
#include <string_view>

namespace korvel::internal {

/// A date or time pattern in the letters of the Unicode locale data, as a picture of the regional settings.
///
///     PictureOfPattern("EEEE, d. MMMM y")  -> "dddd, d. MMMM yyyy"
///     PictureOfPattern("h:mm:ss a")        -> "h:mm:ss tt"
///
/// A year always has four digits, as the first pictures have it in every country. Fields without a
/// counterpart (era) are left out, with the blank after them. Both sides are UTF-8.
std::string PictureOfPattern(std::string_view pattern);

} // namespace korvel::internal
