#include "support/list_fixture.h"

namespace korvel {
namespace {

class ListSelection : public ListTest {};

TEST_F(ListSelection, TheNewRowIsAskedFirstAndTheFormerOneHasChangedBeforeIt) {
    MakeList(3);
    Choose(0);
    parent.notices.clear();
    Choose(2);
    EXPECT_EQ(parent.Take(), (Notices{"changing 2", "changing 0", "changed 0", "changed 2"}));
    EXPECT_EQ(Selected(), Rows{2});
    Choose(2);
    EXPECT_EQ(parent.Take(), Notices{}) << "an equal state";
}

TEST_F(ListSelection, ARefusalKeepsSelectionFocusMarkAndScrolling) {
    const auto choose = [this] { EXPECT_FALSE(list.SetItemState(2, Both, Both)); };
    const auto click = [this] { Click(InRow(2)); };
    for (const auto& [border, style, refusing, act, asked] : Table<UINT, int, std::function<void()>, Notices>{
             {"the new row", LVS_SINGLESEL, 2, choose, {"changing 2"}},
             {"the former row", LVS_SINGLESEL, 0, choose, {"changing 2", "changing 0"}},
             {"a row that would lose the focus alone", 0, 0, choose, {"changing 2", "changing 0"}},
             {"a click where several can be selected", 0, 2, click, {"changing 2", "click 2"}},
             {"a key", LVS_SINGLESEL, 8, [this] { Key(VK_END); }, {"changing 8"}},
             {"a key with Control", 0, 8, [this] { KeyWith(VK_CONTROL, VK_END); }, {"changing 8"}},
             {"a key with Shift", 0, 8, [this] { KeyWith(VK_SHIFT, VK_END); }, {"changing 8"}}}) {
        SCOPED_TRACE(border);
        MakeList(9, style);
        Choose(0);
        parent.notices.clear();
        parent.on[LVN_ITEMCHANGING] = [row = refusing](const NMLISTVIEW& notice) {
            return notice.iItem == row;
        };
        act();
        EXPECT_EQ(parent.Take(), asked);
        EXPECT_EQ(State(), "0|0|0");
        EXPECT_EQ(list.GetSelectionMark(), 0);
    }
}

TEST_F(ListSelection, RowMinusOneMeansAllRows) {
    for (const auto& [border, style, rows] :
         Table<UINT, Rows>{{"several", 0, {0, 1, 2}}, {"only one can be", LVS_SINGLESEL, {}}}) {
        MakeList(3, style);
        EXPECT_EQ(list.SetItemState(-1, LVIS_SELECTED, LVIS_SELECTED), !rows.empty()) << border;
        EXPECT_EQ(Selected(), rows) << border;
        EXPECT_TRUE(list.SetItemState(-1, 0, LVIS_SELECTED)) << border;
        EXPECT_EQ(Selected(), Rows{}) << border;
    }
}

TEST_F(ListSelection, NextItemCombinesItsFlags) {
    MakeList(4, 0);
    Select(1);
    list.SetItemState(3, Both, Both);
    for (const auto& [border, from, flags, found] :
         Table<int, UINT, int>{{"any row", -1, 0, 0},
                               {"after the last row", 3, 0, -1},
                               {"after a selected row", 1, LVNI_SELECTED, 3},
                               {"selected and focused", -1, LVNI_SELECTED | LVNI_FOCUSED, 3},
                               {"the focused row itself is not after it", 3, LVNI_FOCUSED, -1},
                               {"two before the first row", -2, LVNI_SELECTED, -1},
                               {"no row, though one has the focus", 4, LVNI_FOCUSED, -1}})
        EXPECT_EQ(list.GetNextItem(from, flags), found) << border;
    list.SetItemState(0, LVIS_FOCUSED, LVIS_FOCUSED);
    EXPECT_EQ(list.GetNextItem(2, LVNI_FOCUSED), 0) << "from below the focused row";
}

TEST_F(ListSelection, KeysMoveFocusAndSelection) {
    MakeList(12); // five are on screen
    for (const auto& [border, key, state] :
         Table<UINT, const char*>{{"nothing has the focus yet", VK_DOWN, "0|0|0"},
                                  {"the first row stays", VK_UP, "0|0|0"},
                                  {"to the border of the page", VK_NEXT, "4|4|0"},
                                  {"on by a page", VK_NEXT, "8|8|4"},
                                  {"to the upper border", VK_PRIOR, "4|4|4"},
                                  {"back by a page", VK_PRIOR, "0|0|0"},
                                  {"the last row", VK_END, "11|11|7"},
                                  {"the last row stays", VK_DOWN, "11|11|7"},
                                  {"the first row", VK_HOME, "0|0|0"}}) {
        Key(key);
        EXPECT_EQ(State(), state) << border;
    }
}

TEST_F(ListSelection, ShiftExtendsAndControlMovesTheFocusAlone) {
    MakeList(6, 0);
    Choose(1);
    for (const auto& [border, modifier, key, state] :
         Table<UINT, UINT, const char*>{{"a row more", VK_SHIFT, VK_DOWN, "1,2|2|0"},
                                        {"over the mark, where it began", VK_SHIFT, VK_HOME, "0,1|0|0"},
                                        {"the focus", VK_CONTROL, VK_END, "0,1|5|1"},
                                        {"its row too", VK_CONTROL, VK_SPACE, "0,1,5|5|1"}}) {
        KeyWith(modifier, key);
        EXPECT_EQ(State(), state) << border;
    }
}

TEST_F(ListSelection, SpaceTogglesTheCheckWhichIsPartOfTheState) {
    MakeList(3, 0);
    list.SetExtendedStyle(LVS_EX_CHECKBOXES);
    Key(VK_SPACE, " "); // without a focus row nothing happens
    Key(VK_DOWN);
    parent.on[LVN_ITEMCHANGED] = [](const NMLISTVIEW& notice) -> LRESULT {
        EXPECT_EQ(notice.uOldState & LVIS_STATEIMAGEMASK, 0x1000u);
        EXPECT_EQ(notice.uNewState & LVIS_STATEIMAGEMASK, 0x2000u);
        return 0;
    };
    Key(VK_SPACE, " ");
    parent.on.clear();
    KeyWith(VK_SHIFT, VK_DOWN); // the other selected rows take the check of the one that is toggled
    Key(VK_SPACE, " ");
    for (const int row : {0, 1, 2})
        EXPECT_EQ(list.GetCheck(row), row < 2) << row;
    EXPECT_TRUE(list.SetItemState(1, 0x1000, LVIS_STATEIMAGEMASK));
    EXPECT_FALSE(list.GetCheck(1));
}

TEST_F(ListSelection, TypingFindsTheNextRowThatBeginsSo) {
    using namespace std::chrono_literals;
    MakeList(0);
    for (const char* text :
         {"Bahn", "Berg", "anders", "Bergwerk", "\xC4nderung", "\x9Akoda", "\x81\xE2\xE1\xF3", " x"})
        list.InsertItem(99, text);
    display.Advance(10s);
    for (const auto& [border, typed, pause, row] : Table<const char*, std::chrono::milliseconds, int>{
             {"a blank begins no search", " ", 0ms, -1},
             {"small letters find capital ones", "b", 0ms, 0},
             {"the same letter goes on", "b", 0ms, 1},
             {"and on", "b", 0ms, 3},
             {"round the end, after the pause", "b", 1001ms, 0},
             {"a second letter narrows, in time", "e", 1000ms, 1},
             {"the found row still fits", "rg", 0ms, 1},
             {"no row begins so", "z", 0ms, 1},
             {"a capital umlaut", "\xE4", 1001ms, 4},
             {"a letter of the page's middle rows", "\x8A", 1001ms, 5},
             {"a letter outside the page", "\x81\xE2\xE2", 1001ms, 6},
             {"and a second one", "\xF3", 0ms, 6}}) {
        display.Advance(pause);
        EXPECT_TRUE(input::Key(list.m_hWnd, WM_KEYDOWN, 0, typed)) << border;
        EXPECT_EQ(Focused(), row) << border;
    }
}

} // namespace
} // namespace korvel
