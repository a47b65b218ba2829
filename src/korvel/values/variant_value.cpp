#include "korvel/values/variant_value.h"

#include "korvel/output/angles.h"
#include "korvel/output/type_table.h"
#include "korvel/values/invalid_operation.h"

#include <cstdint>
#include <limits>
#include <stdexcept>

namespace korvel {

namespace {

using internal::FindTypeRow;
using internal::TypeRow;
using internal::ValueMeaning;
using internal::ValueStorage;

constexpr double TwoToThe63 = 9223372036854775808.0;

constexpr int RangeEnd = 100; // ranges begin at 0

// The number in double precision, which holds each of the stored kinds exactly.
double ReadNumber(const CVariantValue& value, const char* operation) {
    const TypeRow* row = FindTypeRow(value.Type);
    if (!row || !row->IsNumeric())
        throw invalid_operation(operation);
    switch (row->storage) {
    case ValueStorage::UInt:
        return value.Value.UInt;
    case ValueStorage::Float:
        return row->meaning == ValueMeaning::Angle ? RadToAngle(value.Value.Float) : value.Value.Float;
    case ValueStorage::Double:
        return row->meaning == ValueMeaning::Angle ? RadToAngle(value.Value.Double) : value.Value.Double;
    default:
        return value.Value.Int;
    }
}

std::int32_t ToInt32(double number) {
    constexpr double Lowest = std::numeric_limits<std::int32_t>::min();
    constexpr double Highest = std::numeric_limits<std::int32_t>::max();
    const bool fits = number > Lowest - 1 && number < Highest + 1; // false for not-a-number
    return fits ? static_cast<std::int32_t>(number) : std::numeric_limits<std::int32_t>::min();
}

std::uint32_t ToUInt32(double number) {
    const bool fits = number >= -TwoToThe63 && number < TwoToThe63;
    return fits ? static_cast<std::uint32_t>(static_cast<std::int64_t>(number)) : 0;
}

bool IsUnsigned(EDataTyps type) {
    const TypeRow* row = FindTypeRow(type);
    return row && row->storage == ValueStorage::UInt;
}

// Not std::clamp: not-a-number passes through.
template <typename Number>
Number WithinRange(Number number) {
    return number < Number{0} ? Number{0} : number > Number{RangeEnd} ? Number{RangeEnd} : number;
}

template <typename Number>
Number InMeaning(Number number, ValueMeaning meaning) {
    switch (meaning) {
    case ValueMeaning::Range:
        return WithinRange(number);
    case ValueMeaning::Angle:
        return AngleToRad(number);
    default:
        return number;
    }
}

} // namespace

CVariantValue::operator int() const {
    if (IsUnsigned(Type))
        return static_cast<std::int32_t>(Value.UInt);
    return ToInt32(ReadNumber(*this, "CVariantValue::operator int"));
}

CVariantValue::operator long() const {
    if (IsUnsigned(Type))
        return static_cast<std::int32_t>(Value.UInt);
    return ToInt32(ReadNumber(*this, "CVariantValue::operator long"));
}

CVariantValue::operator unsigned int() const {
    return ToUInt32(ReadNumber(*this, "CVariantValue::operator double"));
}

CVariantValue::operator float() const {
    return static_cast<float>(ReadNumber(*this, "CVariantValue::operator float"));
}

CVariantValue::operator double() const {
    return ReadNumber(*this, "CVariantValue::operator double");
}

CVariantValue CVariantValue::ChangeToType(EDataTyps target) const {
    const TypeRow* row = FindTypeRow(target);
    if (!row || !row->IsNumeric())
        throw std::invalid_argument("CVariantValue::ChangeToType");
    CVariantValue result;
    switch (row->storage) {
    case ValueStorage::Float:
        result.Value.Float = InMeaning(static_cast<float>(*this), row->meaning);
        break;
    case ValueStorage::Double:
        result.Value.Double = InMeaning(static_cast<double>(*this), row->meaning);
        break;
    case ValueStorage::UInt:
        result.Value.UInt = static_cast<unsigned int>(*this);
        break;
    case ValueStorage::Long:
        result.Value.Int = static_cast<std::int32_t>(static_cast<long>(*this));
        break;
    default:
        result.Value.Int = static_cast<int>(*this);
        if (row->meaning == ValueMeaning::Range)
            result.Value.Int = WithinRange(result.Value.Int);
    }
    result.Type = target;
    return result;
}

bool CVariantValue::operator==(const CVariantValue& other) const {
    if (Type != other.Type || EnumValue != other.EnumValue || EnumContext != other.EnumContext)
        return false;
    const TypeRow* row = FindTypeRow(Type);
    if (!row || row->meaning == ValueMeaning::TextForm)
        return true;
    switch (row->storage) {
    case ValueStorage::Int:
    case ValueStorage::Long:
    case ValueStorage::UInt:
    case ValueStorage::Color:
        return Value.UInt == other.Value.UInt;
    case ValueStorage::Bool:
        return Value.Bool == other.Value.Bool;
    case ValueStorage::Float:
        return Value.Float == other.Value.Float;
    case ValueStorage::Double:
        return Value.Double == other.Value.Double;
    case ValueStorage::Text:
    case ValueStorage::List:
        return Text == other.Text;
    case ValueStorage::Date:
        return Text == other.Text && Value.Double == other.Value.Double;
    default:
        return true;
    }
}

} // namespace korvel
