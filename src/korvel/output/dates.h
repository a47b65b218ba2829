#pragma once

#include "korvel/platform/export.h"

#include <cstdint>
#include <string>

namespace korvel {

/// Dates and times as text. A date is a double: days since 30 December 1899, with the time as the fraction;
/// its state "GDT_VALID" says that there is one.
///
///     DatetoString(44000.0);               // "Donnerstag, 18. Juni 2020" under German regional settings
///     DatetoString("GDT_NONE", 44000.0);   // ""
///     SetDateCurrentFormatString(false, "%d.%m.%Y");
///     DatetoString(44000.0);               // "18.06.2020"
///
/// Formats are in strftime notation, where `#` drops leading zeros. The long date of the regional settings is
/// the first in use. A long or short format that equals the regional settings' follows them, whoever set it;
/// the time format always follows. To be called on the thread of the windows. The first call reads the
/// regional settings:
/// \throws Error when they cannot be read; the next call tries again.

/// Empty unless the state is exactly "GDT_VALID"; "Invalid DateTime" for a day that is in no calendar. A
/// format with an unknown specifier gives the empty text.
KORVEL_API std::string DatetoString(const std::string& state, double date);
KORVEL_API std::string DatetoString(double date);

/// The local time of the seconds since 1970 began in UTC, without its day; "Invalid DateTime" for negative
/// ones. Leaves the C library's `LC_TIME` at the user's locale where the library knows that name; kept,
/// because hosts that print times afterwards see it.
KORVEL_API std::string TimetoString(const std::int64_t& time);

/// The characters are valid until the format changes.
KORVEL_API const char* GetFormatStringLong();
KORVEL_API const char* GetFormatStringShort();

/// Store the text as given; what is shown stays. \throws std::invalid_argument for null
KORVEL_API void SetFormatStringLong(const char* format);
KORVEL_API void SetFormatStringShort(const char* format);

/// The format in use; `isLong` says whether it is the long one.
KORVEL_API void GetDateCurrentFormatString(bool& isLong, std::string& format);

/// Makes `format` the long or the short format and the one in use; grids write their dates again. Nothing
/// happens when it is in use already. \throws std::invalid_argument for a format with a zero byte; nothing
/// changes then
KORVEL_API void SetDateCurrentFormatString(const bool& isLong, const std::string& format);

} // namespace korvel
