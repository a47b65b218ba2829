#include "korvel/output/measure_output.h"
#include "korvel/output/measures.h"
#include "korvel/output/numbers.h"
#include "support/german_machine.h"

#include <cmath>
#include <limits>

namespace korvel {
namespace {

using namespace internal;

using Numbers = GermanMachine;

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

TEST_F(Numbers, DoublesAsText) {
    const std::tuple<const char*, std::uint32_t, double, const char*, const char*> rows[] = {
        {"grouped", 2, 1234567.891, "1.234.567,89", "1.234.567,89"},
        {"below the half on 15 places", 2, 9.995, "9,99", "9,99"},
        {"smaller than the last place", 2, 0.00001, "0,00", "1e-05"},
        {"zero", 2, 0.0, "0,00", "0"},
        {"the last place itself", 2, 0.01, "0,01", "0,01"},
        {"below the last place as it is divided", 6, 1e-06, "0,000001", "1e-06"},
        {"negative and small", 2, -0.001, "0,00", "-0.001"},
        {"negative not-a-number has no sign", 2, -NotANumber, "nan", "nan"},
        {"infinite", 2, -Infinity, "-inf", "-inf"},
        {"text over the limit", 2000, 1.5, "1.5", "1.5"},
        {"more digits than any number has", 4294967295u, 2.0, "2", "2"},
    };
    for (const auto& [border, digits, value, text, textEx] : rows) {
        SetFormatDouble(GermanFormat(digits));
        EXPECT_EQ(NumberToString(value), text) << border;
        EXPECT_EQ(NumberToStringEx(value), textEx) << border;
    }
}

TEST_F(Numbers, FloatsAreRoundedOnEightPlaces) {
    SetFormatFloat(GermanFormat(9));
    EXPECT_EQ(NumberToString(0.1f), "0,100000000"); // as a double it would show 0,100000001
    EXPECT_EQ(NumberToStringEx(1e-10f), "1e-10");
    EXPECT_EQ(NumberToString(std::numeric_limits<float>::infinity()), "inf");
}

TEST_F(Numbers, IntegersAsTextOrAFailureThatNamesTheirType) {
    EXPECT_EQ(NumberToString(std::numeric_limits<int>::min()), "-2.147.483.648");
    EXPECT_EQ(NumberToString(4294967295u), "-1"); // kept
    EXPECT_EQ(NumberToString(std::numeric_limits<long>::min()), "-9.223.372.036.854.775.808");
    NumberFormat format = GermanFormat(0);
    format.NegativeOrder = 5;
    SetFormatInt(format);
    SetFormatLong(format);
    EXPECT_EQ(NumberToString(7), "7"); // the order of a sign that is not there
    using testing::ThrowsMessage;
    using Invalid = std::invalid_argument;
    EXPECT_THAT([] { NumberToString(-7); }, ThrowsMessage<Invalid>("CNumberOutput::ConvertNumber( int )"));
    EXPECT_THAT([] { NumberToString(-7L); }, ThrowsMessage<Invalid>("CNumberOutput::ConvertNumber( long )"));
}

TEST_F(Numbers, EachTypeHasItsFormat) {
    SetFormatInt(GermanFormat(1));
    SetFormatLong(GermanFormat(3));
    SetFormatFloat(GermanFormat(4));
    SetFormatDouble(GermanFormat(5));
    EXPECT_EQ(NumberToString(1) + " " + NumberToString(1u) + " " + NumberToString(1L), "1,0 1,0 1,000");
    EXPECT_EQ(NumberToString(1.0f) + " " + NumberToString(1.0), "1,0000 1,00000");
    CNumberOutput& numbers = CNumberOutput::Instance();
    EXPECT_EQ(numbers.FormatFor(DT_RandomUInt).NumDigits, 1u);
    EXPECT_EQ(numbers.FormatFor(DT_Long).NumDigits, 3u);
    EXPECT_EQ(numbers.FormatFor(DT_AngleFloat).NumDigits, 5u);
    for (unsigned meaning = DT_RangeInt & ~DT_Int; meaning <= (DT_ManDaysFloat & ~DT_Float); meaning <<= 1) {
        EXPECT_EQ(numbers.FormatFor(static_cast<EDataTyps>(meaning | DT_Float)).NumDigits, 4u) << meaning;
        EXPECT_EQ(numbers.FormatFor(static_cast<EDataTyps>(meaning | DT_Double)).NumDigits, 5u) << meaning;
    }
    std::uint32_t digits = 5;
    const std::pair<EDataTyps, NumberRecord> stored[] = {{DT_UInt, NumberRecord::Integer},
                                                         {DT_Long, NumberRecord::Long},
                                                         {DT_Float, NumberRecord::Float},
                                                         {DT_LengthFloat, NumberRecord::Double}};
    for (const auto& [type, record] : stored) { // only few types store elsewhere than in Double
        numbers.SetFormatFor(type, GermanFormat(++digits));
        EXPECT_EQ(numbers.Format(record).NumDigits, digits) << type;
    }
}

TEST_F(Numbers, FormatsThatEqualTheSettingsFollowThem) {
    CountingSink sink(FormatService::Number);
    SetFormatDouble(GetFormatDouble());
    EXPECT_EQ(sink.count, 0);
    SetFormatDouble(GermanFormat(4));
    SetFormatDouble(GermanFormat(4));
    EXPECT_EQ(sink.count, 1);
    SetFormatFloat(GermanFormat(4));
    SetFormatFloat(SystemNumberFormat(SystemFormat::Float));
    EXPECT_EQ(sink.count, 3);
    SetRegional("iDigits", "3");
    EXPECT_EQ(sink.count, 6); // both integer records and Float
    EXPECT_EQ(NumberToString(1.0f), "1,000");
    EXPECT_EQ(NumberToString(1.0), "1,0000");
    EXPECT_EQ(NumberToString(1), "1"); // never decimals
    SetRegional("iDigits", "4");
    SetFormatDouble(GetFormatDouble());
    EXPECT_EQ(sink.count, 10); // the same text, but it follows from now on
}

TEST_F(Numbers, SeparatorsBelongToTheirRecordAndHaveThreeBytesAtMost) {
    NumberFormat copy = CNumberOutput::Instance().Format(NumberRecord::Double);
    ASSERT_TRUE(copy.SetDecimalSep(":::"));
    SetFormatFloat(copy);
    EXPECT_EQ(NumberToString(1.5f), "1:::50");
    EXPECT_EQ(NumberToString(1.5), "1,50");
    _numberfmtA format = GetFormatDouble();
    format.NumDigits = 7;
    for (const char* refused : {"four", static_cast<const char*>(nullptr)}) {
        format.ThousandSep = refused;
        EXPECT_THROW(SetFormatDouble(format), std::invalid_argument);
    }
    SetRegional("sDecimal", "long");
    SetRegional("sThousand", "long");
    SetRegional("sGrouping", "3;2;0"); // of which the first group alone counts
    EXPECT_EQ(NumberToString(123456789.5), "123.456.789,50");
}

TEST_F(Numbers, MeasuresFollowThemAndManDaysTheirOwnRounding) {
    EXPECT_EQ(LengthToString(NotANumber), "nan m");
    EXPECT_EQ(ManDaysToString(-Infinity), "-inf MT");
    EXPECT_EQ(ManDaysToString(std::numeric_limits<double>::max()).size(), 309u + 102u + 6u);
    SetRegional("iDigits", "8");
    EXPECT_EQ(LengthToString(0.12345678), "0,12345678 m");
    EXPECT_EQ(ManDaysToString(0.12345678), "0,12345700 MT"); // of six places
    EXPECT_EQ(ManDaysToString(0.5f), "0,50000000 MT");

    const CountingSink manDays(FormatService::ManDays);
    CountingSink sink(FormatService::Number);
    CLengthOutput::Instance().RemoveSink(&sink);
    SetFormatDouble(GermanFormat(3));
    EXPECT_EQ(sink.count, 0);
    CLengthOutput::Instance().AddSink(&sink);
    SetFormatDouble(GermanFormat(4));
    EXPECT_EQ(sink.count, 1);
    EXPECT_EQ(manDays.count, 0);
    SetRegional("iDigits", "3");
    EXPECT_EQ(manDays.count, 2);
}

} // namespace
} // namespace korvel
