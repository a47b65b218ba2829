#pragma once

#include "korvel/editors/control_type.h"
#include "korvel/output/format_notification.h"
#include "korvel/values/variant_value.h"

#include <optional>
#include <string>

namespace korvel::internal {

/// What the text of a cell is made of.
enum class CellText {
    Value,     // the user-facing text of the value
    TextField, // the value's Text field as it stands
    ColorWord, // "0x" and the color word in lower-case hexadecimal, unpadded
    Nothing,   // empty: what the cell draws says all
};

/// How values of one type are shown in a cell.
struct CellConversion {
    CellText text = CellText::Value;
    CONTROLTYPE control = ctEdit;
    FormatService service = FormatService::None; // whose change of format puts the text out of date
};

/// No value for the types that a cell does not show: groups, void, and what is no type.
std::optional<CellConversion> FindCellConversion(EDataTyps type);

/// Writes the text of a cell, values in a user-facing form, and its editor. A type that a cell does not show
/// leaves the text as it is and gives ctEdit. What the formatters throw passes through.
///
///     value.Type = DT_ColorRGB;
///     value.Value.UInt = 0xFF0000FF;
///     ConvertCell(value, TextForm::UserFacing, text, control);   // "0xff0000ff", ctColor
void ConvertCell(const CVariantValue& value, TextForm form, std::string& text, CONTROLTYPE& control);

/// None for a type that a cell does not show, and for lists.
FormatService FormatServiceOf(EDataTyps type);
/// For a list that of its entries.
FormatService FormatServiceOf(const CVariantValue& value);

/// The text with each "\-" as a dash.
std::string WithPlainDashes(const std::string& text);
/// Does so to the text of a list whose entries are paths.
void UnescapeDashes(const CVariantValue& value, std::string& text);

} // namespace korvel::internal
