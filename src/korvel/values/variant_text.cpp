#include "korvel/output/angle_output.h"
#include "korvel/output/date_output.h"
#include "korvel/output/measure_output.h"
#include "korvel/output/number_output.h"
#include "korvel/output/station_output.h"
#include "korvel/output/stream_text.h"
#include "korvel/output/type_table.h"
#include "korvel/values/enum_value.h"
#include "korvel/values/variant_value.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <utility>
#include <vector>

namespace korvel {

namespace {

constexpr const char* EntrySeparator = "; ";

/// The lists around an entry, from the inside. Lists may hold lists, and one that holds itself must come to
/// an end.
struct SEnclosingList {
    const IEnumValue* list;
    const SEnclosingList* outer;

    bool Holds(const IEnumValue* wanted) const { return list == wanted || (outer && outer->Holds(wanted)); }
};

void AppendValue(std::string& out, const CVariantValue& value, ETextForm form,
                 const SEnclosingList* enclosing = nullptr);

template <typename Integer>
void AppendInteger(std::string& out, Integer number, int base = 10) {
    std::array<char, 24> text;
    const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), number, base);
    out.append(text.data(), end);
}

/// Calls `write` with the payload of a float or of a double type.
template <typename Write>
void WithReal(const CVariantValue& value, EStorage storage, Write write) {
    if (storage == EStorage::Float)
        write(value.Value.Float);
    else
        write(value.Value.Double);
}

template <typename Output>
void AppendReal(std::string& out, const CVariantValue& value, EStorage storage, const Output& output) {
    WithReal(
        value, storage, [&](auto number) { output.Append(out, number); });
}

void AppendList(std::string& out, const CVariantValue& value, ETextForm form,
                const SEnclosingList* enclosing) {
    if (!value.EnumValue || (enclosing && enclosing->Holds(value.EnumValue)))
        return;
    const SEnclosingList here{value.EnumValue, enclosing};
    std::vector<CVariantValue> entries;
    for (EnumPosition position = value.EnumValue->GetFirstPosition(); position;) {
        const long id = value.EnumValue->GetNext(position);
        CVariantValue entry;
        if (value.EnumValue->IsValue(id, value) && value.EnumValue->GetName(id, entry))
            entries.push_back(std::move(entry));
    }
    const char* separator = "";
    for (const CVariantValue& entry : entries) {
        out += separator;
        AppendValue(out, entry, form, &here);
        separator = EntrySeparator;
    }
}

void AppendUserFacingNumber(std::string& out, const CVariantValue& value, const STypeRow& row) {
    switch (row.Meaning) {
    case EMeaning::Angle:
        return AppendReal(out, value, row.Storage, CAngleOutput::Instance());
    case EMeaning::RailwayStation:
        return WithReal(value, row.Storage,
                        [&](auto station) { CStationOutput::Instance().AppendRailway(out, station); });
    case EMeaning::RoadStation:
        return WithReal(value, row.Storage,
                        [&](auto station) { CStationOutput::Instance().AppendRoad(out, station); });
    case EMeaning::Length:
        return AppendReal(out, value, row.Storage, CLengthOutput::Instance());
    case EMeaning::Area:
        return AppendReal(out, value, row.Storage, CAreaOutput::Instance());
    case EMeaning::Volume:
        return AppendReal(out, value, row.Storage, CVolumeOutput::Instance());
    case EMeaning::Percent:
        return AppendReal(out, value, row.Storage, CPercentOutput::Instance());
    case EMeaning::Currency:
        return AppendReal(out, value, row.Storage, CCurrencyOutput::Instance());
    case EMeaning::ManDays:
        return AppendReal(out, value, row.Storage, CManDaysOutput::Instance());
    default:
        return AppendReal(out, value, row.Storage, CNumberOutput::Instance());
    }
}

void AppendUserFacing(std::string& out, const CVariantValue& value, const STypeRow& row) {
    switch (row.Storage) {
    case EStorage::None:
        out += "null";
        return;
    case EStorage::Int:
    case EStorage::UInt: // written as the signed number of the same bits
        return CNumberOutput::Instance().Append(out, value.Value.Int);
    case EStorage::Long:
        return CNumberOutput::Instance().Append(out, long{value.Value.Int});
    case EStorage::Float:
    case EStorage::Double:
        return AppendUserFacingNumber(out, value, row);
    case EStorage::Bool:
        out += value.Value.Bool ? "true" : "false";
        return;
    case EStorage::Group:
        out += value.Value.Dispatch ? value.Value.Dispatch->GetIdent() : value.Text;
        return;
    case EStorage::Date:
        out += DatetoString(value.Text, value.Value.Double);
        return;
    default:
        return;
    }
}

// Kept: a flag that should have switched to hexadecimal is written as the number that it is, 2048.
void AppendPlainGroup(std::string& out, const IMemberDispatch* object) {
    if (!object) {
        out += "0x00000000";
        return;
    }
    out += "0x20480x";
    AppendInteger(out, reinterpret_cast<std::uintptr_t>(object), 16);
}

void AppendPlain(std::string& out, const CVariantValue& value, const STypeRow& row) {
    switch (row.Storage) {
    case EStorage::None:
        out += "nothing";
        return;
    case EStorage::Int:
    case EStorage::Long:
        return AppendInteger(out, value.Value.Int);
    case EStorage::UInt:
        return AppendInteger(out, value.Value.UInt);
    case EStorage::Bool:
        out += value.Value.Bool ? '1' : '0';
        return;
    case EStorage::Float:
        return AppendStreamText(out, value.Value.Float);
    case EStorage::Double:
    case EStorage::Date:
        return AppendStreamText(out, value.Value.Double);
    case EStorage::Group:
        return AppendPlainGroup(out, value.Value.Dispatch);
    default:
        return;
    }
}

void AppendValue(std::string& out, const CVariantValue& value, ETextForm form,
                 const SEnclosingList* enclosing) {
    const STypeRow* row = FindTypeRow(value.Type);
    if (!row || row->Meaning == EMeaning::TextForm)
        return;
    if (row->Storage == EStorage::Text)
        out += value.Text;
    else if (row->Storage == EStorage::Color)
        AppendInteger(out, value.Value.UInt);
    else if (row->Storage == EStorage::List)
        AppendList(out, value, form, enclosing);
    else if (form == ETextForm::Plain)
        AppendPlain(out, value, *row);
    else
        AppendUserFacing(out, value, *row);
}

} // namespace

std::string CVariantValue::ToText(ETextForm form) const {
    std::string text;
    AppendText(text, form);
    return text;
}

void CVariantValue::AppendText(std::string& out, ETextForm form) const {
    AppendValue(out, *this, form);
}

} // namespace korvel
