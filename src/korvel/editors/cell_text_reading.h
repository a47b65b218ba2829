#pragma once

#include "korvel/editors/grid_option.h"
#include "korvel/output/type_table.h"
#include "korvel/parser/evaluate_expression.h"
#include "korvel/values/variant_value.h"

#include <string>
#include <string_view>

/// How a text that was typed into a cell is read as a value.
namespace korvel::internal {

/// Where ranges end; they begin at 0.
inline constexpr double RangeEnd = 100;

/// The type without the bit of a formula.
EDataTyps WithoutFormula(EDataTyps type);

/// True for "<VB ... />", which is kept as it is and not evaluated.
bool IsFormula(std::string_view text);
/// The value with this formula as its text.
CVariantValue WithFormula(CVariantValue value, const std::string& formula);

/// True for a type whose text alone is edited, while the rest of the value stays: files, text forms, opaque
/// colors.
bool KeepsPayload(EDataTyps type);

/// As WideIntegers says.
WholeNumbers WholeNumbersOf(GridOptions options);

/// The number that a text means where values of this type are shown, an angle in the user's unit: arithmetic,
/// and a station with StationInput. \throws Error with an empty text for anything else
double ReadCellNumber(const TypeRow& type, const std::string& text, GridOptions options);

/// Puts the value of `type`, without the bit of a formula, that a text means in place of `value`, whose
/// payload stays where KeepsPayload says so.
///
///     CVariantValue value;
///     ReadCellText(DT_Int, "7/2", {}, value)           -> true, 3: cut off toward zero
///     ReadCellText(DT_RangeDouble, "50*3", {}, value)  -> throws "150: Value is outside the ranges of 0-100!"
///     ReadCellText(DT_Int, "1/0", {}, value)           -> false: no integer of 32 bits
///
/// False, and `value` as before: the type is not edited as a text, or its integers do not hold the number
/// (unsigned ones take -2147483648 to 4294967295 and keep the low 32 bits). Floating numbers take infinities
/// and not-a-number, ranges only 0 to 100. \throws Error as above, and for a number outside of a range
bool ReadCellText(EDataTyps type, const std::string& text, GridOptions options, CVariantValue& value);

/// A number as the 32 bits of an integer type, cut off toward zero. False for what they do not hold.
bool StoreWhole(double number, const TypeRow& type, CVariantValue& value);

} // namespace korvel::internal
