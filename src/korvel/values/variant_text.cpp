#include "korvel/output/angle_output.h"
#include "korvel/output/dates.h"
#include "korvel/output/man_days_output.h"
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

using internal::FindTypeRow;
using internal::TypeRow;
using internal::ValueMeaning;
using internal::ValueStorage;

constexpr const char* EntrySeparator = "; ";

// The lists around an entry, from the inside. Lists may hold lists, and one that holds itself must come to
// an end.
struct EnclosingList {
    const IEnumValue* list;
    const EnclosingList* outer;

    bool Holds(const IEnumValue* wanted) const { return list == wanted || (outer && outer->Holds(wanted)); }
};

void AppendValue(std::string& out, const CVariantValue& value, TextForm form,
                 const EnclosingList* enclosing = nullptr);

template <typename Integer>
void AppendInteger(std::string& out, Integer number, int base = 10) {
    std::array<char, 24> text;
    const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), number, base);
    out.append(text.data(), end);
}

// Calls `write` with the payload of a float or of a double type.
template <typename Write>
void WithReal(const CVariantValue& value, ValueStorage storage, Write write) {
    if (storage == ValueStorage::Float)
        write(value.Value.Float);
    else
        write(value.Value.Double);
}

template <typename Output>
void AppendReal(std::string& out, const CVariantValue& value, ValueStorage storage, const Output& output) {
    WithReal(
        value, storage, [&](auto number) { output.Append(out, number); });
}

void AppendList(std::string& out, const CVariantValue& value, TextForm form, const EnclosingList* enclosing) {
    const TextForm entryForm = form == TextForm::WithAngleUnit ? TextForm::UserFacing : form;
    if (!value.EnumValue || (enclosing && enclosing->Holds(value.EnumValue)))
        return;
    const EnclosingList here{value.EnumValue, enclosing};
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
        AppendValue(out, entry, entryForm, &here);
        separator = EntrySeparator;
    }
}

void AppendAngle(std::string& out, const CVariantValue& value, ValueStorage storage, TextForm form) {
    const internal::CAngleOutput& output = internal::CAngleOutput::Instance();
    if (form == TextForm::WithAngleUnit)
        WithReal(value, storage, [&](auto radians) { output.AppendWithUnit(out, radians); });
    else
        AppendReal(out, value, storage, output);
}

void AppendUserFacingNumber(std::string& out, const CVariantValue& value, const TypeRow& row, TextForm form) {
    switch (row.meaning) {
    case ValueMeaning::Angle:
        return AppendAngle(out, value, row.storage, form);
    case ValueMeaning::RailwayStation:
        return WithReal(value, row.storage, [&](auto station) {
            internal::CStationOutput::Instance().AppendRailway(out, station);
        });
    case ValueMeaning::RoadStation:
        return WithReal(value, row.storage,
                        [&](auto station) { internal::CStationOutput::Instance().AppendRoad(out, station); });
    case ValueMeaning::Length:
        return AppendReal(out, value, row.storage, internal::CLengthOutput::Instance());
    case ValueMeaning::Area:
        return AppendReal(out, value, row.storage, internal::CAreaOutput::Instance());
    case ValueMeaning::Volume:
        return AppendReal(out, value, row.storage, internal::CVolumeOutput::Instance());
    case ValueMeaning::Percent:
        return AppendReal(out, value, row.storage, internal::CPercentOutput::Instance());
    case ValueMeaning::Currency:
        return AppendReal(out, value, row.storage, internal::CCurrencyOutput::Instance());
    case ValueMeaning::ManDays:
        return AppendReal(out, value, row.storage, internal::CManDaysOutput::Instance());
    default:
        return AppendReal(out, value, row.storage, internal::CNumberOutput::Instance());
    }
}

void AppendUserFacing(std::string& out, const CVariantValue& value, const TypeRow& row, TextForm form) {
    switch (row.storage) {
    case ValueStorage::None:
        out += "null";
        return;
    case ValueStorage::Int:
    case ValueStorage::UInt: // written as the signed number of the same bits
        return internal::CNumberOutput::Instance().Append(out, value.Value.Int);
    case ValueStorage::Long:
        return internal::CNumberOutput::Instance().Append(out, long{value.Value.Int});
    case ValueStorage::Float:
    case ValueStorage::Double:
        return AppendUserFacingNumber(out, value, row, form);
    case ValueStorage::Bool:
        out += value.Value.Bool ? "true" : "false";
        return;
    case ValueStorage::Group:
        out += value.Value.Dispatch ? value.Value.Dispatch->GetIdent() : value.Text;
        return;
    case ValueStorage::Date:
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

void AppendPlain(std::string& out, const CVariantValue& value, const TypeRow& row) {
    switch (row.storage) {
    case ValueStorage::None:
        out += "nothing";
        return;
    case ValueStorage::Int:
    case ValueStorage::Long:
        return AppendInteger(out, value.Value.Int);
    case ValueStorage::UInt:
        return AppendInteger(out, value.Value.UInt);
    case ValueStorage::Bool:
        out += value.Value.Bool ? '1' : '0';
        return;
    case ValueStorage::Float:
        return internal::AppendStreamText(out, value.Value.Float);
    case ValueStorage::Double:
    case ValueStorage::Date:
        return internal::AppendStreamText(out, value.Value.Double);
    case ValueStorage::Group:
        return AppendPlainGroup(out, value.Value.Dispatch);
    default:
        return;
    }
}

void AppendValue(std::string& out, const CVariantValue& value, TextForm form,
                 const EnclosingList* enclosing) {
    const TypeRow* row = FindTypeRow(value.Type);
    if (!row || row->meaning == ValueMeaning::TextForm)
        return;
    if (row->storage == ValueStorage::Text)
        out += value.Text;
    else if (row->storage == ValueStorage::Color)
        AppendInteger(out, value.Value.UInt);
    else if (row->storage == ValueStorage::List)
        AppendList(out, value, form, enclosing);
    else if (form == TextForm::Plain)
        AppendPlain(out, value, *row);
    else
        AppendUserFacing(out, value, *row, form);
}

} // namespace

std::string CVariantValue::ToText(TextForm form) const {
    std::string text;
    AppendText(text, form);
    return text;
}

void CVariantValue::AppendText(std::string& out, TextForm form) const {
    AppendValue(out, *this, form);
}

} // namespace korvel
