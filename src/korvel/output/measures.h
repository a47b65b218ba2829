#pragma once

#include "korvel/platform/export.h"

#include <string>

namespace korvel {

/// Numbers followed by a unit sign.
///
///     LengthToString(1234.5);    // "1.234,50 m" under German regional settings
///     PercentToString(12.5);     // "12,50 %": the number as it is
///     ManDaysToString(3.0);      // "3,00 MT"
///
/// The unit is fixed; nothing is converted, and an amount is always in euro. The number is written as
/// `NumberToString` does, in the format for its precision; only man-days have formats of their own. The signs
/// are bytes of code page 1252. To be called on the thread of the windows. The first call reads the regional
/// settings: \throws Error when they cannot be read; the next call tries again.
KORVEL_API std::string LengthToString(double value);
KORVEL_API std::string LengthToString(float value);
KORVEL_API std::string AreaToString(double value);
KORVEL_API std::string AreaToString(float value);
KORVEL_API std::string VolumeToString(double value);
KORVEL_API std::string VolumeToString(float value);
KORVEL_API std::string PercentToString(double value);
KORVEL_API std::string PercentToString(float value);
KORVEL_API std::string CurrencyToString(double value);
KORVEL_API std::string CurrencyToString(float value);

/// Rounded on the value's decimal text of 6 places, for both precisions.
KORVEL_API std::string ManDaysToString(double value);
KORVEL_API std::string ManDaysToString(float value);

} // namespace korvel
