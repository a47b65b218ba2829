#include "korvel/output/angles.h"
#include "support/grid_fixture.h"

namespace korvel {
namespace {

EDataTyps Modified(unsigned bit, unsigned type) {
    return static_cast<EDataTyps>(bit | type);
}

class CellConversions : public BoundGridTest {};

TEST_F(CellConversions, EachTypeHasItsTextAndItsEditor) {
    using C = CItemInfo;
    const std::tuple<const char*, CVariantValue, const char*, C::CONTROLTYPE> rows[] = {
        {"int", Whole(DT_Int, -1234), "-1.234", C::ctEdit},
        {"text", Words(DT_String, "a\\-b"), "a\\-b", C::ctEdit},
        {"bool", Flag(true), "", C::ctCheck},
        {"color unpadded", Word(DT_ColorRGB, 0xA), "0xa", C::ctColor},
        {"alpha color", Word(DT_ColorARGB, 0x80FF0000u), "0x80ff0000", C::ctColorAlpha},
        {"angle", Number(DT_AngleDouble, 0.5), "0,50", C::ctAngle},
        {"list without an enumeration", Words(DT_ListString, "ignored"), "", C::ctList},
        {"file", Words(DT_FileName, "/tmp/plan.png"), "/tmp/plan.png", C::ctFile},
        {"range", Whole(DT_RangeInt, 50), "50", C::ctRange},
        {"random", Whole(DT_RandomInt, 6), "6", C::ctRandom},
        {"button on a type without a name", Words(Modified(TypeBitButton, DT_LengthDouble), "press"), "press",
         C::ctButton},
        {"both modifiers", Words(Modified(TypeBitButton, DT_TextFormInt), "press"), "press", C::ctButton},
        {"text form of a date", Words(Modified(TypeBitTextForm, DT_Date), "soon"), "soon", C::ctEdit},
        {"a list is no button", Words(Modified(TypeBitButton, DT_ListInt), "press"), "", C::ctEdit},
        {"void", CVariantValue(), "", C::ctEdit},
        {"no type", Words(static_cast<EDataTyps>(0x8008), "text"), "", C::ctEdit},
    };
    for (const auto& [name, value, text, control] : rows)
        root.With(name, value);
    Bind(root);
    for (const auto& [name, value, text, control] : rows) {
        const CItemInfo& info = *grid.LookupTreeItem(&root, name)->info;
        EXPECT_EQ(info.GetSubItem(0), text) << name;
        EXPECT_EQ(info.GetControlType(0), control) << name;
        EXPECT_TRUE(info.IsCellEnabled(0)) << name;
    }
    std::string text = "as it was"; // of what is not shown
    C::CONTROLTYPE control = C::ctCheck;
    grid.ConvertToOutput(nullptr, "", Group(nullptr), text, control);
    EXPECT_EQ(text, "as it was");
    EXPECT_EQ(control, C::ctEdit);
}

TEST_F(CellConversions, ColorsAreSwatchesAndLeaveNoneBehind) {
    root.With("c", Word(DT_ColorRGB, 0xFF112233u));
    Bind(root);
    const CItemInfo& info = *grid.NodeAtRow(0)->info;
    EXPECT_EQ(info.GetCellColor(0), 0xFF112233u);
    SinkOf(root).OnChange("c", Word(DT_ColorRGB, 0xFF445566u));
    EXPECT_EQ(info.GetCellColor(0), 0xFF445566u);
    SinkOf(root).OnChange("c", Whole(DT_Int, 1));
    EXPECT_EQ(info.GetCellColor(0), CItemInfo::NoColor);
}

TEST_F(CellConversions, DashesOfPathsLoseTheirEscapeInTheCell) {
    HostEnumeration enumeration;
    const CVariantValue value = enumeration.ListOf(DT_ListString, Words(DT_String, "rail\\-road\\-x"));
    root.With("flat", value);
    Bind(root);
    EXPECT_EQ(grid.GetItemText(0, 1), "rail\\-road\\-x");
    enumeration.flags = ENF_Tree;
    SinkOf(root).OnChange("flat", value);
    EXPECT_EQ(grid.GetItemText(0, 1), "rail-road-x");
    // Asked directly, the text is the value's.
    std::string text;
    CItemInfo::CONTROLTYPE control = CItemInfo::ctEdit;
    grid.ConvertToOutput(&root, "flat", value, text, control);
    EXPECT_EQ(text, "rail\\-road\\-x");
}

TEST_F(CellConversions, AMemberIsRegisteredWithTheServiceOfItsTypeAlone) {
    using S = internal::FormatService;
    const std::pair<EDataTyps, S> rows[] = {
        {DT_Double, S::Number}, {DT_LengthFloat, S::Number},        {DT_AngleFloat, S::Angle},
        {DT_Date, S::Date},     {DT_RoadStationDouble, S::Station}, {DT_ManDaysDouble, S::ManDays},
        {DT_String, S::None},   {DT_TextFormDouble, S::None},       {DT_Bool, S::None}};
    root.With("m", Flag(true));
    Bind(root);
    for (const auto& [type, service] : rows) {
        grid.AddSink(type, &root, "m");
        for (const auto& [otherType, otherService] : rows)
            EXPECT_FALSE(otherService != service && grid.RemoveSink(otherType, &root, "m"))
                << type << ", " << otherType;
        EXPECT_EQ(grid.RemoveSink(type, &root, "m"), service != S::None) << type;
        EXPECT_FALSE(grid.RemoveSink(type, &root, "m")) << type;
    }
}

TEST_F(CellConversions, AChangeOfFormatRewritesTheCellsOfItsServiceAndNoOthers) {
    HostEnumeration numbers;
    numbers.type = DT_Double;
    point.With("x", Number(DT_LengthDouble, 1));
    root.With("double", Number(DT_Double, 2))
        .With("list", numbers.ListOf(DT_ListDouble, Number(DT_Double, 1.25)));
    root.With("angle", Number(DT_AngleDouble, 3)).With("inner", Group(&point));
    BindAndExpand();
    root.onRead = [&](const std::string& name) { EXPECT_NE("angle", name); };
    SetFormatDouble(GermanFormat(3));
    EXPECT_EQ(Rows(grid), Lines({"double|2,000", "list|1,250", "angle|3,00", "inner|", " x|1,000 m"}));
    root.onRead = nullptr;
    SetAngleFormatDouble(GermanFormat(0));
    EXPECT_EQ(grid.GetItemText(2, 1), "3");
}

TEST_F(CellConversions, AnglesSayTheirUnitWhereTheGridIsToldSo) {
    HostEnumeration angles;
    angles.type = DT_AngleDouble;
    point.With("x", Number(DT_AngleDouble, 1)).With("y", Number(DT_LengthDouble, 1));
    point.With("z", angles.ListOf(DT_ListDouble, Number(DT_AngleDouble, 1)));
    root.With("p", Group(&point));
    SetAngleUnit('g');
    const std::pair<bool, const char*> changes[] = {
        {false, "63,66"}, {true, "63,66 gon"}, {true, "63,66 gon"}, {false, "63,66"}, {true, "63,66 gon"}};
    BindAndExpand();
    for (const auto& [on, text] : changes) {
        grid.SetGridOption(EGridOption::AngleUnit, on);
        EXPECT_EQ(Rows(grid), Lines({"p|", std::string(" x|") + text, " y|1,00 m", " z|63,66"}));
    }
    grid.Clear();
    grid.SetLayoutMultiColumn({"Name", "x", "y", "z"});
    Bind(root);
    EXPECT_EQ(Rows(grid), Lines({"p|63,66 gon|1,00 m|63,66"}));
    grid.SetGridOption(EGridOption::AngleUnit, false);
    EXPECT_EQ(Rows(grid), Lines({"p|63,66|1,00 m|63,66"}));
}

// Not what was written before the exception.
TEST_F(GridTest, AConversionThatThrowsLeavesTheCellEmpty) {
    class ThrowingGrid : public CEditableGrid {
    public:
        using CEditableGrid::CEditableGrid;
        void ConvertToOutput(IMemberDispatch*, const std::string&, const CVariantValue&, std::string& text,
                             CItemInfo::CONTROLTYPE& control) override {
            text = "half";
            control = CItemInfo::ctColor;
            throw std::runtime_error("no text");
        }
    } grid(nullptr, nullptr);
    Make(grid);
    root.With("a", Word(DT_ColorRGB, 7));
    grid.Initialize(&root, "Name", "Value", 0);
    EXPECT_EQ(Rows(grid), Lines({"a|"}));
    EXPECT_EQ(grid.NodeAtRow(0)->info->GetControlType(0), CItemInfo::ctEdit);
    EXPECT_EQ(grid.NodeAtRow(0)->info->GetCellColor(0), CItemInfo::NoColor);
}

} // namespace
} // namespace korvel
