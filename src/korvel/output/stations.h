#pragma once

#include "korvel/platform/export.h"

#include <cstdint>
#include <string>

namespace korvel {

/// Positions along an axis, in metres, as the trade writes them: kilometres, "+", metres.
///
///     RailwayStationToString(12345.6);   // "12,3+45,60" under German regional settings
///     RoadStationToString(12345.6);      // "12+345,60"
///     RoadStationToString(-1500.0);      // "-2+500,00": metres count up from the kilometre below; kept
///
/// Decimals are those of the regional settings until SetStationDigits; numbers are never grouped, and the
/// decimal sign is the one found at the first station of the process. Not-a-number is "+". To be called on
/// the thread of the windows. The first call reads the regional settings: \throws Error when they cannot be
/// read; the next call tries again.
KORVEL_API std::string RailwayStationToString(double station);
KORVEL_API std::string RailwayStationToString(float station);
KORVEL_API std::string RoadStationToString(double station);
KORVEL_API std::string RoadStationToString(float station);

/// How many decimals stations have. They follow the regional settings exactly while they equal them; nothing
/// keeps them for another run. Grids write their stations again.
KORVEL_API void SetStationDigits(std::uint32_t digits);

} // namespace korvel
