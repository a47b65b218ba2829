#pragma once

#include "korvel/platform/calendar.h"
#include "korvel/platform/calendar_names.h"
#include "korvel/window/base/types.h"

#include <vector>

namespace korvel::internal {

enum class DateField { Literal, Weekday, Day, Month, Year, Hour, Minute, Second, HalfDay };

/// A piece of a picture.
struct DatePart {
    DateField field = DateField::Literal;
    CString letters; // "dd", "HH"; of a literal its text
};

/// The pieces of a picture; letters without a meaning are literal text, as what stands between apostrophes.
///
///     PartsOf("d.MM 'at' HH")   -> Day "d", "." , Month "MM", " at ", Hour "HH"
std::vector<DatePart> PartsOf(const CString& picture);

CString TextOf(const DatePart& part, const platform::CalendarFields& moment,
               const platform::CalendarNames& names);

/// The numbers that a part can show, and the one of a moment.
struct PartRange {
    int lower = 0;
    int upper = 0;
};
/// With upper < lower for what the user cannot change: a literal or a weekday.
PartRange RangeOf(const DatePart& part, const platform::CalendarFields& moment);
int ValueOf(const DatePart& part, const platform::CalendarFields& moment);
/// The moment with another number there; a day that its month does not have becomes the last that it has.
platform::CalendarFields WithValue(const DatePart& part, platform::CalendarFields moment, int value);

int DaysIn(int year, int month);

} // namespace korvel::internal
