#include "grid_fixture.h"

namespace korvel {
namespace {

using CTreeItem = CSuperGridCtrl::CTreeItem;

/// A bare grid that writes down its hooks, and refuses the one that it is told to refuse.
class HookedGrid : public CSuperGridCtrl {
public:
    BOOL OnNodeExpanding(CTreeItem* node, int row) override { return Hook("expanding", node, row); }
    BOOL OnNodeExpanded(CTreeItem* node, int row) override { return Hook("expanded", node, row); }
    BOOL OnNodeCollapsing(CTreeItem* node) override { return Hook("collapsing", node, node->row()); }
    BOOL OnNodeCollapsed(CTreeItem* node) override { return Hook("collapsed", node, node->row()); }
    BOOL OnRowDeleting(CTreeItem* node, int row) override { return Hook("deleting", node, row); }
    BOOL OnExpandAllKey(CTreeItem* node, int row) override { return Hook("expand all", node, row); }
    BOOL OnCollapseKey(CTreeItem* node, int row) override { return Hook("collapse key", node, row); }
    BOOL OnExpandKey(CTreeItem* node, int row) override { return Hook("expand key", node, row); }
    BOOL OnRowClick(LVHITTESTINFO& hit) override { return Hook("click", NodeAtRow(hit.iItem), hit.iItem); }
    void OnControlLButtonDown(UINT, CPoint, LVHITTESTINFO& hit) override {
        Hook("cell " + std::to_string(hit.iSubItem), NodeAtRow(hit.iItem), hit.iItem);
    }

    Lines Take() { return std::exchange(m_log, {}); }
    std::string refused;

private:
    BOOL Hook(const std::string& name, const CTreeItem* node, int row) {
        m_log.push_back(name + " " + node->info->text + " " + std::to_string(row));
        return name != refused;
    }
    Lines m_log;
};

class GridInput : public GridTest {
protected:
    static constexpr int RowHeight = 20;
    static constexpr int HeaderHeight = 24;

    GridInput() {
        MakeBare(grid);
        for (const char* name : {"a", "b"}) {
            CTreeItem* root = grid.AddRootNode(Info(name, {"value"}), nullptr);
            for (const char* child : {"1", "2"}) {
                CTreeItem* node = grid.AddChildNode(root, Info(name + std::string(child)), 1, nullptr);
                grid.AddChildNode(node, Info(node->info->text + "x"), 1, nullptr);
            }
        }
    }

    static int Middle(int row) { return HeaderHeight + row * RowHeight + RowHeight / 2; }
    static CPoint Sign(int row, int depth) { return {(depth - 1) * 16 + 8, Middle(row)}; }
    static CPoint Label(int row) { return {100, Middle(row)}; }
    static CPoint Value(int row) { return {200, Middle(row)}; }

