#include "../output/german_machine.h"
#include "make_value.h"
#include "values/invalid_operation.h"

#include <cmath>
#include <limits>
#include <numbers>

namespace korvel {
namespace {

using Values = GermanMachine;
using std::numbers::pi;

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr int Lowest = std::numeric_limits<int>::min();

const EDataTyps DoubleTypes[] = {
    DT_Double,       DT_RangeDouble,  DT_RailwayStationDouble, DT_RoadStationDouble, DT_AreaDouble,
    DT_LengthDouble, DT_VolumeDouble, DT_PercentDouble,        DT_CurrencyDouble,    DT_ManDaysDouble};

TEST_F(Values, NumbersThatFitAndDoNot) {
    struct Row {
        const char* border;
        CVariantValue value;
        int asInt;
        unsigned asUnsigned;
        double asDouble;
    };
    const Row rows[] = {
        {"toward zero", MakeValue(DT_Double, -1.9), -1, 4294967295u, -1.9},
        {"highest int", MakeValue(DT_Double, 2147483647.9), 2147483647, 2147483647u, 2147483647.9},
        {"above int", MakeValue(DT_Double, 2147483648.0), Lowest, 2147483648u, 2147483648.0},
        {"lowest int", MakeValue(DT_Double, -2147483648.9), Lowest, 2147483648u, -2147483648.9},
        {"low 32 bits", MakeValue(DT_Double, 4294967296.0 * 5 + 7), Lowest, 7u, 4294967296.0 * 5 + 7},
        {"highest 64 bits", MakeValue(DT_Double, 9223372036854774784.0), Lowest, 4294966272u,
         9223372036854774784.0},
        {"above 64 bits", MakeValue(DT_Double, 9223372036854775808.0), Lowest, 0u, 9223372036854775808.0},
        {"infinite", MakeValue(DT_Float, -std::numeric_limits<float>::infinity()), Lowest, 0u, -Infinity},
        {"signed as unsigned", MakeValue(DT_Long, -2), -2, 4294967294u, -2.0},
        {"unsigned as signed", MakeValue(DT_RandomUInt, 4294967295u), -1, 4294967295u, 4294967295.0},
        {"float of a family", MakeValue(DT_VolumeFloat, 0.1f), 0, 0u, 0.1f},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.border);
        EXPECT_EQ(int(row.value), row.asInt);
        EXPECT_EQ(long(row.value), row.asInt);
        EXPECT_EQ(unsigned(row.value), row.asUnsigned);
        EXPECT_EQ(double(row.value), row.asDouble);
        EXPECT_EQ(float(row.value), static_cast<float>(row.asDouble));
    }
    const CVariantValue notANumber = MakeValue(DT_Double, NotANumber);
    EXPECT_EQ(int(notANumber), Lowest);
    EXPECT_EQ(unsigned(notANumber), 0u);
    EXPECT_TRUE(std::isnan(double(notANumber)));
}

TEST_F(Values, AnglesReadInTheUsersUnit) {
    const CVariantValue angle = MakeValue(DT_AngleDouble, pi);
    EXPECT_EQ(int(angle), 3);
    SetAngleUnit('g');
    EXPECT_EQ(int(angle), 200);
    EXPECT_EQ(double(MakeValue(DT_AngleFloat, std::numbers::pi_v<float>)), 200.0);
    EXPECT_EQ(MakeValue(DT_Int, 200).ChangeToType(DT_AngleDouble).Value.Double, pi);
    EXPECT_EQ(angle.ChangeToType(DT_AngleFloat).Value.Float, std::numbers::pi_v<float>);
    EXPECT_EQ(angle.ChangeToType(DT_LengthDouble).Value.Double, 200.0);
}

TEST_F(Values, WhatHasNoNumberSaysSo) {
    const auto messageOf = [](auto conversion) -> std::string {
        try {
            conversion();
        } catch (const invalid_operation& error) {
            return error.what();
        }
        return "nothing thrown";
    };
    for (const EDataTyps type :
         {DT_Void, DT_Bool, DT_String, DT_ColorRGB, DT_ColorARGB, DT_Group, DT_ListInt, DT_Date, DT_FileName,
          DT_TextFormInt, static_cast<EDataTyps>(DT_Int | TypeBitButton)}) {
        SCOPED_TRACE(type);
        CVariantValue value;
        value.Type = type;
        EXPECT_EQ(messageOf([&] { return int(value); }), "CVariantValue::operator int");
        EXPECT_EQ(messageOf([&] { return long(value); }), "CVariantValue::operator long");
        EXPECT_EQ(messageOf([&] { return unsigned(value); }), "CVariantValue::operator double"); // kept
        EXPECT_EQ(messageOf([&] { return float(value); }), "CVariantValue::operator float");
        EXPECT_EQ(messageOf([&] { return double(value); }), "CVariantValue::operator double");
        EXPECT_EQ(messageOf([&] { return value.ChangeToType(DT_UInt); }), "CVariantValue::operator double");
        EXPECT_THROW(MakeValue(DT_Int, 1).ChangeToType(type), std::invalid_argument);
        EXPECT_THROW(value.ChangeToType(type), std::invalid_argument); // the target is looked at first
    }
}

TEST_F(Values, ChangeOfType) {
    struct Row {
        const char* border;
        CVariantValue value;
        EDataTyps target;
        double result;
    };
    const Row rows[] = {
        {"range above", MakeValue(DT_Double, 150.7), DT_RangeInt, 100},
        {"range below", MakeValue(DT_Double, -3.2), DT_RangeInt, 0},
        {"range inside", MakeValue(DT_Double, 99.9), DT_RangeInt, 99},
        {"range float above", MakeValue(DT_Double, 100.5), DT_RangeFloat, 100},
        {"range double below", MakeValue(DT_Int, -1), DT_RangeDouble, 0},
        {"wrapping", MakeValue(DT_Float, -1.5f), DT_UInt, 4294967295.0},
        {"unsigned to random", MakeValue(DT_UInt, 4294967295u), DT_RandomInt, -1},
        {"long", MakeValue(DT_LengthDouble, 12.9), DT_Long, 12},
        {"narrowed", MakeValue(DT_Double, 0.1), DT_CurrencyFloat, 0.1f},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.border);
        const CVariantValue result = row.value.ChangeToType(row.target);
        EXPECT_EQ(result.Type, row.target);
        EXPECT_EQ(double(result), row.result);
    }
    for (const EDataTyps type : DoubleTypes)
        EXPECT_EQ(MakeValue(DT_Int, 42).ChangeToType(type).Value.Double, 42.0) << type;
    EXPECT_TRUE(std::isnan(MakeValue(DT_Double, NotANumber).ChangeToType(DT_RangeDouble).Value.Double));
    EXPECT_EQ(MakeValue(DT_Double, NotANumber).ChangeToType(DT_RangeInt).Value.Int, 0);
}

