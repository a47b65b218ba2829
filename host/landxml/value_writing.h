#pragma once

#include "landxml/value_reading.h"

#include <optional>
#include <string>
#include <string_view>

namespace korvel::inspector {

/// The inverse of ReadValue: the text (UTF-8) of a value in the form and the unit of its place. Numbers take
/// the shortest text that reads back to the same value, with a point; an angle takes the shortest text that
/// means it, see MeansRadians; it may read back as a neighboring double.
///
///     100.5 (DT_LengthDouble), Length                        -> "100.5"
///     pi / 4 (DT_AngleDouble), Angle, "decimal dd.mm.ss"     -> "45"
///     true, Flag, where the file has "0"                     -> "1"
///     17 May 2024, Date, where the file has "2024-01-01Z"    -> "2024-05-17Z"
///     infinity, Length                                       -> "INF"
///
/// `current` is what the file has there now, empty for nothing. Nothing for a value of another kind than the
/// type, and for a date that is none. A text value is returned as it is: whether the type allows it is for
/// ReadValue to say.
std::optional<std::string> WriteValue(const ValueType& type, const CVariantValue& value,
                                      std::string_view current, const ValuePlace& place);

/// True for a type whose values are plain numbers or angles, of any width.
bool IsNumber(EDataTyps type);

/// Whether two values of one place mean the same in the file: also the same day, and the same word of a list.
bool MeansTheSame(const ValueType& type, const CVariantValue& a, const CVariantValue& b);

} // namespace korvel::inspector
