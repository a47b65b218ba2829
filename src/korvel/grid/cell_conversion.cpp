#include "korvel/grid/cell_conversion.h"

#include "korvel/output/type_table.h"
#include "korvel/values/enum_value.h"

#include <cinttypes>
#include <cstdio>
#include <utility>

namespace korvel::internal {

namespace {

using Info = CItemInfo;

constexpr unsigned TypeBitAlpha = 0x1000; // of a color

struct MeaningRow {
    ValueMeaning meaning;
    CellText text;
    Info::CONTROLTYPE control;
};

constexpr MeaningRow Meanings[] = {
    {ValueMeaning::Angle, CellText::Value, Info::ctAngle},
    {ValueMeaning::List, CellText::Value, Info::ctList},
    {ValueMeaning::Date, CellText::Value, Info::ctDate},
    {ValueMeaning::FileName, CellText::TextField, Info::ctFile},
    {ValueMeaning::Range, CellText::Value, Info::ctRange},
    {ValueMeaning::Random, CellText::Value, Info::ctRandom},
};

std::optional<CellConversion> Shown(const TypeRow& row) {
    switch (row.storage) {
    case ValueStorage::None:
    case ValueStorage::Group:
        return std::nullopt;
    case ValueStorage::Bool:
        return CellConversion{CellText::Nothing, Info::ctCheck, row.service};
    case ValueStorage::Color:
        return CellConversion{CellText::ColorWord,
                              row.type & TypeBitAlpha ? Info::ctColorAlpha : Info::ctColor, row.service};
    default:
        break;
    }
    for (const MeaningRow& meaning : Meanings)
        if (meaning.meaning == row.meaning)
            return CellConversion{meaning.text, meaning.control, row.service};
    return CellConversion{CellText::Value, Info::ctEdit, row.service};
}

CString HexWord(std::uint32_t word) {
    char text[16];
    std::snprintf(text, sizeof text, "0x%" PRIx32, word);
    return text;
}

} // namespace

std::optional<CellConversion> FindCellConversion(EDataTyps type) {
    const bool isListOrGroup = type & (TypeBitList | DT_Group);
    if (type & TypeBitButton && !isListOrGroup)
        return CellConversion{CellText::TextField, Info::ctButton, FormatService::None};
    if (type & TypeBitTextForm && !isListOrGroup)
        return CellConversion{CellText::TextField, Info::ctEdit, FormatService::None};
    const TypeRow* row = FindTypeRow(type);
    return row ? Shown(*row) : std::nullopt;
}

void ConvertCell(const CVariantValue& value, TextForm form, CString& text, Info::CONTROLTYPE& control) {
    const auto conversion = FindCellConversion(value.Type);
    control = conversion ? conversion->control : Info::ctEdit;
    if (!conversion)
        return;
    switch (conversion->text) {
    case CellText::Value:
        text = value.ToText(form);
        break;
    case CellText::TextField:
        text = value.Text;
        break;
    case CellText::ColorWord:
        text = HexWord(value.Value.UInt);
        break;
    case CellText::Nothing:
        text.clear();
        break;
    }
}

FormatService FormatServiceOf(EDataTyps type) {
    return FindCellConversion(type).value_or(CellConversion()).service;
}

FormatService FormatServiceOf(const CVariantValue& value) {
    if (value.Type & TypeBitList)
        return value.EnumValue ? FormatServiceOf(value.EnumValue->GetDataType()) : FormatService::None;
    return FormatServiceOf(value.Type);
}

void UnescapeDashes(const CVariantValue& value, CString& text) {
    const bool isTree =
        value.Type & TypeBitList && value.EnumValue && value.EnumValue->GetEnumFlags() & ENF_Tree;
    if (!isTree)
        return;
    const CString escaped = std::exchange(text, CString());
    std::size_t from = 0;
    for (std::size_t at = escaped.find("\\-"); at != CString::npos; at = escaped.find("\\-", from)) {
        text.append(escaped, from, at - from);
        text += '-';
        from = at + 2;
    }
    text.append(escaped, from, CString::npos);
}

} // namespace korvel::internal
