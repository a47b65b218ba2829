#include "korvel/grid/cell_conversion.h"

#include "korvel/output/type_table.h"
#include "korvel/values/enum_value.h"

#include <cinttypes>
#include <cstdio>
#include <utility>

namespace korvel {

namespace {

using Info = CItemInfo;

constexpr unsigned TypeBitAlpha = 0x1000; // of a colour

struct SMeaningRow {
    EMeaning meaning;
    ECellText text;
    Info::CONTROLTYPE control;
};

constexpr SMeaningRow Meanings[] = {
    {EMeaning::Angle, ECellText::Value, Info::ctAngle},
    {EMeaning::List, ECellText::Value, Info::ctList},
    {EMeaning::Date, ECellText::Value, Info::ctDate},
    {EMeaning::FileName, ECellText::TextField, Info::ctFile},
    {EMeaning::Range, ECellText::Value, Info::ctRange},
    {EMeaning::Random, ECellText::Value, Info::ctRandom},
};

std::optional<SCellConversion> Shown(const STypeRow& row) {
    switch (row.Storage) {
    case EStorage::None:
    case EStorage::Group:
        return std::nullopt;
    case EStorage::Bool:
        return SCellConversion{ECellText::Nothing, Info::ctCheck, row.Service};
    case EStorage::Color:
        return SCellConversion{ECellText::ColorWord,
                               row.Type & TypeBitAlpha ? Info::ctColorAlpha : Info::ctColor, row.Service};
    default:
        break;
    }
    for (const SMeaningRow& meaning : Meanings)
        if (meaning.meaning == row.Meaning)
            return SCellConversion{meaning.text, meaning.control, row.Service};
    return SCellConversion{ECellText::Value, Info::ctEdit, row.Service};
}

CString HexWord(std::uint32_t word) {
    char text[16];
    std::snprintf(text, sizeof text, "0x%" PRIx32, word);
    return text;
}

} // namespace

std::optional<SCellConversion> FindCellConversion(EDataTyps type) {
    const bool isListOrGroup = type & (TypeBitList | DT_Group);
    if (type & TypeBitButton && !isListOrGroup)
        return SCellConversion{ECellText::TextField, Info::ctButton, EFormatService::None};
    if (type & TypeBitTextForm && !isListOrGroup)
        return SCellConversion{ECellText::TextField, Info::ctEdit, EFormatService::None};
    const STypeRow* row = FindTypeRow(type);
    return row ? Shown(*row) : std::nullopt;
}

void ConvertCell(const CVariantValue& value, CString& text, Info::CONTROLTYPE& control) {
    const auto conversion = FindCellConversion(value.Type);
    control = conversion ? conversion->control : Info::ctEdit;
    if (!conversion)
        return;
    switch (conversion->text) {
    case ECellText::Value:
        text = value.ToText();
        break;
    case ECellText::TextField:
        text = value.Text;
        break;
    case ECellText::ColorWord:
        text = HexWord(value.Value.UInt);
        break;
    case ECellText::Nothing:
        text.clear();
        break;
    }
}

EFormatService FormatServiceOf(const CVariantValue& value) {
    EDataTyps type = value.Type;
    if (type & TypeBitList) {
        if (!value.EnumValue)
            return EFormatService::None;
        type = value.EnumValue->GetDataType();
    }
    const auto conversion = FindCellConversion(type);
    return conversion ? conversion->service : EFormatService::None;
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

} // namespace korvel
