#include "german_machine.h"
#include "output/system_change.h"
#include "output/type_table.h"

#include <cmath>
#include <limits>

namespace korvel {
namespace {

using Numbers = GermanMachine;

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

TEST_F(Numbers, DoublesAsText) {
    struct Row {
        const char* border;
        std::uint32_t digits;
        double value;
        const char* text;
        const char* textEx;
    };
    const Row rows[] = {
        {"grouped", 2, 1234567.891, "1.234.567,89", "1.234.567,89"},
        {"below the half on 15 places", 2, 9.995, "9,99", "9,99"},
        {"smaller than the last place", 2, 0.00001, "0,00", "1e-05"},
        {"zero", 2, 0.0, "0,00", "0"},
        {"the last place itself", 2, 0.01, "0,01", "0,01"},
        {"negative and small", 2, -0.001, "0,00", "-0.001"},
        {"no decimals, below one", 0, 0.5, "1", "0.5"},
        {"not a number", 2, NotANumber, "nan", "nan"},
        {"negative not-a-number has no sign", 2, -NotANumber, "nan", "nan"},
        {"infinite", 2, -Infinity, "-inf", "-inf"},
        {"text over the limit", 2000, 1.5, "1.5", "1.5"},
        {"more digits than any number has", 4294967295u, 2.0, "2", "2"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.border);
        SetFormatDouble(GermanFormat(row.digits));
        EXPECT_EQ(NumberToString(row.value), row.text);
        EXPECT_EQ(NumberToStringEx(row.value), row.textEx);
    }
}

TEST_F(Numbers, FloatsAreRoundedOnEightPlaces) {
    SetFormatFloat(GermanFormat(9));
    EXPECT_EQ(NumberToString(0.1f), "0,100000000"); // as a double it would show 0,100000001
    EXPECT_EQ(NumberToStringEx(1e-10f), "1e-10");
    EXPECT_EQ(NumberToString(std::numeric_limits<float>::infinity()), "inf");
}

TEST_F(Numbers, IntegersAsText) {
    EXPECT_EQ(NumberToString(1234567), "1.234.567");
    EXPECT_EQ(NumberToString(std::numeric_limits<int>::min()), "-2.147.483.648");
    EXPECT_EQ(NumberToString(4294967295u), "-1"); // kept
    EXPECT_EQ(NumberToString(std::numeric_limits<long>::min()), "-9.223.372.036.854.775.808");
}

TEST_F(Numbers, IntegersFailWhereTheFormatCannotWriteThem) {
    CNumberFormat format = GermanFormat(0);
    format.NegativeOrder = 5;
    SetFormatInt(format);
    SetFormatLong(format);
    EXPECT_EQ(NumberToString(7), "7"); // the order of a sign that is not there
    const auto messageOf = [](auto value) -> std::string {
        try {
            return NumberToString(value);
        } catch (const std::invalid_argument& error) {
            return error.what();
        }
    };
    EXPECT_EQ(messageOf(-7), "CNumberOutput::ConvertNumber( int )");
    EXPECT_EQ(messageOf(-7L), "CNumberOutput::ConvertNumber( long )");
}

TEST_F(Numbers, EachTypeHasItsFormat) {
    SetFormatInt(GermanFormat(1));
    SetFormatLong(GermanFormat(3));
    SetFormatFloat(GermanFormat(4));
    SetFormatDouble(GermanFormat(5));
    EXPECT_EQ(NumberToString(1), "1,0");
    EXPECT_EQ(NumberToString(1u), "1,0");
    EXPECT_EQ(NumberToString(1L), "1,000");
    EXPECT_EQ(NumberToString(1.0f), "1,0000");
    EXPECT_EQ(NumberToString(1.0), "1,00000");

    const CNumberOutput& numbers = CNumberOutput::Instance();
    EXPECT_EQ(numbers.FormatFor(DT_RandomUInt).NumDigits, 1u);
    EXPECT_EQ(numbers.FormatFor(DT_Long).NumDigits, 3u);
    EXPECT_EQ(numbers.FormatFor(DT_ManDaysFloat).NumDigits, 4u);
    EXPECT_EQ(numbers.FormatFor(DT_AngleFloat).NumDigits, 5u);
    EXPECT_EQ(numbers.FormatFor(static_cast<EDataTyps>(DT_Int | TypeBitButton)).NumDigits, 5u);
}

TEST_F(Numbers, StoringForATypeKnowsFourTypesOnly) {
    struct Row {
        EDataTyps type;
        ENumberRecord record;
    };
    const Row rows[] = {
        {DT_Int, ENumberRecord::Integer},        {DT_UInt, ENumberRecord::Integer},
        {DT_Long, ENumberRecord::Long},          {DT_Float, ENumberRecord::Float},
        {DT_Double, ENumberRecord::Double},      {DT_RangeInt, ENumberRecord::Double},
        {DT_LengthFloat, ENumberRecord::Double},
    };
    CNumberOutput& numbers = CNumberOutput::Instance();
    std::uint32_t digits = 3;
    for (const Row& row : rows) {
        numbers.SetFormatFor(row.type, GermanFormat(++digits));
        EXPECT_EQ(numbers.Format(row.record).NumDigits, digits) << row.type;
    }
}

TEST_F(Numbers, AnEqualFormatTellsNobody) {
    CountingSink sink(EFormatService::Number);
    SetFormatDouble(GetFormatDouble());
    EXPECT_EQ(sink.count, 0);
    SetFormatDouble(GermanFormat(4));
    SetFormatDouble(GermanFormat(4));
    EXPECT_EQ(sink.count, 1);
    SetFormatFloat(GermanFormat(4));
    EXPECT_EQ(sink.count, 2);
}

TEST_F(Numbers, FormatsThatEqualTheSettingsFollowThem) {
    SetFormatDouble(GermanFormat(4));
    SetFormatFloat(GermanFormat(4));
    SetFormatFloat(SystemNumberFormat(ESystemFormat::Float));
    CountingSink sink(EFormatService::Number);
    SetRegional("iDigits", "3");
    EXPECT_EQ(sink.count, 3); // both integer records and Float
    EXPECT_EQ(NumberToString(1.0f), "1,000");
    EXPECT_EQ(NumberToString(1.0), "1,0000");
    EXPECT_EQ(NumberToString(1), "1"); // never decimals
}

TEST_F(Numbers, TheFirstGroupAloneCounts) {
    SetRegional("sGrouping", "3;2;0");
    EXPECT_EQ(NumberToString(123456789), "123.456.789");
    SetRegional("sGrouping", "0;0");
    EXPECT_EQ(NumberToString(123456789), "123456789");
}

TEST_F(Numbers, SeparatorsBelongToTheirRecord) {
    SetFormatDouble(GermanFormat(3));
    CNumberFormat copy = CNumberOutput::Instance().Format(ENumberRecord::Double);
    ASSERT_TRUE(copy.SetDecimalSep("::"));
    SetFormatFloat(copy);
    EXPECT_EQ(NumberToString(1.0f), "1::000");
    EXPECT_EQ(NumberToString(1.0), "1,000");
    EXPECT_EQ(SystemNumberFormat(ESystemFormat::Float).DecimalSep, std::string(","));
}

TEST_F(Numbers, LongSeparatorsAreRefused) {
    _numberfmtA format = GetFormatDouble();
    format.NumDigits = 7;
    format.ThousandSep = "four";
    EXPECT_THROW(SetFormatDouble(format), std::invalid_argument);
    format.ThousandSep = nullptr;
    EXPECT_THROW(SetFormatDouble(format), std::invalid_argument);
    EXPECT_EQ(GetFormatDouble().NumDigits, 2u);
    SetRegional("sDecimal", "long");
    EXPECT_EQ(NumberToString(1.5), "1,50");
}

TEST(TypeTable, StorageAgreesWithTheBitsOfTheType) {
    int types = 0;
    for (unsigned bit = 0; bit < 32; ++bit) {
        for (const unsigned storage : {0x1u, 0x2u, 0x4u, 0x8u, 0x20u, 0x40u, 0x100u}) {
            const STypeRow* row = FindTypeRow(static_cast<EDataTyps>(1u << bit | storage));
            if (!row || row->Meaning == EMeaning::List || row->Meaning == EMeaning::Date)
                continue;
            ++types;
            EXPECT_EQ(row->Storage == EStorage::Float, storage == 0x4 || 1u << bit == 0x4) << row->Type;
            EXPECT_EQ(row->Storage == EStorage::Double, storage == 0x8 || 1u << bit == 0x8) << row->Type;
        }
    }
    EXPECT_EQ(types, 35); // all but void, bool, group, date and the five lists
}

} // namespace
} // namespace korvel
