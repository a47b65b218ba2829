#include "korvel/editors/cell_text_reading.h"

#include "korvel/editors/station_text.h"
#include "korvel/output/angle_output.h"
#include "korvel/output/number_output.h"
#include "korvel/output/stream_text.h"
#include "korvel/platform/error.h"
#include "korvel/values/text_table.h"

#include <limits>

namespace korvel::internal {

namespace {

constexpr int OutsideRangeText = 73;

const NumberFormat& FormatOf(const TypeRow& type) {
    if (type.meaning != ValueMeaning::Angle)
        return CNumberOutput::Instance().Format(type.record);
    const bool isFloat = type.storage == ValueStorage::Float;
    return CAngleOutput::Instance().Format(isFloat ? AngleRecord::Float : AngleRecord::Double);
}

// Not-a-number lies outside.
void RequireInRange(double number) {
    if (number >= 0 && number <= RangeEnd)
        return;
    std::string text;
    AppendShortestText(text, number);
    throw Error(text + ": " + Text(OutsideRangeText));
}

template <typename Real>
Real InRadians(Real number, ValueMeaning meaning) {
    return meaning == ValueMeaning::Angle ? CAngleOutput::Instance().ToRadians(number) : number;
}

bool StoreNumber(double number, const TypeRow& type, CVariantValue& value) {
    if (type.meaning == ValueMeaning::Range)
        RequireInRange(number);
    switch (type.storage) {
    case ValueStorage::Float:
        value.Value.Float = InRadians(static_cast<float>(number), type.meaning);
        return true;
    case ValueStorage::Double:
        value.Value.Double = InRadians(number, type.meaning);
        return true;
    default:
        return StoreWhole(number, type, value);
    }
}

} // namespace

EDataTyps WithoutFormula(EDataTyps type) {
    return static_cast<EDataTyps>(type & ~TypeBitButton);
}

bool IsFormula(std::string_view text) {
    return text.starts_with("<VB ") && text.ends_with("/>");
}

CVariantValue WithFormula(CVariantValue value, const std::string& formula) {
    value.Text = formula;
    value.Type = static_cast<EDataTyps>(value.Type | TypeBitButton);
    return value;
}

bool KeepsPayload(EDataTyps type) {
    const EDataTyps plain = WithoutFormula(type);
    return plain == DT_FileName || plain == DT_ColorRGB || (plain & TypeBitTextForm) != 0;
}

WholeNumbers WholeNumbersOf(GridOptions options) {
    return options.Has(EGridOption::WideIntegers) ? WholeNumbers::AsTyped : WholeNumbers::Of32Bits;
}

double ReadCellNumber(const TypeRow& type, const std::string& text, GridOptions options) {
    const char* separator = FormatOf(type).DecimalSep;
    if (options.Has(EGridOption::StationInput))
        if (const auto station = ReadStation(type.meaning, text, separator))
            return *station;
    return EvaluateExpression(separator, text, WholeNumbersOf(options));
}

bool ReadCellText(EDataTyps type, const std::string& text, GridOptions options, CVariantValue& value) {
    const EDataTyps plain = WithoutFormula(type);
    const TypeRow* row = FindTypeRow(plain);
    CVariantValue read;
    if (row && row->IsNumeric()) {
        if (!StoreNumber(ReadCellNumber(*row, text, options), *row, read))
            return false;
    } else if (plain == DT_String || KeepsPayload(plain)) {
        if (KeepsPayload(plain))
            read = value;
        read.Text = text;
    } else {
        return false;
    }
    read.Type = plain;
    value = read;
    return true;
}

bool StoreWhole(double number, const TypeRow& type, CVariantValue& value) {
    constexpr double Lowest = std::numeric_limits<std::int32_t>::min();
    constexpr double Highest = std::numeric_limits<std::int32_t>::max();
    constexpr double HighestUnsigned = std::numeric_limits<std::uint32_t>::max();
    const bool isUnsigned = type.storage == ValueStorage::UInt;
    if (!(number > Lowest - 1 && number < (isUnsigned ? HighestUnsigned : Highest) + 1))
        return false;
    value.Value.UInt = static_cast<std::uint32_t>(static_cast<std::int64_t>(number));
    return true;
}

} // namespace korvel::internal
