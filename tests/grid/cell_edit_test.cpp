#include "korvel/window/display/window_view.h"
#include "support/grid_fixture.h"
#include "support/table.h"

#include <functional>
#include <stdexcept>

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
        ASSERT_EQ(view::Edit(edit).selectionEnd, 5) << "what is typed replaces the text";
        SetWindowTextA(edit, "typed");
    }
    void TearDown() override { grid.DestroyWindow(); }

    CRect Cell(int row) const {
        CRect rect;
        grid.GetSubItemRect(row, 1, LVIR_LABEL, &rect);
        return rect;
    }

    // Tears down what an act left, for the next one.
    void Renew() {
        grid.DestroyWindow();
        grid.DeleteAllNodes();
        ASSERT_NO_FATAL_FAILURE(SetUp());
    }

    HookedGrid grid;
    CTreeItem* parent = nullptr;
    CTreeItem* child = nullptr;
    HWND edit = nullptr;
};

TEST_F(CellEdit, KeepsTextAndRowWhileRowsMoveAndEndsWithItsText) {
    const int first = 0;
    const CSize byARow{0, 20};
    const auto removeTop = [&] { grid.RemoveRootNode(grid.NodeAtRow(0)), grid.RebuildRows(); };
    const auto openAbove = [&] {
        Add(grid, grid.NodeAtRow(0), "above");
        grid.ExpandNode(grid.NodeAtRow(0), 0);
    };
    for (const auto& [border, act, row] : Table<std::function<void()>, int>{
             {"a row above is added", [&] { grid.AddRootNode(Info("new"), &first); }, 3},
             {"a row above is removed", removeTop, 1},
             {"a family above opens", openAbove, 3},
             {"a row below is added", [&] { Add(grid, nullptr, "new"); }, 2},
             {"scrolled by a row", [&] { grid.Scroll(byARow); }, 2},
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
        ASSERT_NO_FATAL_FAILURE(Renew());
    }
}

TEST_F(CellEdit, ANewTextOfACellIsPainted) {
    for (const int column : {0, 1}) {
        display.PaintWindow(grid.m_hWnd);
        NMLVDISPINFO record;
        record.iSubItem = column;
        record.pszText = "new";
        grid.OnCellTextChanged(child, &record);
        EXPECT_TRUE(display.IsInvalid(grid.m_hWnd)) << column;
    }
}

TEST_F(CellEdit, KeysTheFocusAndItsNodeEndItAlsoWhenAHandlerThrows) {
    for (const bool throws : {false, true})
        for (const auto& [border, act, text] : Table<std::function<void()>, const char*>{
                 {"Return takes", [&] { input::Key(edit, WM_KEYDOWN, VK_RETURN, ""); }, "typed"},
                 {"Escape drops", [&] { input::Key(edit, WM_KEYDOWN, VK_ESCAPE, ""); }, "value"},
                 {"leaving takes", [&] { SetFocus(throws ? grid.m_hWnd : frame.m_hWnd); }, "typed"},
                 {"its node goes", [&] { grid.RemoveNode(child); }, nullptr},
                 {"its parent goes", [&] { grid.RemoveRootNode(parent); }, nullptr},
                 {"all goes", [&] { grid.DeleteAllNodes(); }, nullptr}}) {
            SCOPED_TRACE(std::string(border) + (throws ? ", a handler throws" : ""));
            grid.onMessage = [throws = throws](UINT message) {
                if (throws && message == WM_SETFOCUS)
                    throw std::runtime_error("of a handler");
            };
            try {
                act();
                EXPECT_FALSE(throws);
            } catch (const std::runtime_error&) {
                EXPECT_TRUE(throws);
            }
            grid.onMessage = nullptr;
            EXPECT_FALSE(IsWindowVisible(edit));
            if (text)
                EXPECT_EQ(child->info->GetSubItem(0), text);
            grid.RebuildRows();
            Add(grid, nullptr, "new", {}, 0);
            grid.EnsureVisible(grid.GetItemCount() - 1, false); // it would follow its cell
            input::Key(edit, WM_KEYDOWN, VK_RETURN, "");
            ASSERT_NO_FATAL_FAILURE(Renew());
        }
}

} // namespace
} // namespace korvel
