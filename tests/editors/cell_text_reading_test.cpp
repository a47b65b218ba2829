#include "korvel/editors/cell_edit_text.h"
#include "korvel/editors/cell_text_reading.h"
#include "korvel/output/stations.h"
#include "korvel/platform/error.h"
#include "korvel/values/language.h"
#include "support/german_machine.h"
#include "support/make_value.h"
#include "support/table.h"

#include <cmath>
#include <limits>
#include <numbers>
#include <random>
#include <span>
#include <sstream>

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
             {"arithmetic", "2*(3+4)", "14", "14", "14"},
             {"a comma", "1,5+1", "2", "2", "2.5"},
             {"cut off toward zero", "7/-2", "-3", "4294967293", "-3.5"},
             {"both separators", "1.234,5", "! ", "! ", "! "},
             {"empty", "", "! ", "! ", "! "},
             {"blanks around", " 3\r\n", "3", "3", "3"},
             {"letters", "abc", "! ", "! ", "! "},
             {"the form of a formula", "<VB 1/>", "! ", "! ", "! "},
             {"a megabyte", million, "2", "2", "2"},
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

TEST_F(CellTextTest, ARangeTakesZeroToAHundredAndTellsWhatItRefuses) {
    const auto outside = [](const std::string& number) {
        return "! " + number + ": Value is outside the ranges of 0-100!";
    };
    for (const auto& [border, text, integer, real] : Table<const char*, std::string, std::string>{
             {"zero", "0", "0", "0"},
             {"the end", "100", "100", "100"},
             {"an integer is judged before it is cut off", "100,0001", outside("100.0001"),
              outside("100.0001")},
             {"below", "-1", outside("-1"), outside("-1")},
             {"not-a-number", "0/0", outside("nan"), outside("nan")}}) {
        EXPECT_EQ(Outcome(DT_RangeInt, text), integer) << border;
        EXPECT_EQ(Outcome(DT_RangeDouble, text), real) << border;
        EXPECT_EQ(Outcome(DT_RangeFloat, text), real) << border;
    }
    EXPECT_EQ(Outcome(DT_PercentDouble, "150"), "150") << "the measure has no range";
}

TEST_F(CellTextTest, EachTypeIsReadByItsOwnFormat) {
    auto format = GermanFormat(2);
    format.SetDecimalSep(";");
    using Setter = void (*)(const _numberfmtA&);
    for (const auto& [border, set, type, other] : Table<Setter, EDataTyps, EDataTyps>{
             {"int", SetFormatInt, DT_RandomUInt, DT_Long},
             {"float", SetFormatFloat, DT_LengthFloat, DT_LengthDouble},
             {"double", SetFormatDouble, DT_RangeDouble, DT_RangeFloat},
             {"angle float", SetAngleFormatFloat, DT_AngleFloat, DT_AngleDouble}}) {
        ResetFormatStates();
        set(format);
        EXPECT_EQ(Outcome(type, "1;5+1,5"), "! ") << border;
        EXPECT_EQ(Outcome(type, "1;5*0"), "0") << border;
        EXPECT_EQ(Outcome(other, "1,5*0"), "0") << border;
    }
    EXPECT_EQ(Outcome(DT_RailwayStationDouble, "12,3+45,6", Station), "12345.6");
    SetFormatDouble(format);
    EXPECT_EQ(Outcome(DT_RailwayStationDouble, "12,3+45;6", Station), "12345.6")
        << "the shown sign and its own";
}

TEST_F(CellTextTest, AnAngleIsReadAndShownInTheUsersUnit) {
    for (const auto& [border, unit, half] :
         Table<char, std::string>{{"degrees", 'd', "180"}, {"gon", 'g', "200"}, {"radians", 'r', "3,5"}}) {
        SetAngleUnit(unit);
        const double radians = unit == 'r' ? 3.5 : std::numbers::pi;
        CVariantValue value, single;
        ASSERT_TRUE(ReadCellText(DT_AngleDouble, half, None, value)) << border;
        ASSERT_TRUE(ReadCellText(DT_AngleFloat, half, None, single)) << border;
        EXPECT_EQ(value.Value.Double, radians) << border;
        EXPECT_EQ(single.Value.Float, static_cast<float>(radians)) << border;
        const std::string shown = unit == 'r' ? "3.5" : half;
        EXPECT_EQ(CellEditText(value, Exact), shown) << border;
        EXPECT_EQ(CellEditText(single, Exact), shown) << border;
        EXPECT_EQ(CellEditText(value, None), unit == 'r' ? "3.500000" : half + ".000000") << border;
    }
}

