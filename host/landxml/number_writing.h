#pragma once

#include "landxml/landxml_units.h"

#include <string>

namespace korvel::inspector {

/// The shortest text that ReadDouble reads back to the same number, without an exponent for numbers of a
/// usual size; "INF", "-INF" and "NaN" for the others. A float is written with the digits that a float has.
///
///     NumberText(100000)    -> "100000"
///     NumberText(0.1f)      -> "0.1"
std::string NumberText(double number);
std::string NumberText(float number);

/// The shortest text that means the angle, see MeansRadians; where no text means just that double, the
/// nearest one that can be found.
///
///     AngleText(pi, AngleUnit::Grads)   -> "200"
std::string AngleText(double radians, AngleUnit unit);

/// The day of a date double as "2024-05-17"; empty for what is no date.
std::string DateText(double date);

} // namespace korvel::inspector
