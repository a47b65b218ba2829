#include "../output/german_machine.h"
#include "make_value.h"
#include "values/member_dispatch_imp.h"

#include <numbers>

namespace korvel {
namespace {

using Texts = GermanMachine;

constexpr ETextForm Plain = ETextForm::Plain;

TEST_F(Texts, OfEveryKind) {
    struct Row {
        CVariantValue value;
        const char* shown;
        const char* plain;
    };
    const Row rows[] = {
        {{}, "null", "nothing"},
        {MakeValue(DT_Int, -1234), "-1.234", "-1234"},
        {MakeValue(DT_Long, 1234), "1.234,0", "1234"},
        {MakeValue(DT_UInt, 4294967295u), "-1", "4294967295"}, // shown as the signed number; kept
        {MakeValue(DT_Float, 1234567.5f), "1.234.567,50", "1.23457e+06"},
        {MakeValue(DT_RangeDouble, 0.00001), "0,000", "1e-05"},
        {MakeValue(DT_Double, 1234.5), "1.234,500", "1234.5"},
        {MakeValue(DT_Bool, true), "true", "1"},
        {MakeValue(DT_String, "a\xE4"), "a\xE4", "a\xE4"},
        {MakeValue(DT_FileName, "plan.png"), "plan.png", "plan.png"},
        {MakeValue(DT_ColorRGB, 4294967295u), "4294967295", "4294967295"},
        {MakeValue(DT_AngleDouble, std::numbers::pi), "180,00", "3.14159"},
        {MakeValue(DT_AngleFloat, std::numbers::pi_v<float>), "180,00", "3.14159"},
        {MakeDate("GDT_VALID", 44000), "Donnerstag, 18. Juni 2020", "44000"},
        {MakeDate("GDT_NONE", 44000), "", "44000"},
        {MakeValue(DT_RailwayStationDouble, 12345.6), "12,3+45,60", "12345.6"},
        {MakeValue(DT_RailwayStationFloat, 12345.6f), "12,3+45,60", "12345.6"},
        {MakeValue(DT_RoadStationDouble, 12345.6), "12+345,60", "12345.6"},
        {MakeValue(DT_RoadStationFloat, 12345.6f), "12+345,60", "12345.6"},
        {MakeValue(DT_LengthFloat, 2.5f), "2,50 m", "2.5"},
        {MakeValue(DT_LengthDouble, 2.5), "2,500 m", "2.5"},
        {MakeValue(DT_AreaDouble, 2.5), "2,500 m\xB2", "2.5"},
        {MakeValue(DT_VolumeDouble, 2.5), "2,500 m\xB3", "2.5"},
        {MakeValue(DT_PercentDouble, 2.5), "2,500 %", "2.5"},
        {MakeValue(DT_CurrencyDouble, 2.5), "2,500 \x80", "2.5"},
        {MakeValue(DT_ManDaysFloat, 2.5f), "2,50 MT", "2.5"},
        {MakeValue(DT_ManDaysDouble, 2.5), "2,50 MT", "2.5"},
        {MakeValue(DT_TextFormInt, 5), "", ""},
        {MakeValue(static_cast<EDataTyps>(DT_Int | TypeBitButton), 5), "", ""},
        {MakeValue(DT_ListString, "12"), "", ""}, // without its enumeration
    };
    SetAngleUnit('\xB0');
    SetFormatLong(GermanFormat(1));
    SetFormatDouble(GermanFormat(3));
    for (const Row& row : rows) {
        SCOPED_TRACE(row.value.Type);
        EXPECT_EQ(row.value.ToText(), row.shown);
        EXPECT_EQ(row.value.ToText(Plain), row.plain);
    }
}

TEST_F(Texts, OfGroups) {
    TMemberDispatchImp<Texts> object("Axis 3");
    CVariantValue group = MakeValue(DT_Group, &object);
    group.Text = "text";
    EXPECT_EQ(group.ToText(), "Axis 3");
    EXPECT_EQ(group.ToText(Plain).substr(0, 8), "0x20480x"); // kept: the flag's number, then the pointer
    group.Value.Dispatch = nullptr;
    EXPECT_EQ(group.ToText(), "text");
    EXPECT_EQ(group.ToText(Plain), "0x00000000");
}

TEST_F(Texts, OfLists) {
    TestEnum list({{1, MakeValue(DT_String, "a")},
                   {2, MakeValue(DT_Double, 1.5)},
                   {3, MakeValue(DT_String, "nameless")},
                   {4, MakeValue(DT_Bool, true)}});
    CVariantValue value = MakeValue(DT_ListString, "4, 3, 2, 1");
    value.EnumValue = &list;
    EXPECT_EQ(value.ToText(), "a; 1,50; true");
    EXPECT_EQ(value.ToText(Plain), "a; 1.5; 1");
    value.Text = "4";
    EXPECT_EQ(value.ToText(), "true");
    value.Text = "";
    EXPECT_EQ(value.ToText(), "");
}

TEST_F(Texts, AListThatHoldsItselfComesToAnEnd) {
    CVariantValue value = MakeValue(DT_ListString, "1, 2");
    std::map<long, CVariantValue> entries{{1, MakeValue(DT_String, "a")}, {2, value}};
    TestEnum list(entries);
    entries[2].EnumValue = &list;
    list = TestEnum(entries);
    value.EnumValue = &list;
    EXPECT_EQ(value.ToText(), "a; ");
}

} // namespace
} // namespace korvel
