#include "grid_fixture.h"

namespace korvel {
namespace {

EDataTyps Modified(unsigned bit, unsigned type) {
    return static_cast<EDataTyps>(bit | type);
}

CVariantValue WithText(CVariantValue value, std::string text) {
    value.Text = std::move(text);
    return value;
}

struct ShownRow {
    const char* name;
    CVariantValue value;
    const char* text;
    CItemInfo::CONTROLTYPE control;
};

class CellConversion : public BoundGridTest {};

TEST_F(CellConversion, EachTypeHasItsTextAndItsEditor) {
    const CVariantValue tenth = Number(DT_TextFormDouble, 0.1);
    const ShownRow rows[] = {
        {"int", Whole(DT_Int, -1234), "-1.234", CItemInfo::ctEdit},
        {"unsigned", Word(DT_UInt, 4000), "4.000", CItemInfo::ctEdit},
        {"long", Whole(DT_Long, 5), "5", CItemInfo::ctEdit},
        {"double", Number(DT_Double, 1.5), "1,50", CItemInfo::ctEdit},
        {"text", Words(DT_String, "a\\-b"), "a\\-b", CItemInfo::ctEdit},
        {"bool", Flag(true), "", CItemInfo::ctCheck},
        {"colour", Word(DT_ColorRGB, 0xFF00AB0Fu), "0xff00ab0f", CItemInfo::ctColor},
        {"colour unpadded", Word(DT_ColorRGB, 0xA), "0xa", CItemInfo::ctColor},
        {"alpha colour", Word(DT_ColorARGB, 0x80FF0000u), "0x80ff0000", CItemInfo::ctColorAlpha},
        {"angle", Number(DT_AngleDouble, 0.5), "0,50", CItemInfo::ctAngle},
        {"list without an enumeration", Words(DT_ListString, "ignored"), "", CItemInfo::ctList},
        {"file", Words(DT_FileName, "/tmp/plan.png"), "/tmp/plan.png", CItemInfo::ctFile},
        {"range", Whole(DT_RangeInt, 50), "50", CItemInfo::ctRange},
        {"random", Whole(DT_RandomInt, 6), "6", CItemInfo::ctRandom},
        {"station", Number(DT_RoadStationDouble, 12345.6), "12+345,60", CItemInfo::ctEdit},
        {"area", Number(DT_AreaDouble, 2), "2,00 m\xB2", CItemInfo::ctEdit},
        {"man-days", Number(DT_ManDaysDouble, 3), "3,00 MT", CItemInfo::ctEdit},
        {"text form", WithText(tenth, "a tenth"), "a tenth", CItemInfo::ctEdit},
        {"button on a double", WithText(Number(Modified(TypeBitButton, DT_Double), 1), "press"), "press",
         CItemInfo::ctButton},
        {"button on a type without a name", Words(Modified(TypeBitButton, DT_LengthDouble), "press"), "press",
         CItemInfo::ctButton},
        {"both modifiers", Words(Modified(TypeBitButton, DT_TextFormInt), "press"), "press",
         CItemInfo::ctButton},
        {"text form of a date", Words(Modified(TypeBitTextForm, DT_Date), "soon"), "soon", CItemInfo::ctEdit},
        {"a list is no button", Words(Modified(TypeBitButton, DT_ListInt), "press"), "", CItemInfo::ctEdit},
        {"void", CVariantValue(), "", CItemInfo::ctEdit},
        {"no type", Words(static_cast<EDataTyps>(0x8008), "text"), "", CItemInfo::ctEdit},
    };
    HostObject& object = Object();
    for (const ShownRow& row : rows)
        object.With(row.name, row.value);
    Bind(object);
    for (const ShownRow& row : rows) {
        const CSuperGridCtrl::CTreeItem* node = grid.LookupTreeItem(&object, row.name);
        EXPECT_EQ(row.text, node->info->GetSubItem(0)) << row.name;
        EXPECT_EQ(row.control, node->info->GetControlType(0)) << row.name;
        EXPECT_TRUE(node->info->IsCellEnabled(0)) << row.name;
    }
}

TEST_F(CellConversion, ATypeThatIsNotShownLeavesTheTextAlone) {
    std::string text = "as it was";
    CItemInfo::CONTROLTYPE control = CItemInfo::ctCheck;
    grid.ConvertToOutput(nullptr, "", Group(nullptr), text, control);
    EXPECT_EQ("as it was", text);
    EXPECT_EQ(CItemInfo::ctEdit, control);
}

TEST_F(CellConversion, ColoursAreSwatchesAndLeaveNoneBehind) {
    HostObject& object = Object();
    object.With("c", Word(DT_ColorRGB, 0xFF112233u));
    Bind(object);
    const CItemInfo& info = *grid.NodeAtRow(0)->info;
    EXPECT_EQ(0xFF112233u, info.GetCellColor(0));
    SinkOf(object).OnChange("c", Word(DT_ColorRGB, 0xFF445566u));
    EXPECT_EQ(0xFF445566u, info.GetCellColor(0));
    SinkOf(object).OnChange("c", Whole(DT_Int, 1));
    EXPECT_EQ(CItemInfo::NoColor, info.GetCellColor(0));
}

TEST_F(CellConversion, DashesOfPathsLoseTheirEscapeInTheCell) {
    HostEnumeration enumeration;
    enumeration.entries = {Words(DT_String, "rail\\-road\\-x"), Words(DT_String, "other\\-one")};
    HostObject& object = Object();
    object.With("flat", enumeration.ListValue(DT_ListString));
    Bind(object);
    EXPECT_EQ("rail\\-road\\-x", grid.GetItemText(0, 1));
    enumeration.flags = ENF_Tree;
    enumeration.selected = 1;
    SinkOf(object).OnChange("flat", enumeration.ListValue(DT_ListString));
    EXPECT_EQ("other-one", grid.GetItemText(0, 1));
    // Asked directly, the text is the value's.
    std::string text;
    CItemInfo::CONTROLTYPE control = CItemInfo::ctEdit;
    grid.ConvertToOutput(&object, "flat", enumeration.ListValue(DT_ListString), text, control);
    EXPECT_EQ("other\\-one", text);
}

struct ServiceRow {
    const char* name;
    EDataTyps type;
    EFormatService service;
};

constexpr ServiceRow Services[] = {
    {"double", DT_Double, EFormatService::Number},
    {"length", DT_LengthFloat, EFormatService::Number},
    {"range", DT_RangeInt, EFormatService::Number},
    {"angle", DT_AngleFloat, EFormatService::Angle},
    {"date", DT_Date, EFormatService::Date},
    {"station", DT_RoadStationDouble, EFormatService::Station},
    {"man-days", DT_ManDaysDouble, EFormatService::ManDays},
    {"text", DT_String, EFormatService::None},
    {"text form", DT_TextFormDouble, EFormatService::None},
    {"bool", DT_Bool, EFormatService::None},
};

TEST_F(CellConversion, AMemberIsRegisteredWithTheServiceOfItsTypeAlone) {
    HostObject& object = Object();
    object.With("m", Flag(true));
    Bind(object);
    for (const ServiceRow& row : Services) {
        grid.AddSink(row.type, &object, "m");
        for (const ServiceRow& other : Services)
            EXPECT_FALSE(other.service != row.service && grid.RemoveSink(other.type, &object, "m"))
                << row.name << ", " << other.name;
        EXPECT_EQ(row.service != EFormatService::None, grid.RemoveSink(row.type, &object, "m")) << row.name;
        EXPECT_FALSE(grid.RemoveSink(row.type, &object, "m")) << row.name;
    }
}

TEST_F(CellConversion, AChangeOfFormatRewritesTheCellsOfItsServiceAndNoOthers) {
    HostEnumeration numbers;
    numbers.type = DT_Double;
    numbers.entries = {Number(DT_Double, 1.25)};
    HostObject& inner = Object();
    inner.With("x", Number(DT_LengthDouble, 1));
    HostObject& object = Object();
    object.With("double", Number(DT_Double, 2)).With("list", numbers.ListValue(DT_ListDouble));
    object.With("angle", Number(DT_AngleDouble, 3)).With("inner", Group(&inner));
    Bind(object);
    grid.ExpandAll();
    int angleReads = 0;
    object.onRead = [&](const std::string& name) { angleReads += name == "angle"; };
    SetFormatDouble(GermanFormat(3));
    EXPECT_EQ(Lines({"double|2,000", "list|1,250", "angle|3,00", "inner|", " x|1,000 m"}), Rows(grid));
    EXPECT_EQ(0, angleReads);
    SetAngleFormatDouble(GermanFormat(0));
    EXPECT_EQ("3", grid.GetItemText(2, 1));
}

TEST_F(CellConversion, WhatIsGoneWhileAFormatChangesIsSkipped) {
    HostObject& object = Object();
    object.With("a", Number(DT_Double, 1)).With("b", Number(DT_Double, 2));
    Bind(object);
    object.onRead = [&](const std::string& name) {
        object.onRead = nullptr;
        SinkOf(object).OnOperationRemove(name == "a" ? "b" : "a", Number(DT_Double, 0));
    };
    SetFormatDouble(GermanFormat(1));
    EXPECT_EQ(1, grid.GetItemCount());
    grid.Clear();
    SetFormatDouble(GermanFormat(4)); // nobody listens any more
}

} // namespace
} // namespace korvel