TEST_F(CellTextTest, TextsKeepTheRestOfAValueAndOtherTypesAreRefused) {
    for (const auto& [border, type, outcome, payload] :
         Table<EDataTyps, bool, double>{{"a text", DT_String, true, 0},
                                        {"a file keeps its chooser", DT_FileName, true, 2.5},
                                        {"a text form keeps its number", DT_TextFormDouble, true, 2.5},
                                        {"a color keeps its word", DT_ColorRGB, true, 2.5},
                                        {"a flag", DT_Bool, false, 2.5},
                                        {"a date", DT_Date, false, 2.5},
                                        {"nothing", DT_Void, false, 2.5}}) {
        CVariantValue value = MakeValue(type, 2.5);
        value.Text = "before";
        EXPECT_EQ(ReadCellText(type, "a/b", None, value), outcome) << border;
        EXPECT_EQ(value.Text, outcome ? "a/b" : "before") << border;
        EXPECT_EQ(value.Value.Double, payload) << border;
    }
    CVariantValue value;
    EXPECT_TRUE(ReadCellText(static_cast<EDataTyps>(DT_LengthDouble | TypeBitButton), "7", None, value));
    EXPECT_EQ(value.Type, DT_LengthDouble) << "a number drops the bit of a formula";
    for (const auto& [border, text, isFormula] :
         Table<const char*, bool>{{"a formula", "<VB x/>", true},
                                  {"not closed", "<VB x", false},
                                  {"without its blank", "<VBx/>", false},
                                  {"text around it", " <VB x/>", false}})
        EXPECT_EQ(IsFormula(text), isFormula) << border;
}

TEST_F(CellTextTest, AStationIsNoSumWhereTheOptionSaysSo) {
    for (const auto& [border, type, text, station, sum] :
         Table<EDataTyps, const char*, std::string, std::string>{
             {"road", DT_RoadStationDouble, "12+345,60", "12345.6", "357.60000000000002"},
             {"road, the digits are the number", DT_RoadStationDouble, "8+934,531", "8934.5310000000009",
              "942.53099999999995"},
             {"railway", DT_RailwayStationDouble, "12,3+45,60", "12345.6", "57.900000000000006"},
             {"metres count up", DT_RoadStationDouble, "-2+500", "-1500", "498"},
             {"before the zero", DT_RailwayStationDouble, "-0,1+99,5", "-0.5", "99.400000000000006"},
             {"metres as wide as they grow", DT_RoadStationFloat, "0+1000,0", "1000", "1000"},
             {"too few metres", DT_RoadStationDouble, "12+45", "57", "57"},
             {"the form of the other kind", DT_RailwayStationDouble, "12+345,6", "357.60000000000002",
              "357.60000000000002"},
             {"no kilometre", DT_RoadStationDouble, "+500", "500", "500"},
             {"no station", DT_LengthDouble, "12+345", "357", "357"}}) {
        EXPECT_EQ(Outcome(type, text, Station), station) << border;
        EXPECT_EQ(Outcome(type, text), sum) << border;
    }
}

TEST_F(CellTextTest, AShownStationIsReadAsItself) {
    for (double metres = -2500; metres < 130000; metres += 1234.567) {
        const auto read = [](EDataTyps type, const std::string& text) {
            CVariantValue value;
            return ReadCellText(type, text, Station, value) ? value.Value.Double : NotANumber;
        };
        EXPECT_NEAR(read(DT_RoadStationDouble, RoadStationToString(metres)), metres, 0.0051);
        EXPECT_NEAR(read(DT_RailwayStationDouble, RailwayStationToString(metres)), metres, 0.0051);
    }
}

TEST_F(CellTextTest, WholeNumbersBeyond32BitsAreReadWhereTheOptionSaysSo) {
    for (const auto& [border, type, text, outcome] : Table<EDataTyps, const char*, std::string>{
             {"a length", DT_LengthDouble, "3000000000+1", "3000000001"},
             {"unsigned", DT_UInt, "3000000000", "3000000000"},
             {"an integer refuses it", DT_Int, "3000000000", "no"},
             {"no negative zero", DT_Double, "1/-0", "inf"}})
        EXPECT_EQ(Outcome(type, text, Wide), outcome) << border;
}

