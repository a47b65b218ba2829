#pragma once

#include "korvel/platform/calendar.h"
#include "korvel/platform/regional_settings.h"

#include <string>
#include <string_view>

namespace korvel::internal {

/// A date or time as text, after a format in strftime notation.
///
///     TimeText("%A, %#d. %B %Y", *FieldsFromDate(44000.0), german)  -> "Donnerstag, 18. Juni 2020"
///
/// Names, and the pictures of %c, %x and %X, are those of the settings. `#` after the percent sign drops
/// leading zeros from a number (%#d: 9), and asks for the long date in %#c and %#x.
///
/// The empty text when the format has an unknown specifier or ends within one, when a field is out of its
/// range, and when the result would be longer than 255 bytes.
std::string TimeText(std::string_view format, const platform::CalendarFields& fields,
                     const platform::RegionalSettings& settings);

/// Sets the C library's locale for times, which is one for the whole process; hosts may print with it. False,
/// and nothing changed, when the C library does not know the name, and for the empty one.
bool SetTimeLocale(const std::string& name);

} // namespace korvel::internal
