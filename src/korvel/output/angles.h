#pragma once

#include "korvel/output/numberfmt.h"
#include "korvel/platform/export.h"

#include <string>

namespace korvel {

/// Angles, which the library stores in radians, in the user's unit: degrees, radians (at start) or gon.
///
///     SetAngleUnit('g');
///     RadToAngle(3.141592653589793);      // 200
///     AngleToRad(200.0);                  // 3.141592653589793
///     AngleToString(3.141592653589793);   // "200,00" under German regional settings: no sign follows
///
/// To be called on the thread of the windows. The first call reads the regional settings: \throws Error when
/// they cannot be read; the next call tries again.

/// From radians to text in the user's unit. What the format cannot write (infinities, not-a-number) takes the
/// form of a default stream, in radians.
KORVEL_API std::string AngleToString(double radians);
KORVEL_API std::string AngleToString(float radians);

/// Between the user's unit and radians, each in the precision of its argument. Infinities and not-a-number
/// pass through.
KORVEL_API double AngleToRad(double angle);
KORVEL_API float AngleToRad(float angle);
KORVEL_API double RadToAngle(double radians);
KORVEL_API float RadToAngle(float radians);

/// The setters match the texts of their precision. The getters are crossed over: `GetAngleFormatDouble`
/// returns the format of float texts, `GetAngleFormatFloat` that of double texts. Kept, because hosts read
/// them so.
KORVEL_API const _numberfmtA& GetAngleFormatDouble();
KORVEL_API const _numberfmtA& GetAngleFormatFloat();

/// Store a format. If it differs from the current one, grids rewrite their texts. A format that equals the
/// regional settings follows them from now on. \throws std::invalid_argument when a separator is null or
/// longer than three bytes; nothing changes then
KORVEL_API void SetAngleFormatDouble(const _numberfmtA& format);
KORVEL_API void SetAngleFormatFloat(const _numberfmtA& format);

/// 'r' radians, 'g' gon, the degree sign of code page 1252 ('\xB0') degrees. Setting takes every other
/// character as degrees, and calls no listener: values that are shown stay until they are refreshed.
KORVEL_API char GetAngleUnit();
KORVEL_API void SetAngleUnit(char unit);

} // namespace korvel
