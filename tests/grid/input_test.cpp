#include "support/grid_fixture.h"
#include "support/table.h"

#include <functional>
#include <stdexcept>

namespace korvel {
namespace {

class GridInput : public GridTest {
protected:
    GridInput() {
        MakeBare(grid);
        for (const char* name : {"a", "b"}) {
            CTreeItem* top = Add(grid, nullptr, name, {"value"});
            for (const char* child : {"1", "2"}) {
                CTreeItem* node = Add(grid, top, name + std::string(child));
                Add(grid, node, node->info->text + "x");
            }
        }
    }
    void Open(int row) { grid.ExpandNode(grid.NodeAtRow(row), row); }
    void ExpectChecked(int row, bool checked) {
        EXPECT_EQ(grid.NodeAtRow(row)->info->checked != 0, checked) << row;
        EXPECT_EQ(grid.GetCheck(row), checked) << row;
    }

    HookedGrid grid;
};

TEST_F(GridInput, KeysOpenAndCloseTheSelectedRow) {
    grid.SetFocus();
    for (const UINT key : {VK_ADD, VK_MULTIPLY, VK_SUBTRACT, VK_DELETE, VK_RETURN})
        Press(grid, key); // no row is selected
    EXPECT_EQ(grid.Take(), Lines());
    Select(grid, 0);
    Press(grid, VK_ADD);
    EXPECT_EQ(Rows(grid), Lines({"a|value", " a1|", " a2|", "b|value"}));
    Press(grid, VK_MULTIPLY);
    EXPECT_EQ(Rows(grid), Lines({"a|value", " a1|", "  a1x|", " a2|", "  a2x|", "b|value"}));
    Press(grid, VK_SUBTRACT);
    EXPECT_EQ(Rows(grid), Lines({"a|value", "b|value"}));
    EXPECT_EQ(grid.Take(), Lines({"expand key a 0", "expand all a 0", "collapse key a 0"}));
}

TEST_F(GridInput, WhatIsRefusedLeavesTheTreeAsItWas) {
    const std::tuple<const char*, int, UINT> rows[] = {{"expand key", 2, VK_ADD},
                                                       {"expand all", 0, VK_MULTIPLY},
                                                       {"collapse key", 0, VK_SUBTRACT},
                                                       {"deleting", 0, VK_DELETE},
                                                       {"expanding", 2, 0},
                                                       {"collapsing", 0, 0}};
    Open(0);
    const Lines before = Rows(grid);
    for (const auto& [hook, row, key] : rows) {
        grid.refused = hook;
        Select(grid, row);
        if (key)
            Press(grid, key);
        else
            Click(grid, Sign(row, row ? 2 : 1));
        EXPECT_EQ(Rows(grid), before) << hook;
    }
}

TEST_F(GridInput, DeleteTakesTheRowWithAllBelowAndSelectsItsPlace) {
    const std::tuple<const char*, int, Lines, int> rows[] = {
        {"a child", 1, {"a|value", " a2|", "b|value", "c|"}, 1},
        {"the last row hands the selection up", 3, {"a|value", " a2|", "b|value"}, 2},
        {"row 0 selects nothing", 0, {"b|value"}, -1},
    };
    Add(grid, nullptr, "c");
    Open(0);
    Open(1);
    for (const auto& [border, selected, left, selectedAfter] : rows) {
        Select(grid, selected);
        Press(grid, VK_DELETE);
        EXPECT_EQ(Rows(grid), left) << border;
        EXPECT_EQ(SelectedRow(grid), selectedAfter) << border;
    }
}

TEST_F(GridInput, CheckBoxesToggleNothingElseAndChecksComeWithTheirNodes) {
    CTreeItem* first = grid.NodeAtRow(0);
    const CPoint box{16 + 8, Middle(0)};
    Select(grid, 0);
    Press(grid, VK_SPACE);
    EXPECT_EQ(first->info->checked, 0); // there are no check boxes
    grid.SetExtendedStyle(LVS_EX_CHECKBOXES);
    bool isChecked = false;
    const auto throwOnMark = [](const NMLISTVIEW& notice) {
        if ((notice.uNewState ^ notice.uOldState) & LVIS_STATEIMAGEMASK)
            throw std::runtime_error("of a handler");
    };
    for (const auto& [border, act] :
         Table<std::function<void()>>{{"the key", [&] { Press(grid, VK_SPACE); }},
                                      {"a click", [&] { Click(grid, box); }},
                                      {"a double click", [&] { Click(grid, box, WM_LBUTTONDBLCLK); }}}) {
        SCOPED_TRACE(border);
        grid.onNotice = nullptr;
        act();
        ExpectChecked(0, isChecked = !isChecked);
        grid.onNotice = throwOnMark;
        EXPECT_THROW(act(), std::runtime_error);
        ExpectChecked(0, isChecked = !isChecked);
        EXPECT_TRUE(display.IsInvalid(grid.m_hWnd)) << "the mark is drawn";
        display.PaintWindow(grid.m_hWnd);
    }
    grid.onNotice = nullptr;
    EXPECT_EQ(grid.Take(), Lines({"click a 0", "click a 0"}));
    first->children().back()->info->checked = 1;
    Open(0);
    EXPECT_FALSE(grid.GetCheck(1));
    EXPECT_TRUE(grid.GetCheck(2));
}

TEST_F(GridInput, SelectedRowsAreCheckedTogetherAndTheirNodesFollow) {
    grid.ModifyStyle(LVS_SINGLESEL, 0);
    grid.SetExtendedStyle(LVS_EX_CHECKBOXES);
    Add(grid, nullptr, "c");
    Select(grid, 0);
    Select(grid, 1);
    for (const bool byKey : {true, false}) {
        byKey ? Press(grid, VK_SPACE) : Click(grid, {16 + 8, Middle(1)});
        for (const int row : {0, 1, 2})
            ExpectChecked(row, byKey && row < 2);
    }
}

TEST_F(GridInput, ANodeWhoseMarkIsRefusedKeepsItsOwnWhereItMoves) {
    struct RefusingGrid : HookedGrid {
        bool isToRefuse = false;
        bool OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override {
            const bool asks =
                message == WM_NOTIFY && reinterpret_cast<const NMHDR*>(lParam)->code == LVN_ITEMCHANGING;
            if (!asks || !std::exchange(isToRefuse, false))
                return HookedGrid::OnChildNotify(message, wParam, lParam, result);
            Add(*this, nullptr, "new", {}, 0);
            *result = 1;
            return true;
        }
    };
    for (const bool byKey : {true, false}) {
        RefusingGrid refusing;
        MakeBare(refusing);
        refusing.SetExtendedStyle(LVS_EX_CHECKBOXES);
        const CTreeItem* node = Add(refusing, nullptr, "a");
        Select(refusing, 0);
        refusing.isToRefuse = true;
        byKey ? Press(refusing, VK_SPACE) : Click(refusing, {16 + 8, Middle(0)});
        EXPECT_EQ(refusing.RowOfNode(node), 1);
        EXPECT_EQ(node->info->checked, 0) << byKey;
        EXPECT_FALSE(refusing.GetCheck(1)) << byKey;
    }
}

TEST_F(GridInput, AMarkIsKeptWhereAHandlerClosesItsFamilyAndOpensIt) {
    grid.SetExtendedStyle(LVS_EX_CHECKBOXES);
    Open(0);
    Select(grid, 1);
    const CTreeItem* node = grid.NodeAtRow(1);
    bool isReady = true;
    grid.onNotice = [&](const NMLISTVIEW& notice) {
        if (!((notice.uNewState ^ notice.uOldState) & LVIS_STATEIMAGEMASK) || !std::exchange(isReady, false))
            return;
        EXPECT_EQ(node->info->checked, 1);
        grid.CollapseNode(grid.NodeAtRow(0));
        grid.ExpandNode(grid.NodeAtRow(0), 0);
    };
    Press(grid, VK_SPACE);
    grid.onNotice = nullptr;
    EXPECT_FALSE(isReady);
    ExpectChecked(1, true);
}

// The list alone would toggle the row with the focus.
TEST_F(GridInput, SpaceTogglesTheSelectedRowWhereTheFocusIsOnAnother) {
    grid.SetExtendedStyle(LVS_EX_CHECKBOXES);
    Select(grid, 1);
    grid.SetItemState(0, LVIS_FOCUSED, LVIS_FOCUSED);
    for (const int selected : {1, -1}) {
        Press(grid, VK_SPACE);
        ExpectChecked(0, false);
        ExpectChecked(1, true);
        EXPECT_EQ(SelectedRow(grid), selected);
        grid.SetItemState(1, 0, LVIS_SELECTED);
    }
}

TEST_F(GridInput, AClickOnTheSignTogglesAndOneBesideItReachesTheCell) {
    Click(grid, Sign(0, 1));
    EXPECT_EQ(grid.Take(), Lines({"click a 0", "expanding a 0", "expanded a 0"}));
    Click(grid, Sign(1, 2));
    EXPECT_EQ(grid.Take(), Lines({"click a1 1", "expanding a1 1", "expanded a1 1"}));
    Click(grid, Sign(2, 3)); // no sign stands there
    EXPECT_EQ(grid.Take(), Lines({"click a1x 2", "cell 0 a1x 2"}));
    Click(grid, Sign(0, 1));
    EXPECT_EQ(grid.Take(), Lines({"click a 0", "collapsing a 0", "collapsed a 0"}));

    Click(grid, Value(1));
    EXPECT_EQ(grid.Take(), Lines({"click b 1", "cell 1 b 1"}));
    EXPECT_EQ(SelectedRow(grid), 1);
    EXPECT_EQ(grid.GetCurrentColumn(), 1);
    EXPECT_EQ(GetFocus(), grid.m_hWnd);
    grid.refused = "click";
    Click(grid, Label(0));
    EXPECT_EQ(grid.Take(), Lines({"click a 0"}));
    EXPECT_EQ(SelectedRow(grid), 1);
    Click(grid, Label(5)); // below the rows
    EXPECT_EQ(grid.Take(), Lines());
}

// A double click that collapses scrolls to the top, a click on the sign stays where it is.
TEST_F(GridInput, CollapsingByDoubleClickScrollsToTheTop) {
    CTreeItem* last = grid.NodeAtRow(1);
    for (int i = 0; i < 30; ++i)
        Add(grid, grid.NodeAtRow(0), "more");
    Open(0);
    const int row = grid.RowOfNode(last);
    Open(row);
    grid.EnsureVisible(row + 2, false);
    Click(grid, Sign(row - grid.GetTopIndex(), 1));
    EXPECT_TRUE(last->collapsed());
    EXPECT_GT(grid.GetTopIndex(), 0);
    Click(grid, Label(row - grid.GetTopIndex()), WM_LBUTTONDBLCLK);
    EXPECT_FALSE(last->collapsed());
    EXPECT_GT(grid.GetTopIndex(), 0);
    Click(grid, Label(row - grid.GetTopIndex()), WM_LBUTTONDBLCLK);
    EXPECT_TRUE(last->collapsed());
    EXPECT_EQ(grid.GetTopIndex(), 0);
}

TEST_F(GridInput, ArrowsMoveTheColumnWithinTheHeaderAndIntoView) {
    Select(grid, 0);
    grid.SetColumnWidth(1, 400); // the list is 300 wide
    for (const auto& [key, column] : {std::pair(VK_LEFT, 0), {VK_RIGHT, 1}, {VK_RIGHT, 1}, {VK_LEFT, 0}}) {
        Press(grid, key);
        EXPECT_EQ(grid.GetCurrentColumn(), column);
        CRect cell;
        grid.GetSubItemRect(0, column, LVIR_LABEL, &cell);
        EXPECT_TRUE(column == 0 ? cell.right == 150 : cell.left == 0) << cell.left;
    }
}

TEST_F(GridInput, ARowThatIsDroppedOnAnotherMovesBelowIt) {
    Open(0);
    Drag(grid, 0, 1); // into itself
    Drag(grid, 1, 0); // to where it is
    EXPECT_EQ(Rows(grid), Lines({"a|value", " a1|", " a2|", "b|value"}));
    Drag(grid, 1, 3);
    EXPECT_EQ(Rows(grid), Lines({"a|value", " a2|", "b|value"}));
    grid.ExpandSubtree(grid.NodeAtRow(2)->children().back(), nullptr);
    EXPECT_EQ(grid.NodeAtRow(2)->children().back()->children().size(), 1);
}

TEST_F(GridTest, AClickInAnAttributeGridLeadsToTheMemberOfTheCell) {
    HostGrid grid(nullptr, nullptr);
    Make(grid);
    grid.ModifyStyle(0, LVS_EDITLABELS);
    point.With("x", Flag(true)).With("y", Flag(false));
    root.With("p", Group(&point)).With("name", Words(DT_String, "A"));
    grid.Initialize(&root, "Name", "Value", 0);
    grid.ExpandAll();
    const Lines before = Rows(grid);
    Click(grid, {250, Middle(1)});
    Click(grid, {150, Middle(3)});
    grid.SetAllowEdit(false);
    Click(grid, {250, Middle(1)});
    EXPECT_EQ(grid.edits, "1:1 point.x 3:0 root.name ");

    Select(grid, 1); // rows are neither deleted nor dragged nor renamed
    Press(grid, VK_DELETE);
    Drag(grid, 3, 0);
    EXPECT_EQ(grid.EditLabel(1), nullptr);
    Press(grid, VK_RETURN);
    EXPECT_EQ(GetFocus(), grid.m_hWnd);
    EXPECT_EQ(Rows(grid), before);

    grid.Clear();
    grid.SetAllowEdit(true);
    grid.SetColumnInfo({{0, 100}, {1, 100}, {2, 90}});
    grid.SetLayoutMultiColumn({"Name", "x", "y"});
    grid.Initialize(&root, "", "", 0);
    grid.edits.clear();
    Click(grid, {250, Middle(0)});
    EXPECT_EQ(grid.edits, "0:2 point.y ");
}

} // namespace
} // namespace korvel