TEST_F(Values, Comparison) {
    TestEnum list({});
    CVariantValue listed = MakeValue(DT_ListInt, "1");
    listed.EnumValue = &list;
    CVariantValue otherPayload = listed;
    otherPayload.Value.Int = 9;
    auto* object = reinterpret_cast<IMemberDispatch*>(&list); // compared at most, never looked at
    struct Row {
        const char* border;
        CVariantValue left;
        CVariantValue right;
        bool equal;
    };
    const Row rows[] = {
        {"void", {}, {}, true},
        {"types", MakeValue(DT_Int, 1), MakeValue(DT_Long, 1), false},
        {"enumerations", listed, MakeValue(DT_ListInt, "1"), false},
        {"list payloads do not count", listed, otherPayload, true},
        {"list texts", MakeValue(DT_ListInt, "1"), MakeValue(DT_ListInt, "1 "), false},
        {"integers", MakeValue(DT_RandomInt, 1), MakeValue(DT_RandomInt, 2), false},
        {"colours", MakeValue(DT_ColorARGB, 1u), MakeValue(DT_ColorARGB, 1u), true},
        {"zeros of either sign", MakeValue(DT_LengthDouble, 0.0), MakeValue(DT_LengthDouble, -0.0), true},
        {"not-a-number", MakeValue(DT_Float, NAN), MakeValue(DT_Float, NAN), false},
        {"angles", MakeValue(DT_AngleFloat, 1.0f), MakeValue(DT_AngleFloat, 1.5f), false},
        {"text bytes", MakeValue(DT_FileName, "A"), MakeValue(DT_FileName, "a"), false},
        {"date states", MakeDate("GDT_VALID", 1), MakeDate("GDT_NONE", 1), false},
        {"dates", MakeDate("GDT_VALID", 1), MakeDate("GDT_VALID", 2), false},
        {"groups are equal whatever they hold", MakeValue(DT_Group, object), MakeValue(DT_Group, nullptr),
         true},
        {"text forms", MakeValue(DT_TextFormInt, 1), MakeValue(DT_TextFormInt, 2), true},
        {"bools", MakeValue(DT_Bool, true), MakeValue(DT_Bool, false), false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.border);
        EXPECT_EQ(row.left == row.right, row.equal);
        EXPECT_EQ(row.left != row.right, !row.equal);
    }
}

} // namespace
} // namespace korvel
