// First byte: the type, the second one: the options and the unit of angles. Rest: the text of a cell. What is
// accepted must read back from the text with which a field shows it.

#include "fuzz_target.h"
#include "korvel/editors/cell_edit_text.h"
#include "korvel/editors/cell_text_reading.h"
#include "korvel/output/angles.h"
#include "korvel/platform/error.h"
#include "korvel/values/language.h"

#include <cmath>

namespace {

using namespace korvel;
using namespace korvel::internal;

constexpr EDataTyps Types[] = {DT_Int,
                               DT_Long,
                               DT_UInt,
                               DT_RandomInt,
                               DT_RandomUInt,
                               DT_Float,
                               DT_Double,
                               DT_AngleFloat,
                               DT_AngleDouble,
                               DT_RangeInt,
                               DT_RangeFloat,
                               DT_RangeDouble,
                               DT_LengthDouble,
                               DT_RailwayStationDouble,
                               DT_RoadStationFloat,
                               DT_String,
                               DT_FileName,
                               DT_TextFormInt,
                               DT_ColorRGB,
                               DT_ColorARGB,
                               DT_Bool,
                               DT_Date,
                               DT_ListString,
                               DT_Group,
                               DT_Void};

constexpr EGridOption Options[] = {EGridOption::ExactEditText, EGridOption::StationInput,
                                   EGridOption::WideIntegers};

GridOptions TakeOptions(std::uint8_t bits) {
    GridOptions options;
    for (const EGridOption option : Options) {
        options.Set(option, (bits & 1U) != 0);
        bits = static_cast<std::uint8_t>(bits >> 1U);
    }
    SetAngleUnit("rgd"[bits % 3U]);
    return options;
}

bool IsAngle(EDataTyps type) {
    return type == DT_AngleFloat || type == DT_AngleDouble;
}

bool IsNotANumber(const CVariantValue& value) {
    const TypeRow* row = FindTypeRow(value.Type);
    return row && row->IsNumeric() && std::isnan(static_cast<double>(value));
}

bool HasItsRange(const CVariantValue& value) {
    const TypeRow* row = FindTypeRow(value.Type);
    const double number = row && row->meaning == ValueMeaning::Range ? static_cast<double>(value) : 0;
    return number >= 0 && number <= RangeEnd;
}

// Nothing for a refusal.
std::optional<CVariantValue> Read(EDataTyps type, const std::string& text, GridOptions options) {
    CVariantValue value;
    try {
        if (ReadCellText(type, text, options, value))
            return value;
    } catch (const Error&) {
    }
    return std::nullopt;
}

void RequireReadsBack(const CVariantValue& value, GridOptions options) {
    const std::string shown = CellEditText(value, options);
    const auto back = Read(value.Type, shown, options);
    const TypeRow* row = FindTypeRow(value.Type);
    const bool isFloating =
        row && (row->storage == ValueStorage::Float || row->storage == ValueStorage::Double);
    if (isFloating && !options.Has(EGridOption::ExactEditText))
        return; // six decimals lose the rest
    fuzz::Require(back.has_value(), "what a field shows is read");
    fuzz::Require(IsAngle(value.Type) || IsNotANumber(value) || *back == value,
                  "what a field shows reads back to the same value");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fuzz::GermanMachine machine;
    SetLanguageForThisRun("English");
    fuzz::Input input(data, size);
    const EDataTyps type = Types[input.Take<std::uint8_t>() % std::size(Types)];
    const GridOptions options = TakeOptions(input.Take<std::uint8_t>());
    const std::string text(input.Rest());
    if (const auto value = Read(type, text, options)) {
        fuzz::Require(value->Type == type && HasItsRange(*value), "a value has the type and its range");
        RequireReadsBack(*value, options);
    }
    try {
        const auto stepped = SteppedCellText(type, text, 1, options);
        const TypeRow* row = FindTypeRow(type);
        fuzz::Require(stepped.has_value() == (row && row->IsNumeric()),
                      "numbers are stepped and nothing else");
    } catch (const Error& error) {
        fuzz::Require(error.what()[0] == '\0', "the failure of a step has no text");
    }
    return 0;
}
