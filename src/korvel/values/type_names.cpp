#include "korvel/values/type_names.h"

#include "korvel/output/type_table.h"
#include "korvel/values/text_table.h"

namespace korvel::internal {

namespace {

constexpr int NoText = -1;

int PlainTypeText(EDataTyps type) {
    switch (type) {
    case DT_Void:
        return 117;
    case DT_Int:
        return 95;
    case DT_UInt:
        return 96;
    case DT_Long:
        return 97;
    case DT_Float:
        return 99;
    case DT_Double:
        return 98;
    case DT_Bool:
        return 100;
    case DT_String:
        return 94;
    case DT_Group:
        return 101;
    case DT_ColorRGB:
        return 102;
    case DT_ColorARGB:
        return 103;
    default:
        return NoText;
    }
}

// What is stored, without what it means.
constexpr unsigned StorageBits = DT_Int | DT_Long | DT_Float | DT_Double | DT_String | DT_UInt;

} // namespace

int TypeNameText(EDataTyps type) {
    const TypeRow* row = FindTypeRow(type);
    if (!row)
        return NoText;
    switch (row->meaning) {
    case ValueMeaning::Plain:
        return PlainTypeText(type);
    case ValueMeaning::Angle:
        return 104;
    case ValueMeaning::List:
        return 105;
    case ValueMeaning::Date:
        return 106;
    case ValueMeaning::FileName:
        return 107;
    case ValueMeaning::Range:
        return 108;
    case ValueMeaning::Random:
        return 109;
    case ValueMeaning::RailwayStation:
        return 110;
    case ValueMeaning::RoadStation:
        return 111;
    case ValueMeaning::Length:
        return 112;
    case ValueMeaning::Area:
        return 113;
    case ValueMeaning::Volume:
        return 114;
    case ValueMeaning::Percent:
        return 115;
    case ValueMeaning::Currency:
        return 116;
    case ValueMeaning::TextForm:
    case ValueMeaning::ManDays:
        break;
    }
    return NoText;
}

std::string TypeName(EDataTyps type) {
    const int named = TypeNameText(static_cast<EDataTyps>(type & ~TypeBitButton));
    const int text = named != NoText ? named : PlainTypeText(static_cast<EDataTyps>(type & StorageBits));
    return text != NoText ? Text(text) : "";
}

} // namespace korvel::internal
