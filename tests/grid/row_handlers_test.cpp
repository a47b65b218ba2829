// Handlers that remove, throw or ask while rows come, leave or are written.

#include "support/grid_fixture.h"
#include "support/table.h"

#include <functional>
#include <stdexcept>

namespace korvel {
namespace {

class RowHandlers : public GridTest {
protected:
    RowHandlers() {
        MakeBare(grid);
        grid.SetExtendedStyle(LVS_EX_CHECKBOXES);
    }
    static CTreeItem* AddChecked(CSuperGridCtrl& grid, CTreeItem* parent) {
        CItemInfo* info = Info("checked");
        info->checked = 1;
        return parent ? grid.AddChildNode(parent, info, 1, nullptr) : grid.AddRootNode(info, nullptr);
    }
    void RemoveOnMark(CTreeItem* (*which)(const CSuperGridCtrl&)) {
        grid.onNotice = [=, this](const NMLISTVIEW&) {
            grid.onNotice = nullptr;
            grid.RemoveRootNode(which(grid));
        };
    }

    HookedGrid grid;
};

TEST_F(RowHandlers, ARowWhoseNodeGoesWhileMarksAreWrittenLeadsNowhere) {
    Add(grid, nullptr, "goes");
    Add(grid, nullptr, "stays")->info->checked = 1;
    RemoveOnMark([](const CSuperGridCtrl& all) { return all.rootItems().front(); });
    grid.RebuildRows();
    EXPECT_EQ(grid.NodeAtRow(0), nullptr);
    grid.RebuildRows();
    EXPECT_EQ(Rows(grid), Lines({"stays|"}));

    RemoveOnMark([](const CSuperGridCtrl& all) { return all.rootItems().back(); });
    EXPECT_EQ(AddChecked(grid, nullptr), nullptr) << "removed before the caller gets it";
    grid.RebuildRows();
    RemoveOnMark([](const CSuperGridCtrl& all) { return all.rootItems().front(); });
    CTreeItem* added = AddChecked(grid, nullptr);
    ASSERT_NE(added, nullptr) << "another one was removed";
    EXPECT_EQ(grid.rootItems().front(), added);
}

TEST_F(RowHandlers, AHandlerOfMarksMayChangeTheTreeThatOpens) {
    CTreeItem* top = Add(grid, nullptr, "top");
    for (int i = 0; i < 3; ++i)
        AddChecked(grid, top);
    grid.onNotice = [&](const NMLISTVIEW&) {
        grid.onNotice = nullptr;
        grid.TakeNode(top->children()[1]);
    };
    grid.ExpandSubtree(top, nullptr);
    EXPECT_EQ(Rows(grid), Lines({"top|", " checked|", " checked|"}));
    for (const int row : {0, 1, 2})
        EXPECT_EQ(grid.GetCheck(row), row > 0) << row;
}

TEST_F(RowHandlers, RowsThatComeHaveTheirMarksAndDepthsAlsoWhenAHandlerThrows) {
    const auto fail = [] { throw std::runtime_error("of a handler"); };
    for (const bool throwsAtMarks : {true, false}) {
        grid.DeleteAllNodes();
        CTreeItem* group = Add(grid, nullptr, "group");
        for (int i = 0; i < 20; ++i) // more than fit: the size of the list changes
            AddChecked(grid, i % 2 ? group : AddChecked(grid, group));
        Select(grid, 0);
        const auto expand = [&] {
            throwsAtMarks ? Press(grid, VK_MULTIPLY) : void(grid.ExpandNode(group, 0));
        };
        grid.onNotice = [=](const NMLISTVIEW&) { throwsAtMarks ? fail() : void(); };
        grid.onMessage = [=](UINT message) { message == WM_SIZE && !throwsAtMarks ? fail() : void(); };
        EXPECT_THROW(expand(), std::runtime_error);
        grid.onNotice = nullptr;
        grid.onMessage = nullptr;
        EXPECT_EQ(display.CursorShown(), IDC_ARROW);
        ASSERT_EQ(grid.GetItemCount(), throwsAtMarks ? 31 : 21);
        for (int row = 1; row < grid.GetItemCount(); ++row) {
            EXPECT_TRUE(grid.GetCheck(row)) << row;
            EXPECT_EQ(grid.GetItemIndent(row), grid.NodeAtRow(row)->indent()) << row;
        }
    }
}

TEST_F(RowHandlers, ARowThatIsDroppedMovesWhateverAHandlerDoesMeanwhile) {
    for (const auto& [border, act, left] :
         Table<std::function<void()>, Lines>{{"removes another one",
                                              [&] { grid.TakeNode(grid.NodeAtRow(1)); },
                                              {"target|", " a|", " checked|"}},
                                             {"removes the copy",
                                              [&] { grid.TakeNode(grid.NodeAtRow(4)); },
                                              {"checked|", "other|", "target|", " a|"}},
                                             {"throws",
                                              [] { throw std::runtime_error("of a handler"); },
                                              {"other|", "target|", " a|", " checked|"}}}) {
        SCOPED_TRACE(border);
        grid.DeleteAllNodes();
        AddChecked(grid, nullptr);
        Add(grid, nullptr, "other");
        CTreeItem* target = Add(grid, nullptr, "target");
        Add(grid, target, "a");
        grid.ExpandNode(target, 2);
        std::function<void()> once = act;
        grid.onNotice = [&](const NMLISTVIEW& notice) {
            if (once && (notice.uNewState ^ notice.uOldState) & LVIS_STATEIMAGEMASK)
                std::exchange(once, nullptr)();
        };
        try {
            Drag(grid, 0, 2);
        } catch (const std::runtime_error&) {
        }
        EXPECT_EQ(Rows(grid), left);
        EXPECT_FALSE(once) << "the copy was marked";
        grid.onNotice = nullptr;
    }
}

TEST_F(BoundGridTest, ColumnsChosenWhileABindingEndsAreThoseOfTheNext) {
    Bind(root);
    observer.onCall = [&] { grid.SetLayoutMultiColumn({"Name", "x"}); };
    grid.Clear();
    observer.onCall = nullptr;
    EXPECT_EQ(grid.GetColumn(1), "x");
}

TEST_F(BoundGridTest, APresentationMayBeGivenUpBetweenItsTexts) {
    HostEnumeration presentation;
    int calls = 0;
    presentation.onCall = [&](const std::string&, long) {
        point.m_pEnumValue = ++calls == 2 ? nullptr : point.m_pEnumValue;
    };
    point.m_pEnumValue = &presentation;
    root.With("p", Group(&point));
    grid.SetLayoutMultiColumn({"Name", "x", "y"});
    Bind(root);
    EXPECT_EQ(Rows(grid), Lines({"p|in x|"}));
}

} // namespace
} // namespace korvel
