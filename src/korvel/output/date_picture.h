#pragma once

#include <string>
#include <string_view>

namespace korvel::internal {

/// Pictures of the regional settings in strftime notation.
///
///     DatePictureToFormat("dddd, d. MMMM yyyy");   // "%A, %#d. %B %Y"
///     TimePictureToFormat("h 'Uhr' tt");           // "%#I Uhr %p"
///
/// A run of a letter that has no meaning at its length, as "yyy", gives nothing. Apostrophes quote in times
/// only; in dates they are copied, and the letters between them read. Kept: dates of regions with quoted
/// words show it.
std::string DatePictureToFormat(std::string_view picture);
std::string TimePictureToFormat(std::string_view picture);

} // namespace korvel::internal
