#include "korvel/window/display/window_view.h"
#include "support/grid_fixture.h"
#include "support/table.h"

#include <functional>

namespace korvel {
namespace {

/// A bare grid of 20 roots, of which the second is open; the value of its child "child" is being edited.
class CellEdit : public GridTest {
protected:
    void SetUp() override {
        MakeBare(grid);
        for (const char name : std::string("abcdefghijklmnopqrst"))
            Add(grid, nullptr, std::string(1, name), {"value"});
        parent = grid.NodeAtRow(1);
        child = Add(grid, parent, "child", {"value"});
        grid.ExpandNode(parent, 1);
        Select(grid, 2);
        Press(grid, VK_RIGHT);
        Press(grid, VK_RETURN);
        edit = GetFocus();
        ASSERT_EQ(GetWindowTextA(edit), "value");
        SetWindowTextA(edit, "typed");
    }
    void TearDown() override { grid.DestroyWindow(); }

    CRect Cell(int row) const {
        CRect rect;
        grid.GetSubItemRect(row, 1, LVIR_LABEL, &rect);
        return rect;
    }

    struct EmptiedGrid : HookedGrid {
        using CSuperGridCtrl::DeleteAllNodes;
    } grid;
    CTreeItem* parent = nullptr;
    CTreeItem* child = nullptr;
    HWND edit = nullptr;
};

TEST_F(CellEdit, KeepsTextAndRowWhileRowsMoveAndEndsWithItsText) {
    const int first = 0;
    for (const auto& [border, act, row] : Table<std::function<void()>, int>{
             {"a row above is added", [&] { grid.AddRootNode(Info("new"), &first); }, 3},
             {"a row above is removed", [&] { grid.RemoveRootNode(grid.NodeAtRow(0)), grid.RebuildRows(); },
              1},
             {"a family above opens",
              [&] {
                  Add(grid, grid.NodeAtRow(0), "above");
                  grid.ExpandNode(grid.NodeAtRow(0), 0);
              },
              3},
             {"a row below is added", [&] { Add(grid, nullptr, "new"); }, 2},
             {"scrolled by a row",
              [&] {
                  grid.Scroll({0, 20});
              },
              2},
             {"scrolled away", [&] { grid.EnsureVisible(20, false); }, -1},
             {"its parent closes", [&] { grid.CollapseNode(parent); }, -1}}) {
        SCOPED_TRACE(border);
        act();
        EXPECT_EQ(IsWindowVisible(edit), row >= 0);
        if (row >= 0) {
            EXPECT_EQ(view::Rectangle(edit), Cell(row));
            EXPECT_EQ(child->info->GetSubItem(0), "value");
            input::Key(edit, WM_KEYDOWN, VK_RETURN, "");
        }
        EXPECT_EQ(child->info->GetSubItem(0), "typed");
        EXPECT_FALSE(IsWindowVisible(edit));
        grid.DestroyWindow();
        grid.DeleteAllNodes();
        ASSERT_NO_FATAL_FAILURE(SetUp());
    }
}

TEST_F(CellEdit, EndsWithItsNode) {
    for (const auto& [border, act] :
         Table<std::function<void()>>{{"removed", [&] { grid.RemoveNode(child); }},
                                      {"removed with its parent", [&] { grid.RemoveRootNode(parent); }},
                                      {"all removed", [&] { grid.DeleteAllNodes(); }}}) {
        SCOPED_TRACE(border);
        act();
        EXPECT_FALSE(IsWindowVisible(edit));
        input::Key(edit, WM_KEYDOWN, VK_RETURN, "");
        grid.DestroyWindow();
        grid.DeleteAllNodes();
        ASSERT_NO_FATAL_FAILURE(SetUp());
    }
}

} // namespace
} // namespace korvel