TEST_F(CellTextTest, AFieldOpensWithSixDecimalsOrWithWhatReadsBack) {
    const float tenth = 0.1F;
    for (const auto& [border, value, plain, exact, wide] :
         Table<CVariantValue, std::string, std::string, std::string>{
             {"unsigned bits", MakeValue(DT_UInt, 4294967295U), "-1", "-1", "-1"},
             {"a float", MakeValue(DT_LengthFloat, tenth), "0.100000", "0.1", "0.1"},
             {"a double", MakeValue(DT_Double, 0.1F + 0.0), "0.100000", "0.10000000149011612",
              "0.10000000149011612"},
             {"beyond 32 bits", MakeValue(DT_Double, 4294967296.0), "4294967296.000000", "4294967296.",
              "4294967296"},
             {"a negative zero", MakeValue(DT_Double, -0.0), "-0.000000", "-0.", "-0."},
             {"an infinity", MakeValue(DT_Double, -Infinity), "-inf", "-1/0", "-1/0"},
             {"not-a-number", MakeValue(DT_Double, NotANumber), "nan", "0/0", "0/0"},
             {"a formula", WithFormula(MakeValue(DT_Double, 2.0), "<VB x/>"), "<VB x/>", "<VB x/>",
              "<VB x/>"}}) {
        EXPECT_EQ(CellEditText(value, None), plain) << border;
        EXPECT_EQ(CellEditText(value, Exact), exact) << border;
        EXPECT_EQ(CellEditText(value, With({EGridOption::ExactEditText, EGridOption::WideIntegers})), wide)
            << border;
    }
}

// Angles that were typed in the unit in which they are shown; others may have no text.
TEST_F(CellTextTest, AnExactTextReadsBackToTheSameBitsInEveryUnit) {
    std::mt19937_64 random(7);
    for (int round = 0; round < 300; ++round) {
        const int exponent = static_cast<int>(random() % 90) - 90;
        const double number = std::ldexp(static_cast<double>(random() >> 11), exponent);
        SetAngleUnit("drg"[round % 3]);
        for (const EDataTyps type : {DT_Double, DT_Float, DT_AngleDouble, DT_AngleFloat}) {
            const bool isAngle = type == DT_AngleDouble || type == DT_AngleFloat;
            CVariantValue value = MakeValue(type, 0.0), back;
            if (FindTypeRow(type)->storage == ValueStorage::Float)
                value.Value.Float =
                    isAngle ? AngleToRad(static_cast<float>(number)) : static_cast<float>(number);
            else
                value.Value.Double = isAngle ? AngleToRad(number) : number;
            ASSERT_TRUE(ReadCellText(type, CellEditText(value, Exact), Exact, back));
            ASSERT_EQ(back, value) << CellEditText(value, Exact);
        }
    }
}

TEST_F(CellTextTest, AStepStaysWithinTheTypeAndItsForm) {
    for (const auto& [border, type, text, delta, plain, exact] :
         Table<EDataTyps, const char*, double, std::string, std::string>{
             {"an integer", DT_Int, "7/2", 1, "4", "4"},
             {"the highest", DT_Int, "2147483647", 1, "2147483647", "2147483647"},
             {"the highest unsigned", DT_UInt, "4294967295.", 1, "-1", "-1"},
             {"unsigned goes on", DT_UInt, "2147483647", 1, "-2147483648", "-2147483648"},
             {"a range ends", DT_RangeFloat, "99,5", 1, "100.000000", "100"},
             {"a measure", DT_LengthDouble, "0.1+0.1", 0.1, "0.300000", "0.30000000000000004"},
             {"an angle in its unit", DT_AngleDouble, "89", 1, "90.000000", "90"}}) {
        SetAngleUnit('d');
        EXPECT_EQ(SteppedCellText(type, text, delta, None), plain) << border;
        EXPECT_EQ(SteppedCellText(type, text, delta, Exact), exact) << border;
    }
    EXPECT_EQ(SteppedCellText(DT_String, "1", 1, None), std::nullopt);
    EXPECT_THROW(SteppedCellText(DT_Int, "0/0", 1, None), Error);
    EXPECT_THROW(SteppedCellText(DT_RangeInt, "abc", 1, None), Error);
}

} // namespace
} // namespace korvel
