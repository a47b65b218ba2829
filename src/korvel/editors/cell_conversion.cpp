#include "korvel/editors/cell_conversion.h"

#include "korvel/output/type_table.h"
#include "korvel/values/enum_value.h"

#include <cinttypes>
#include <cstdio>
#include <utility>

namespace korvel::internal {

namespace {

constexpr unsigned TypeBitAlpha = 0x1000; // of a color

struct MeaningRow {
    ValueMeaning meaning;
    CellText text;
    CONTROLTYPE control;
};

constexpr MeaningRow Meanings[] = {
    {ValueMeaning::Angle, CellText::Value, ctAngle}, {ValueMeaning::List, CellText::Value, ctList},
    {ValueMeaning::Date, CellText::Value, ctDate},   {ValueMeaning::FileName, CellText::TextField, ctFile},
    {ValueMeaning::Range, CellText::Value, ctRange}, {ValueMeaning::Random, CellText::Value, ctRandom},
};

std::optional<CellConversion> Shown(const TypeRow& row) {
    switch (row.storage) {
    case ValueStorage::None:
    case ValueStorage::Group:
        return std::nullopt;
    case ValueStorage::Bool:
        return CellConversion{CellText::Nothing, ctCheck, row.service};
    case ValueStorage::Color:
        return CellConversion{CellText::ColorWord, row.type & TypeBitAlpha ? ctColorAlpha : ctColor,
                              row.service};
    default:
        break;
    }
    for (const MeaningRow& meaning : Meanings)
        if (meaning.meaning == row.meaning)
            return CellConversion{meaning.text, meaning.control, row.service};
    return CellConversion{CellText::Value, ctEdit, row.service};
}

std::string HexWord(std::uint32_t word) {
    char text[16];
    std::snprintf(text, sizeof text, "0x%" PRIx32, word);
    return text;
}

} // namespace

std::optional<CellConversion> FindCellConversion(EDataTyps type) {
    const bool isListOrGroup = type & (TypeBitList | DT_Group);
    if (type & TypeBitButton && !isListOrGroup)
        return CellConversion{CellText::TextField, ctButton, FormatService::None};
    if (type & TypeBitTextForm && !isListOrGroup)
        return CellConversion{CellText::TextField, ctEdit, FormatService::None};
    const TypeRow* row = FindTypeRow(type);
    return row ? Shown(*row) : std::nullopt;
}

void ConvertCell(const CVariantValue& value, TextForm form, std::string& text, CONTROLTYPE& control) {
    const auto conversion = FindCellConversion(value.Type);
    control = conversion ? conversion->control : ctEdit;
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

std::string WithPlainDashes(const std::string& escaped) {
    std::string text;
    std::size_t from = 0;
    for (std::size_t at = escaped.find("\\-"); at != std::string::npos; at = escaped.find("\\-", from)) {
        text.append(escaped, from, at - from);
        text += '-';
        from = at + 2;
    }
    return text.append(escaped, from, std::string::npos);
}

void UnescapeDashes(const CVariantValue& value, std::string& text) {
    const bool isTree =
        value.Type & TypeBitList && value.EnumValue && value.EnumValue->GetEnumFlags() & ENF_Tree;
    if (isTree)
        text = WithPlainDashes(text);
}

} // namespace korvel::internal
