#pragma once

#include "korvel/editors/grid_option.h"
#include "korvel/values/variant_value.h"

#include <optional>
#include <string>

/// What stands in a text field of a cell before the user types.
namespace korvel::internal {

/// The text of a value to be edited: an integer in decimal digits, an unsigned one as the signed number of
/// the same bits; a floating number with six decimals, an angle in the user's unit; of every other type the
/// Text. With ExactEditText a floating number is the shortest text that ReadCellText reads back to the same
/// bits; for an angle without such a text, the nearest.
///
///     CellEditText(length of 0.1f, {})               -> "0.100000"
///     CellEditText(length of 0.1f, ExactEditText)    -> "0.1"
///     CellEditText(double 4294967296, ExactEditText) -> "4294967296.": without the point it stops at 32 bits
///     CellEditText(double infinity, ExactEditText)   -> "1/0"
std::string CellEditText(const CVariantValue& value, GridOptions options);

/// The text of the number in a field after a step, in the form of CellEditText. Ranges end at 0 and 100,
/// integers at the bounds of their 32 bits. Nothing for a type that is no number. \throws Error as
/// ReadCellNumber
std::optional<std::string> SteppedCellText(EDataTyps type, const std::string& text, double delta,
                                           GridOptions options);

} // namespace korvel::internal
