#include "korvel/editors/cell_conversion.h"
#include "korvel/editors/dice.h"
#include "korvel/grid/edit_decision.h"
#include "support/table.h"

#include <gtest/gtest.h>
#include <vector>

namespace korvel::internal {
namespace {

using enum CellAction;

constexpr CRect Cell{100, 40, 200, 60}; // squares are 20 by 20 pixels, within the cell 18 by 18

// What a click at the left edge, in the middle, in the square left of the right one and in the right one
// means.
struct Answers {
    CellAction left, middle, secondSquare, rightSquare;
    bool operator==(const Answers&) const = default;
};

CONTROLTYPE ControlOf(EDataTyps type) {
    const auto conversion = FindCellConversion(type);
    return type == DT_Group ? ctButton : conversion ? conversion->control : ctEdit;
}

EditDecision Decide(EDataTyps type, bool isEditable, int x, CRect cell = Cell) {
    return DecideEdit({type, ControlOf(type), isEditable, cell, {x, cell.top + 10}});
}

Answers Ask(EDataTyps type, bool isEditable) {
    const auto at = [&](int x) { return Decide(type, isEditable, x).action; };
    return {at(100), at(150), at(170), at(195)};
}

TEST(EditDecision, SaysByTypeWhatAClickMeans) {
    const auto everywhere = [](CellAction action) { return Answers{action, action, action, action}; };
    const Answers text = everywhere(EditText), nothing = everywhere(None);
    constexpr Answers Button{None, None, None, PressButton}, Group{None, None, None, PressGroup};
    const auto all = [](auto... types) { return std::vector{EDataTyps(types)...}; };
    const auto plain = all(DT_Int, DT_Long, DT_UInt, DT_Float, DT_Double, DT_String, DT_LengthFloat,
                           DT_AreaDouble, DT_VolumeFloat, DT_PercentDouble, DT_CurrencyFloat,
                           DT_ManDaysDouble, DT_RailwayStationDouble, DT_RoadStationFloat);
    const auto texts = all(DT_TextFormInt, DT_TextFormDouble, DT_Bool | TypeBitTextForm,
                           DT_ColorARGB | TypeBitTextForm, DT_AngleDouble | TypeBitTextForm);
    const auto buttons = all(DT_Int | TypeBitButton, DT_String | TypeBitButton, DT_ColorARGB | TypeBitButton);
    const auto lists = all(DT_ListInt, DT_ListLong, DT_ListFloat, DT_ListDouble, DT_ListString);
    const Answers path{EditPath, EditPath, OpenFile, BrowseFile};
    const Table<std::vector<EDataTyps>, Answers, Answers> rows = {
        {"plain values, measures and stations", plain, text, nothing},
        {"text forms", texts, text, nothing},
        {"a flag", {DT_Bool}, {ToggleFlag, None, None, None}, nothing},
        {"colors", {DT_ColorRGB, DT_ColorARGB}, {ChooseColor, None, None, None}, nothing},
        {"angles", {DT_AngleFloat, DT_AngleDouble}, {EditText, EditText, EditText, ChangeAngleUnit}, nothing},
        {"lists", lists, everywhere(DropList), nothing},
        {"a date", {DT_Date}, everywhere(PickDate), nothing},
        {"a file opens also while it is protected", {DT_FileName}, path, {None, None, OpenFile, None}},
        {"buttons act also while they are protected", buttons, Button, Button},
        {"a group", {DT_Group}, Group, Group},
        {"ranges", {DT_RangeInt, DT_RangeFloat, DT_RangeDouble}, everywhere(EditBesideSpin), nothing},
        {"random numbers", {DT_RandomInt, DT_RandomUInt}, {EditText, EditText, EditText, RollDice}, nothing},
        {"what has no cell", {DT_Void, EDataTyps(TypeBitList), EDataTyps(0x8002)}, nothing, nothing}};
    for (const auto& [border, types, editable, guarded] : rows)
        for (const EDataTyps type : types) {
            EXPECT_EQ(Ask(type, true), editable) << border << " 0x" << std::hex << type;
            EXPECT_EQ(Ask(type, false), guarded) << border << " 0x" << std::hex << type;
        }
}

TEST(EditDecision, DoesNothingInACellThatShowsAnotherControl) {
    const Table<EDataTyps, CONTROLTYPE, CellAction> rows = {
        {"a number with a button", DT_Int, ctButton, None},
        {"a list that was a number", DT_ListInt, ctEdit, None},
        {"a group without a text", DT_Group, ctEdit, None},
        {"flags are toggled whatever is shown", DT_Bool, ctEdit, ToggleFlag},
        {"colors as well", DT_ColorRGB, ctEdit, ChooseColor}};
    for (const auto& [border, type, control, action] : rows)
        for (const int x : {105, 195})
            EXPECT_EQ(DecideEdit({type, control, true, Cell, {x, 50}}).action, x == 105 ? action : None)
                << border;
}

TEST(EditDecision, PlacesControlsInTheCell) {
    constexpr CRect Inside{101, 41, 199, 59};
    constexpr CRect Narrow{100, 40, 121, 60};
    const Table<EDataTyps, CRect, CRect, CRect> rows = {
        {"text", DT_Double, Cell, Inside, {}},
        {"an angle ends a pixel before its unit", DT_AngleDouble, Cell, {101, 41, 179, 59}, {}},
        {"a random number ends at its dice", DT_RandomInt, Cell, {101, 41, 180, 59}, {}},
        {"a path ends at the squares", DT_FileName, Cell, {101, 41, 163, 59}, {}},
        {"a date is higher than the cell", DT_Date, Cell, {101, 39, 199, 61}, {}},
        {"a spin button is wider than high", DT_RangeInt, Cell, {101, 41, 169, 59}, {170, 40, 200, 60}},
        {"an odd height rounds up", DT_RangeInt, {100, 40, 200, 61}, {101, 41, 167, 60}, {168, 40, 200, 61}},
        {"a spin button fills a narrow cell", DT_RangeInt, Narrow, {}, Narrow},
        {"no room beside the dice", DT_RandomUInt, Narrow, {}, {}},
        {"no room beside the unit", DT_AngleFloat, {100, 40, 122, 60}, {}, {}}};
    for (const auto& [border, type, cell, field, spin] : rows) {
        const EditDecision decision = Decide(type, true, 100, cell);
        EXPECT_EQ(decision.field, field) << border;
        EXPECT_EQ(decision.spin, spin) << border;
        const bool isOpened = !field.IsRectEmpty() || !spin.IsRectEmpty();
        EXPECT_EQ(decision.action != None, isOpened) << border;
    }
}

TEST(EditDecision, FindsThePlaceThatAKeyClicks) {
    using enum CellKey;
    const Table<CellKey, EDataTyps, bool, CellAction> rows = {
        {"a number", Open, DT_Double, true, EditText},
        {"an angle, not its unit", Open, DT_AngleDouble, true, EditText},
        {"a random number, not its dice", Open, DT_RandomInt, true, EditText},
        {"a range", Open, DT_RangeInt, true, EditBesideSpin},
        {"a date", Open, DT_Date, true, PickDate},
        {"a list", Open, DT_ListString, true, DropList},
        {"a color", Open, DT_ColorRGB, true, ChooseColor},
        {"a path", Open, DT_FileName, true, EditPath},
        {"a file whose path is not typed", Open, DT_FileName, false, BrowseFile},
        {"a button", Open, EDataTyps(DT_Int | TypeBitButton), true, PressButton},
        {"a flag is toggled, not opened", Open, DT_Bool, true, None},
        {"a group is no cell", Open, DT_Group, true, None},
        {"a flag", Toggle, DT_Bool, true, ToggleFlag},
        {"nothing else is toggled", Toggle, DT_ColorRGB, true, None},
        {"a list drops", Drop, DT_ListInt, true, DropList},
        {"nothing else drops", Drop, DT_Date, true, None}};
    for (const auto& [border, key, type, canTypePath, action] : rows) {
        const auto point = PointOfKey(key, type, canTypePath, Cell);
        EXPECT_EQ(point ? Decide(type, true, point->x).action : None, action) << border;
    }
}

TEST(Dice, GiveTheNumbersOfTheTwisterFrom1To99) {
    EXPECT_EQ(internal::RollDice(5489), 81u); // of 3499211612, the first word of the twister's published test
    std::vector<int> counts(100);
    for (std::uint32_t seed = 0; seed < 20000; ++seed)
        ++counts.at(internal::RollDice(seed));
    EXPECT_EQ(counts[0], 0);
    for (int face = 1; face <= 99; ++face)
        EXPECT_NEAR(counts[static_cast<std::size_t>(face)], 202, 80) << face;
}

} // namespace
} // namespace korvel::internal
