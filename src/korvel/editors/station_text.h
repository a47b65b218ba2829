#pragma once

#include "korvel/output/type_table.h"

#include <optional>
#include <string_view>

namespace korvel::internal {

/// The metres that a text means in the form in which stations of this meaning are shown, whatever its number
/// of decimals. `decimalSeparator` is one that is read beside the point and the sign that stations are shown
/// with; blanks around the text mean nothing.
///
///     ReadStation(ValueMeaning::RoadStation, "12+345,60", ",")      -> 12345.6
///     ReadStation(ValueMeaning::RailwayStation, "12,3+45,60", ",")  -> 12345.6
///     ReadStation(ValueMeaning::RoadStation, "-2+500", ",")         -> -1500: metres count up
///     ReadStation(ValueMeaning::RoadStation, "12+5", ",")           -> nothing: metres have three digits at least
std::optional<double> ReadStation(ValueMeaning meaning, std::string_view text,
                                  std::string_view decimalSeparator);

} // namespace korvel::internal
