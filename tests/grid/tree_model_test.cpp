#include "support/grid_fixture.h"
#include "support/table.h"

#include <functional>
#include <stdexcept>

namespace korvel {
namespace {

TEST_F(GridTest, RebuildDropsRowsThatNoNodeHasAndRowsOfRemovedNodesAreHarmless) {
    CSuperGridCtrl grid;
    MakeBare(grid);
    Add(grid, nullptr, "second", {"2"});
    CTreeItem* first = Add(grid, nullptr, "first", {"1"}, 0);
    CTreeItem* below = Add(grid, first, "below");
    CTreeItem* last = Add(grid, nullptr, "last");
    grid.ExpandNode(first, 0);
    EXPECT_EQ(Rows(grid), Lines({"first|1", " below|", "second|2", "last|"}))
        << "moved rows show their own texts";
    EXPECT_EQ(grid.RemoveNode(last), 0);
    EXPECT_EQ(grid.RemoveRootNode(below), 0);
    EXPECT_EQ(grid.RemoveNode(nullptr), 0);
    EXPECT_EQ(grid.AddChildNode(nullptr, nullptr, 1, nullptr), nullptr);
    EXPECT_EQ(grid.RemoveNode(below), 1);
    EXPECT_EQ(grid.RemoveRootNode(last), 1);
    EXPECT_EQ(Rows(grid), Lines({"first|1", " |", "second|2", "|"})) << "the list is the caller's";
    display.PaintWindow(grid.m_hWnd);
    grid.RebuildRows();
    EXPECT_EQ(Rows(grid), Lines({"first|1", "second|2"}));
}

// Whoever hears of a row may do anything but delete the grid's object.
TEST_F(GridTest, RowsAreThoseOfTheTreeWhateverAHandlerOfTheirNoticesDoes) {
    using Handler = std::function<void(HookedGrid & grid)>;
    const auto fail = [](HookedGrid&) { throw std::runtime_error("of a handler"); };
    const auto add = [](HookedGrid& grid) { Add(grid, nullptr, "last"), Add(grid, nullptr, "first", {}, 0); };
    const auto remove = [](HookedGrid& grid) {
        grid.TakeNode(grid.rootItems().front());
        grid.CollapseNode(grid.rootItems().front());
    };
    const auto destroy = [](HookedGrid& grid) { grid.DestroyWindow(); };
    const Table<int, Handler, Lines> cases = {
        {"throws at the second", 2, fail, {"a|", "b|", " b1|", "c|"}},
        {"adds above and below", 1, add, {"first|", "a|", "b|", " b1|", "c|", "last|"}},
        {"removes the node and collapses another", 1, remove, {"b|", "c|"}},
        {"destroys the window", 2, destroy, {}},
    };
    for (const auto& [border, at, handler, after] : cases) {
        SCOPED_TRACE(border);
        HookedGrid grid;
        MakeBare(grid);
        for (const char* name : {"a", "b", "c"})
            Add(grid, nullptr, name);
        for (const char* name : {"a1", "a2", "a3"})
            Add(grid, grid.rootItems()[0], name);
        Add(grid, grid.rootItems()[1], "b1");
        grid.ExpandAll();
        Select(grid, 4);
        int heard = 0;
        grid.onNotice = [&, at = at, act = handler](const NMLISTVIEW& notice) {
            if (notice.hdr.code == LVN_DELETEITEM && ++heard == at)
                act(grid);
        };
        try {
            grid.CollapseNode(grid.rootItems().front());
        } catch (const std::runtime_error&) {
        }
        EXPECT_EQ(Rows(grid), after);
        if (const CTreeItem* selected = grid.GetSelectedNode())
            EXPECT_EQ(selected->info->text, "b") << "the selection stays with its node";
        else
            EXPECT_FALSE(grid.m_hWnd);
        grid.onNotice = nullptr;
    }
}

} // namespace
} // namespace korvel
