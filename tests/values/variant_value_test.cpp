#include "korvel/output/angles.h"
#include "korvel/output/numbers.h"
#include "korvel/values/invalid_operation.h"
#include "korvel/values/member_dispatch_imp.h"
#include "support/german_machine.h"
#include "support/make_value.h"
#include "support/test_enumeration.h"

#include <cmath>
#include <limits>
#include <numbers>

namespace korvel {
namespace {

using Values = GermanMachine;
using std::numbers::pi;

constexpr TextForm Plain = TextForm::Plain;
constexpr int Lowest = std::numeric_limits<int>::min();

TEST_F(Values, NumbersThatFitAndDoNot) {
    const std::tuple<const char*, CVariantValue, int, unsigned, double> rows[] = {
        {"toward zero", MakeValue(DT_Double, -1.9), -1, 4294967295u, -1.9},
        {"highest int", MakeValue(DT_Double, 2147483647.9), 2147483647, 2147483647u, 2147483647.9},
        {"above int", MakeValue(DT_Double, 2147483648.0), Lowest, 2147483648u, 2147483648.0},
        {"low 32 bits", MakeValue(DT_Double, 4294967296.0 * 5 + 7), Lowest, 7u, 4294967296.0 * 5 + 7},
        {"above 64 bits", MakeValue(DT_Double, 0x1p63), Lowest, 0u, 0x1p63},
        {"not a number", MakeValue(DT_Double, double{NAN}), Lowest, 0u, NAN},
        {"infinite", MakeValue(DT_Float, -INFINITY), Lowest, 0u, -INFINITY},
        {"unsigned as signed", MakeValue(DT_RandomUInt, 4294967295u), -1, 4294967295u, 4294967295.0},
    };
    for (const auto& [border, value, asInt, asUnsigned, asDouble] : rows) {
        SCOPED_TRACE(border);
        EXPECT_EQ(int(value), asInt);
        EXPECT_EQ(long(value), asInt);
        EXPECT_EQ(unsigned(value), asUnsigned);
        EXPECT_THAT(double(value), testing::NanSensitiveDoubleEq(asDouble));
        EXPECT_THAT(float(value), testing::NanSensitiveFloatEq(static_cast<float>(asDouble)));
    }
}

TEST_F(Values, WhatHasNoNumberSaysSo) {
    const auto refuses = [](const std::string& type) {
        return testing::ThrowsMessage<invalid_operation>("CVariantValue::operator " + type);
    };
    for (const unsigned type :
         {+DT_Void, +DT_Bool, +DT_String, +DT_ColorRGB, +DT_ColorARGB, +DT_Group, +DT_ListInt, +DT_Date,
          +DT_FileName, +DT_TextFormInt, DT_Int | TypeBitButton}) {
        SCOPED_TRACE(type);
        const CVariantValue value = MakeValue(static_cast<EDataTyps>(type), 1);
        EXPECT_THAT([&] { return int(value); }, refuses("int"));
        EXPECT_THAT([&] { return long(value); }, refuses("long"));
        EXPECT_THAT([&] { return unsigned(value); }, refuses("double")); // kept
        EXPECT_THAT([&] { return float(value); }, refuses("float"));
        EXPECT_THROW(MakeValue(DT_Int, 1).ChangeToType(value.Type), std::invalid_argument);
        EXPECT_THROW(value.ChangeToType(value.Type), std::invalid_argument); // the target is looked at first
    }
}

TEST_F(Values, ChangeOfType) {
    SetAngleUnit('g');
    const std::tuple<const char*, CVariantValue, EDataTyps, double> rows[] = {
        {"range above", MakeValue(DT_Double, 150.7), DT_RangeInt, 100},
        {"range below", MakeValue(DT_Double, -3.2), DT_RangeInt, 0},
        {"range double below", MakeValue(DT_Int, -1), DT_RangeDouble, 0},
        {"range float above", MakeValue(DT_Double, 100.5), DT_RangeFloat, 100},
        {"range of no number", MakeValue(DT_Double, double{NAN}), DT_RangeDouble, NAN},
        {"wrapping", MakeValue(DT_Float, -1.5f), DT_UInt, 4294967295.0},
        {"long", MakeValue(DT_LengthDouble, 12.9), DT_Long, 12},
        {"narrowed", MakeValue(DT_Double, 0.1), DT_CurrencyFloat, 0.1f},
        {"angles in the user's unit", MakeValue(DT_AngleDouble, pi), DT_Int, 200},
    };
    for (const auto& [border, value, target, number] : rows) {
        const CVariantValue result = value.ChangeToType(target);
        EXPECT_EQ(result.Type, target) << border;
        EXPECT_THAT(double(result), testing::NanSensitiveDoubleEq(number)) << border;
    }
    EXPECT_EQ(MakeValue(DT_Int, 200).ChangeToType(DT_AngleDouble).Value.Double, pi);
}

TEST_F(Values, Comparison) {
    TestEnumeration list;
    const CVariantValue listed = MakeList(DT_ListInt, "1", &list);
    CVariantValue otherPayload = listed;
    otherPayload.Value.Int = 9;
    CVariantValue otherContext = listed;
    otherContext.EnumContext = reinterpret_cast<IFileValue*>(&list); // compared at most, as the object
    auto* object = reinterpret_cast<IMemberDispatch*>(&list);        // compared at most, never looked at
    const std::tuple<const char*, CVariantValue, CVariantValue, bool> rows[] = {
        {"types", MakeValue(DT_Int, 1), MakeValue(DT_Long, 1), false},
        {"enumerations", listed, MakeValue(DT_ListInt, "1"), false},
        {"contexts", listed, otherContext, false},
        {"list payloads do not count", listed, otherPayload, true},
        {"integers", MakeValue(DT_RandomInt, 1), MakeValue(DT_RandomInt, 2), false},
        {"not-a-number", MakeValue(DT_Float, NAN), MakeValue(DT_Float, NAN), false},
        {"text bytes", MakeValue(DT_FileName, "A"), MakeValue(DT_FileName, "a"), false},
        {"date states", MakeDate("GDT_VALID", 1), MakeDate("GDT_NONE", 1), false},
        {"dates", MakeDate("GDT_VALID", 1), MakeDate("GDT_VALID", 2), false},
        {"groups whatever they hold", MakeValue(DT_Group, object), MakeValue(DT_Group, nullptr), true},
        {"bools", MakeValue(DT_Bool, true), MakeValue(DT_Bool, false), false},
        {"text forms", MakeValue(DT_TextFormInt, 1), MakeValue(DT_TextFormInt, 2), true},
    };
    for (const auto& [border, left, right, equal] : rows)
        EXPECT_EQ(left == right, equal) << border;
}

TEST_F(Values, TextsOfEveryKind) {
    const std::tuple<CVariantValue, const char*, const char*> rows[] = {
        {{}, "null", "nothing"},
        {MakeValue(DT_Int, -1234), "-1.234", "-1234"},
        {MakeValue(DT_Long, 1234), "1.234,0", "1234"},
        {MakeValue(DT_UInt, 4294967295u), "-1", "4294967295"}, // shown as the signed number; kept
        {MakeValue(DT_Float, 1234567.5f), "1.234.567,50", "1.23457e+06"},
        {MakeValue(DT_Double, 1234.5), "1.234,500", "1234.5"},
        {MakeValue(DT_Bool, true), "true", "1"},
        {MakeValue(DT_String, "a\xE4"), "a\xE4", "a\xE4"},
        {MakeValue(DT_ColorRGB, 4294967295u), "4294967295", "4294967295"},
        {MakeValue(DT_AngleDouble, std::numbers::pi), "180,00", "3.14159"},
        {MakeDate("GDT_VALID", 44000), "Donnerstag, 18. Juni 2020", "44000"},
        {MakeDate("GDT_NONE", 44000), "", "44000"},
        {MakeValue(DT_TextFormInt, 5), "", ""},
        {MakeValue(DT_ListString, "12"), "", ""}, // without its enumeration
    };
    SetAngleUnit('\xB0');
    SetFormatLong(GermanFormat(1));
    SetFormatDouble(GermanFormat(3));
    for (const auto& [value, shown, plain] : rows) {
        EXPECT_EQ(value.ToText(), shown) << value.Type;
        EXPECT_EQ(value.ToText(TextForm::WithAngleUnit),
                  std::string(shown) + (value.Type == DT_AngleDouble ? "\xB0" : ""))
            << value.Type;
        EXPECT_EQ(value.ToText(Plain), plain) << value.Type;
    }
    SetAngleUnit('r');
    const std::tuple<EDataTyps, const char*, EDataTyps, const char*> measures[] = {
        {DT_RailwayStationDouble, "0,5+16,50", DT_RailwayStationFloat, "0,5+16,50"},
        {DT_RoadStationDouble, "0+516,50", DT_RoadStationFloat, "0+516,50"},
        {DT_LengthDouble, "516,500 m", DT_LengthFloat, "516,50 m"},
        {DT_AreaDouble, "516,500 m\xB2", DT_AreaFloat, "516,50 m\xB2"},
        {DT_VolumeDouble, "516,500 m\xB3", DT_VolumeFloat, "516,50 m\xB3"},
        {DT_PercentDouble, "516,500 %", DT_PercentFloat, "516,50 %"},
        {DT_CurrencyDouble, "516,500 \x80", DT_CurrencyFloat, "516,50 \x80"},
        {DT_ManDaysDouble, "516,50 MT", DT_ManDaysFloat, "516,50 MT"},
        {DT_RangeDouble, "516,500", DT_RangeFloat, "516,50"},
        {DT_AngleDouble, "516,50", DT_AngleFloat, "516,50"}};
    for (const auto& [ofDouble, text, ofFloat, floatText] : measures) {
        EXPECT_EQ(MakeValue(ofDouble, 516.5).ToText(), text) << ofDouble;
        EXPECT_EQ(MakeValue(ofFloat, 516.5f).ToText(), floatText) << ofFloat;
    }
}

TEST_F(Values, TextsOfGroups) {
    TMemberDispatchImp<Values> object("Axis 3");
    CVariantValue group = MakeValue(DT_Group, &object);
    group.Text = "text";
    EXPECT_EQ(group.ToText(), "Axis 3");
    EXPECT_EQ(group.ToText(Plain).substr(0, 8), "0x20480x"); // kept: the flag's number, then the pointer
    group.Value.Dispatch = nullptr;
    EXPECT_EQ(group.ToText(), "text");
    EXPECT_EQ(group.ToText(Plain), "0x00000000");
}

TEST_F(Values, TextsOfLists) {
    TestEnumeration list;
    list.separator = "-";
    list.entries = {{1, TextValue("a")},
                    {2, MakeValue(DT_Double, 1.5)},
                    {3, CVariantValue()},
                    {4, MakeValue(DT_Bool, true)},
                    {5, list.ValueOf(",1,,5,")}};
    CVariantValue value = list.ValueOf(",4,,3,,2,,1,");
    EXPECT_EQ(value.ToText(), "a; 1,50; true");
    EXPECT_EQ(value.ToText(Plain), "a; 1.5; 1");
    value.Text = "";
    EXPECT_EQ(value.ToText(), "");
    value.Text = ",1,,5,";
    EXPECT_EQ(value.ToText(), "a; ") << "a list that holds itself comes to an end";
}

} // namespace
} // namespace korvel
