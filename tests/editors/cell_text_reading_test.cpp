#include "korvel/editors/cell_edit_text.h"
#include "korvel/editors/cell_text_reading.h"
#include "korvel/platform/error.h"
#include "korvel/values/language.h"
#include "support/german_machine.h"
#include "support/make_value.h"
#include "support/table.h"

#include <cmath>
#include <limits>
#include <numbers>

namespace korvel {
namespace {

using namespace internal;

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

GridOptions With(std::initializer_list<EGridOption> wanted) {
    GridOptions options;
    for (const EGridOption option : wanted)
        options.Set(option, true);
    return options;
}

const GridOptions None;
const GridOptions Exact = With({EGridOption::ExactEditText});
const GridOptions Wide = With({EGridOption::WideIntegers});
const GridOptions Station = With({EGridOption::StationInput});

// The payload of a value as a number; "text:" and the text of what has none.
std::string Payload(const CVariantValue& value) {
    const TypeRow* row = FindTypeRow(value.Type);
    if (!row || !row->IsNumeric())
        return "text:" + value.Text;
    std::ostringstream out;
    out.precision(17);
    switch (row->storage) {
    case ValueStorage::Float:
        out << value.Value.Float;
        break;
    case ValueStorage::Double:
        out << value.Value.Double;
        break;
    case ValueStorage::UInt:
        out << value.Value.UInt;
        break;
    default:
        out << value.Value.Int;
    }
    return out.str();
}

class CellTextTest : public GermanMachine {
protected:
    CellTextTest() { SetLanguageForThisRun("English"); }
    ~CellTextTest() override { SetAngleUnit('r'); }

    // What a text comes to: the payload, "no" for a refusal, "! text" for an exception.
    static std::string Outcome(EDataTyps type, const std::string& text, GridOptions options = None) {
        CVariantValue value = MakeValue(DT_Void, 77.0);
        try {
            if (!ReadCellText(type, text, options, value))
                return "no";
        } catch (const Error& error) {
            return "! " + std::string(error.what());
        }
        return value.Type == type ? Payload(value) : "another type";
    }
};

constexpr EDataTyps Integers[] = {DT_Int, DT_Long, DT_RandomInt};
constexpr EDataTyps Unsigneds[] = {DT_UInt, DT_RandomUInt};
constexpr EDataTyps Floats[] = {DT_Float,        DT_RailwayStationFloat, DT_RoadStationFloat,
                                DT_LengthFloat,  DT_AreaFloat,           DT_VolumeFloat,
                                DT_PercentFloat, DT_CurrencyFloat,       DT_ManDaysFloat};
constexpr EDataTyps Doubles[] = {
    DT_Double,       DT_RailwayStationDouble, DT_RoadStationDouble, DT_LengthDouble,  DT_AreaDouble,
    DT_VolumeDouble, DT_PercentDouble,        DT_CurrencyDouble,    DT_ManDaysDouble, DT_AngleDouble};

TEST_F(CellTextTest, EveryKindOfNumberReadsATextInItsOwnWay) {
    const std::string million = "1" + std::string(1'000'000, ' ') + "+1";
    const std::string beyond = "3000000000.";
    for (const auto& [border, text, integer, unsignedInteger, real] :
         Table<std::string, std::string, std::string, std::string>{
             {"a number", "14", "14", "14", "14"},
             {"arithmetic", "2*(3+4)", "14", "14", "14"},
             {"a comma", "1,5+1", "2", "2", "2.5"},
             {"a point", "1.5+1", "2", "2", "2.5"},
             {"cut off toward zero", "7/-2", "-3", "4294967293", "-3.5"},
             {"both separators", "1.234,5", "! ", "! ", "! "},
             {"empty", "", "! ", "! ", "! "},
             {"blanks", " \t ", "! ", "! ", "! "},
             {"blanks around", " 3\r\n", "3", "3", "3"},
             {"letters", "abc", "! ", "! ", "! "},
             {"a byte outside of the page", "\x81\xE2\xE1", "! ", "! ", "! "},
             {"the form of a formula", "<VB 1/>", "! ", "! ", "! "},
             {"a megabyte", million, "2", "2", "2"},
             {"a number of a megabyte", std::string(1'000'000, '1'), "! ", "! ", "! "},
             {"stops at 32 bits", "3000000000", "2147483647", "2147483647", "2147483647"},
             {"beyond an integer", beyond, "no", "3000000000", "3000000000"},
             {"the highest integer", "2147483647,9", "2147483647", "2147483647", "2147483647.9000001"},
             {"the first too high", "2147483648.", "no", "2147483648", "2147483648"},
             {"the lowest", "-2147483648,9", "-2147483648", "2147483648", "-2147483648.9000001"},
             {"the first too low", "-2147483649.", "no", "no", "-2147483649"},
             {"the highest unsigned", "4294967295,9", "no", "4294967295", "4294967295.9000001"},
             {"the first too high for it", "4294967296.", "no", "no", "4294967296"},
             {"an infinity", "1/0", "no", "no", "inf"},
             {"not-a-number", "0/0", "no", "no", "nan"}}) {
        SCOPED_TRACE(border);
        const auto expect = [&, text = text](auto types, const std::string& outcome) {
            for (const EDataTyps type : types)
                EXPECT_EQ(Outcome(type, text), outcome) << std::hex << type;
        };
        expect(std::span(Integers), integer);
        expect(std::span(Unsigneds), unsignedInteger);
        if (text != "0/0")
            expect(std::span(Doubles), real);
    }
    for (const EDataTyps type : Floats)
        EXPECT_EQ(Outcome(type, "1/10"), "0.10000000149011612") << std::hex << type;
}

} // namespace
} // namespace korvel
