// Handlers that remove, throw or ask while rows come, leave or are written.

#include "support/grid_fixture.h"
#include "support/table.h"

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
    presentation.onCall = [&] { point.m_pEnumValue = ++calls == 2 ? nullptr : point.m_pEnumValue; };
    point.m_pEnumValue = &presentation;
    root.With("p", Group(&point));
    grid.SetLayoutMultiColumn({"Name", "x", "y"});
    Bind(root);
    EXPECT_EQ(Rows(grid), Lines({"p|in x|"}));
}

} // namespace
} // namespace korvel
