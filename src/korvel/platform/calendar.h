#pragma once

#include "korvel/platform/export.h"

#include <cstdint>
#include <optional>

namespace korvel::platform {

/// A moment of the Gregorian calendar, in local time, to the second.
struct CalendarFields {
    int year = 0;
    int month = 1; ///< 1 to 12
    int day = 1;   ///< 1 to 31
    int hour = 0;
    int minute = 0;
    int second = 0;
    int weekday = 0;   ///< 0 is Sunday
    int dayOfYear = 1; ///< 1 to 366

    bool operator==(const CalendarFields&) const = default;
};

/// Date doubles: days since 30 December 1899, with the time as the fraction.
///
///     FieldsFromDate(44000.75)  -> 18 June 2020, 18:00:00, Thursday, day 170
///     FieldsFromDate(-1.25)     -> 29 December 1899, 06:00:00
///
/// The fraction always counts forward from midnight.
///
/// Rounded to the nearest second. Returns nothing outside the years 100 to 9999, for infinities, for
/// not-a-number, and in the last half second of the year 9999.
KORVEL_API std::optional<CalendarFields> FieldsFromDate(double date);

/// The reverse; weekday and dayOfYear are not looked at. Nothing when there is no such day or time of day.
KORVEL_API std::optional<double> DateFromFields(const CalendarFields& fields);

/// Local time of the seconds since 1970 began in UTC. Nothing for negative seconds and after the year 3000.
KORVEL_API std::optional<CalendarFields> LocalFieldsFromEpoch(std::int64_t seconds);

} // namespace korvel::platform