    HookedGrid grid;
};

TEST_F(GridInput, KeysOpenAndCloseTheSelectedRow) {
    Select(grid, 0);
    Press(grid, VK_ADD);
    EXPECT_EQ(Lines({"a|value", " a1|", " a2|", "b|value"}), Rows(grid));
    Press(grid, VK_MULTIPLY);
    EXPECT_EQ(Lines({"a|value", " a1|", "  a1x|", " a2|", "  a2x|", "b|value"}), Rows(grid));
    Press(grid, VK_SUBTRACT);
    EXPECT_EQ(Lines({"a|value", "b|value"}), Rows(grid));
    EXPECT_EQ(Lines({"expand key a 0", "expand all a 0", "collapse key a 0"}), grid.Take());
}

struct RefusalRow {
    const char* hook;
    UINT key;
};

TEST_F(GridInput, ARefusedKeyLeavesTheTreeAsItWas) {
    const RefusalRow rows[] = {
        {"expand key", VK_ADD},
        {"expand all", VK_MULTIPLY},
        {"collapse key", VK_SUBTRACT},
        {"deleting", VK_DELETE},
    };
    grid.ExpandNode(grid.NodeAtRow(0), 0);
    grid.ExpandNode(grid.NodeAtRow(1), 1);
    const Lines before = Rows(grid);
    for (const RefusalRow& row : rows) {
        Select(grid, row.key == VK_ADD ? 2 : 0);
        grid.refused = row.hook;
        Press(grid, row.key);
        EXPECT_EQ(before, Rows(grid)) << row.hook;
    }
}

TEST_F(GridInput, WithoutASelectedRowKeysDoNothing) {
    grid.SetFocus();
    for (const UINT key : {VK_ADD, VK_MULTIPLY, VK_SUBTRACT, VK_DELETE, VK_RETURN})
        Press(grid, key);
    EXPECT_EQ(Lines(), grid.Take());
    EXPECT_EQ(2, grid.GetItemCount());
}

struct DeletionRow {
    const char* name;
    int selected;
    Lines left;
    int selectedAfter;
};

TEST_F(GridInput, DeleteTakesTheRowWithAllBelowAndSelectsItsPlace) {
    const DeletionRow rows[] = {
        {"a child", 1, {"a|value", " a2|", "b|value"}, 1},
        {"the last row hands the selection up", 2, {"a|value", " a2|"}, 1},
        {"row 0 selects nothing", 0, {}, -1},
    };
    grid.ExpandNode(grid.NodeAtRow(0), 0);
    grid.ExpandNode(grid.NodeAtRow(1), 1);
    for (const DeletionRow& row : rows) {
        Select(grid, row.selected);
        Press(grid, VK_DELETE);
        EXPECT_EQ(row.left, Rows(grid)) << row.name;
        EXPECT_EQ(row.selectedAfter, SelectedRow(grid)) << row.name;
    }
}

TEST_F(GridInput, SpaceTogglesTheCheckOnlyWhereThereAreCheckBoxes) {
    Select(grid, 0);
    Press(grid, VK_SPACE);
    EXPECT_EQ(0, grid.NodeAtRow(0)->info->checked);
    grid.SetExtendedStyle(LVS_EX_CHECKBOXES);
    Press(grid, VK_SPACE);
    EXPECT_EQ(1, grid.NodeAtRow(0)->info->checked);
    EXPECT_TRUE(grid.GetCheck(0));
}

TEST_F(GridInput, CheckedNodesBringTheirMark) {
    grid.SetExtendedStyle(LVS_EX_CHECKBOXES);
    CTreeItem* root = grid.NodeAtRow(0);
    root->children().back()->info->checked = 1;
    grid.ExpandNode(root, 0);
    EXPECT_FALSE(grid.GetCheck(1));
    EXPECT_TRUE(grid.GetCheck(2));
}

TEST_F(GridInput, AClickOnTheCheckBoxTogglesNothingElse) {
    grid.SetExtendedStyle(LVS_EX_CHECKBOXES);
    const CPoint box{16 + 8, Middle(1)};
    Click(grid, box);
    EXPECT_EQ(1, grid.NodeAtRow(1)->info->checked);
    EXPECT_TRUE(grid.GetCheck(1));
    Click(grid, box, WM_LBUTTONDBLCLK);
    EXPECT_EQ(0, grid.NodeAtRow(1)->info->checked);
    EXPECT_EQ(Lines({"click b 1"}), grid.Take());
}

TEST_F(GridInput, AClickOnTheSignTogglesAndOneBesideItReachesTheCell) {
    Click(grid, Sign(0, 1));
    EXPECT_EQ(Lines({"click a 0", "expanding a 0", "expanded a 0"}), grid.Take());
    Click(grid, Sign(1, 2));
    EXPECT_EQ(Lines({"click a1 1", "expanding a1 1", "expanded a1 1"}), grid.Take());
    Click(grid, Sign(2, 3)); // no sign stands there
    EXPECT_EQ(Lines({"click a1x 2", "cell 0 a1x 2"}), grid.Take());
    Click(grid, Sign(0, 1));
    EXPECT_EQ(Lines({"click a 0", "collapsing a 0", "collapsed a 0"}), grid.Take());
    EXPECT_EQ(2, grid.GetItemCount());
}

TEST_F(GridInput, AClickInACellSelectsTheRowAndTheColumn) {
    Click(grid, Value(1));
    EXPECT_EQ(Lines({"click b 1", "cell 1 b 1"}), grid.Take());
    EXPECT_EQ(1, SelectedRow(grid));
    EXPECT_EQ(1, grid.GetCurrentColumn());
    EXPECT_EQ(grid.m_hWnd, GetFocus());
    grid.refused = "click";
    Click(grid, Label(0));
    EXPECT_EQ(Lines({"click a 0"}), grid.Take());
    EXPECT_EQ(1, SelectedRow(grid));
    Click(grid, {100, Middle(5)}); // below the rows
    EXPECT_EQ(Lines(), grid.Take());
}

TEST_F(GridInput, ARefusedToggleLeavesTheRows) {
    grid.refused = "expanding";
    Click(grid, Sign(0, 1));
    EXPECT_EQ(2, grid.GetItemCount());
    grid.refused = "collapsing";
    Click(grid, Sign(0, 1));
    Click(grid, Sign(0, 1));
    EXPECT_EQ(4, grid.GetItemCount());
}

// A double click that collapses scrolls to the top, a click on the sign stays where it is.
TEST_F(GridInput, CollapsingByDoubleClickScrollsToTheTop) {
    CTreeItem* last = grid.NodeAtRow(1);
    for (int i = 0; i < 30; ++i)
        grid.AddChildNode(grid.NodeAtRow(0), Info("more"), 1, nullptr);
    grid.ExpandNode(grid.NodeAtRow(0), 0);
    const int row = grid.RowOfNode(last);
    grid.ExpandNode(last, row);
    grid.EnsureVisible(row + 2, false);
    const int top = grid.GetTopIndex();
    ASSERT_GT(top, 0);
    Click(grid, Sign(row - top, 1));
    EXPECT_GT(grid.GetTopIndex(), 0);
    Click(grid, Label(row - grid.GetTopIndex()), WM_LBUTTONDBLCLK);
    EXPECT_FALSE(last->collapsed());
    EXPECT_GT(grid.GetTopIndex(), 0);
    Click(grid, Label(row - grid.GetTopIndex()), WM_LBUTTONDBLCLK);
    EXPECT_TRUE(last->collapsed());
    EXPECT_EQ(0, grid.GetTopIndex());
}

TEST_F(GridInput, ArrowsMoveTheColumnWithinTheHeader) {
    Select(grid, 0);
    grid.SetColumnWidth(1, 400); // the list is 300 wide
    Press(grid, VK_LEFT);
    EXPECT_EQ(0, grid.GetCurrentColumn());
    Press(grid, VK_RIGHT);
    EXPECT_EQ(1, grid.GetCurrentColumn());
    CRect cell;
    grid.GetSubItemRect(0, 1, LVIR_LABEL, &cell);
    EXPECT_EQ(0, cell.left);
    Press(grid, VK_RIGHT);
    EXPECT_EQ(1, grid.GetCurrentColumn());
    Press(grid, VK_LEFT);
    grid.GetItemRect(0, &cell);
    EXPECT_EQ(0, cell.left);
}

struct CellEditRow {
    const char* name;
    UINT ending; // 0: the focus goes elsewhere
    const char* text;
};

TEST_F(GridInput, ReturnEditsTheCurrentCellOfABareGrid) {
    const CellEditRow rows[] = {
        {"Return takes", VK_RETURN, "typed"},
        {"Escape drops", VK_ESCAPE, "value"},
        {"leaving takes", 0, "typed"},
    };
    for (const CellEditRow& row : rows) {
        grid.NodeAtRow(1)->info->SetSubItem(0, "value");
        Select(grid, 1);
        Press(grid, VK_RIGHT);
        Press(grid, VK_RETURN);
        const HWND edit = GetFocus();
        ASSERT_NE(grid.m_hWnd, edit) << row.name;
        EXPECT_EQ("value", GetWindowTextA(edit)) << row.name;
        SetWindowTextA(edit, "typed");
        if (row.ending)
            input::Key(edit, WM_KEYDOWN, row.ending, "");
        else
            SetFocus(frame.m_hWnd);
        EXPECT_EQ(row.text, grid.NodeAtRow(1)->info->GetSubItem(0)) << row.name;
        EXPECT_FALSE(IsWindowVisible(edit)) << row.name;
    }
    EXPECT_EQ("value", grid.NodeAtRow(0)->info->GetSubItem(0));
}

TEST_F(GridInput, ACellEditDoesNotOutliveItsRow) {
    Select(grid, 0);
    Press(grid, VK_RETURN);
    const HWND edit = GetFocus();
    SetWindowTextA(edit, "typed");
    grid.RemoveRootNode(grid.NodeAtRow(0));
    grid.RebuildRows();
    input::Key(edit, WM_KEYDOWN, VK_RETURN, "");
    EXPECT_EQ(Lines({"b|value"}), Rows(grid));
    Press(grid, VK_RETURN);
    grid.DestroyWindow();
}

TEST_F(GridInput, ARowThatIsDroppedOnAnotherMovesBelowIt) {
    grid.ExpandNode(grid.NodeAtRow(0), 0);
    const auto drag = [&](int from, int to) {
        input::Mouse(grid.m_hWnd, WM_LBUTTONDOWN, MK_LBUTTON, Label(from));
        input::Mouse(grid.m_hWnd, WM_MOUSEMOVE, MK_LBUTTON, Label(to));
        input::Mouse(grid.m_hWnd, WM_MOUSEMOVE, MK_LBUTTON, Label(to));
        input::Mouse(grid.m_hWnd, WM_LBUTTONUP, 0, Label(to));
    };
    drag(0, 1); // into itself
    drag(1, 0); // to where it is
    EXPECT_EQ(Lines({"a|value", " a1|", " a2|", "b|value"}), Rows(grid));
    drag(1, 3);
    EXPECT_EQ(Lines({"a|value", " a2|", "b|value"}), Rows(grid));
    EXPECT_EQ(3, grid.NodeAtRow(2)->children().size());
    EXPECT_EQ(1, grid.NodeAtRow(2)->children().back()->children().size());
    EXPECT_EQ(nullptr, GetCapture());
}

/// Writes down the edits that clicks in an attribute grid ask for.
class EditedGrid : public CEditableGrid {
public:
    using CEditableGrid::CEditableGrid;
    Lines edits;

protected:
    void OnEdit(CItemInfo*, int row, int column, CPoint, IMemberDispatch* disp,
                const CString& name) override {
        edits.push_back(std::to_string(row) + ":" + std::to_string(column) + " " + disp->GetIdent() + "." +
                        name);
    }
};

class AttributeGridInput : public GridTest {
protected:
    AttributeGridInput() {
        point.With("x", Flag(true)).With("y", Flag(false));
        root.With("p", Group(&point)).With("name", Words(DT_String, "A"));
        Make(grid);
    }
    HostObject& point = Object("point");
    HostObject& root = Object("root");
    EditedGrid grid{nullptr, nullptr};
};

TEST_F(AttributeGridInput, AClickLeadsToTheMemberOfTheCell) {
    grid.Initialize(&root, "Name", "Value", 0);
    grid.ExpandAll();
    Click(grid, {250, 24 + 30});
    Click(grid, {150, 24 + 70});
    grid.SetAllowEdit(false);
    Click(grid, {250, 24 + 30});
    EXPECT_EQ(Lines({"1:1 point.x", "3:0 root.name"}), grid.edits);
}

TEST_F(AttributeGridInput, AClickInTheMultiColumnLayoutLeadsToTheMemberOfTheColumn) {
    grid.SetColumnInfo({{0, 100}, {1, 100}, {2, 90}});
    grid.SetLayoutMultiColumn({"Name", "x", "y"});
    grid.Initialize(&root, "", "", 0);
    Click(grid, {250, 24 + 10});
    EXPECT_EQ(Lines({"0:2 point.y"}), grid.edits);
}

TEST_F(AttributeGridInput, RowsAreNeitherDeletedNorDraggedNorRenamed) {
    grid.ModifyStyle(0, LVS_EDITLABELS);
    grid.Initialize(&root, "Name", "Value", 0);
    const Lines before = Rows(grid);
    Select(grid, 1);
    Press(grid, VK_DELETE);
    input::Mouse(grid.m_hWnd, WM_LBUTTONDOWN, MK_LBUTTON, {100, 24 + 30});
    input::Mouse(grid.m_hWnd, WM_MOUSEMOVE, MK_LBUTTON, {100, 24 + 10});
    input::Mouse(grid.m_hWnd, WM_LBUTTONUP, 0, {100, 24 + 10});
    EXPECT_EQ(nullptr, grid.EditLabel(1));
    Press(grid, VK_RETURN);
    EXPECT_EQ(grid.m_hWnd, GetFocus());
    EXPECT_EQ(before, Rows(grid));
}

} // namespace
} // namespace korvel
