#include "support/grid_fixture.h"

namespace korvel {
namespace {

TEST_F(BoundGridTest, MembersBecomeRowsAndNestedObjectsBecomeGroups) {
    point.With("x", Number(DT_LengthDouble, 1234.5)).With("visible", Flag(true));
    root.With("name", Words(DT_String, "A 3")).With("start", Group(&point)).With("void", CVariantValue());
    Bind(root);
    EXPECT_EQ(Lines({"name|A 3", "start|", "void|"}), Rows(grid));
    grid.ExpandAll();
    EXPECT_EQ(Lines({"name|A 3", "start|", " x|1.234,50 m", " visible|", "void|"}), Rows(grid));
    EXPECT_EQ(&root, grid.GetDispInterface(1));
    EXPECT_EQ(&point, grid.GetDispInterface(2));
    EXPECT_EQ(grid.NodeAtRow(1), grid.LookupTreeItem(&point));
    EXPECT_EQ(grid.NodeAtRow(2), grid.LookupTreeItem(&point, "x"));
    EXPECT_EQ(grid.NodeAtRow(1), grid.LookupTreeItem(&root, "start"));
    EXPECT_EQ(nullptr, grid.LookupTreeItem(&root, "x"));
    Bind(point); // ignored while another object is shown
    EXPECT_EQ(5, grid.GetItemCount());
    EXPECT_EQ(2, grid.GetColumnCount());
}

TEST_F(BoundGridTest, NamesAreSortedByBytesUnlessTheObjectKeepsItsOrder) {
    for (const char* name : {"b", "\xE4", "B", "a"})
        root.With(name, CVariantValue());
    Bind(root);
    EXPECT_EQ(Lines({"b|", "\xE4|", "B|", "a|"}), Rows(grid));
    grid.Clear();
    root.SetOptions(0);
    Bind(root);
    EXPECT_EQ(Lines({"B|", "a|", "b|", "\xE4|"}), Rows(grid));
}

// Objects are told in the order of their addresses when the grid is bound and when it is cleared.
TEST_F(BoundGridTest, TheObserverHearsOfNestedObjectsTwiceAndOfTheRootInTheMiddle) {
    HostObject objects[] = {HostObject("p"), HostObject("q")};
    root.With("second", Group(&objects[1])).With("first", Group(&objects[0]));
    Bind(root);
    EXPECT_EQ(Lines({"+q", "+p", "+root", "+p", "+q"}), observer.Take());
    grid.Clear();
    EXPECT_EQ(Lines({"-p", "-q", "-root"}), observer.Take());
    EXPECT_EQ(0, grid.GetItemCount() + grid.GetColumnCount());
    grid.Clear();
    EXPECT_EQ(Lines(), observer.Take());
    Bind(root);
    observer.Take();
    grid.DestroyWindow();
    EXPECT_EQ(Lines({"-p", "-q", "-root"}), observer.Take());
}

TEST_F(BoundGridTest, WithoutAnObjectThereAreColumnsAndTheObserverHearsNull) {
    grid.Initialize(nullptr, "Name", "Value", 0);
    EXPECT_EQ(2, grid.GetColumnCount());
    EXPECT_EQ(Lines({"+null"}), observer.Take());
    EXPECT_EQ(nullptr, grid.GetDispInterface(0));
    observer.sinks.at(nullptr)->OnChange("a", Flag(true));
    observer.sinks.at(nullptr)->OnOperationAdd("a", Flag(true));
    EXPECT_EQ(0, grid.GetItemCount());
}

TEST_F(GridTest, WithoutAnObserverOrAWindowTheTreeIsThereAllTheSame) {
    point.With("x", Flag(false));
    root.With("point", Group(&point));
    CEditableGrid untold(nullptr, nullptr);
    Make(untold);
    untold.Initialize(&root, "Name", "Value", 0);
    untold.OnOperationAdd(&root, "other", Group(&point));
    untold.OnOperationRemove(&root, "point", Group(&point));
    EXPECT_EQ(Lines({"other|"}), Rows(untold));
    RecordingObserver observer;
    {
        CEditableGrid unseen(&observer, nullptr);
        unseen.Initialize(&root, "Name", "Value", 0);
        ASSERT_EQ(1, unseen.rootItems().size());
        EXPECT_EQ(1, unseen.rootItems().front()->children().size());
        observer.Take();
    }
    EXPECT_EQ(Lines({"-point", "-root"}), observer.Take());
}

TEST_F(BoundGridTest, ColumnWidthsAreThreeFifthsAtFirstAndKeptFromThenOn) {
    Bind(root);
    const int width = grid.GetClientRect().Width();
    EXPECT_EQ(width * 3 / 5, grid.GetColumnWidth(0));
    EXPECT_EQ(width - width * 3 / 5, grid.GetColumnWidth(1));
    grid.SetColumnWidth(0, 77);
    grid.Clear();
    Bind(root);
    EXPECT_EQ(77, grid.GetColumnWidth(0));
    grid.Clear();
    grid.SetColumnInfo({{0, 60}});
    grid.SetLayoutMultiColumn({"Name", "a title that needs room"});
    Bind(root);
    EXPECT_EQ(60, grid.GetColumnWidth(0));
    EXPECT_GE(grid.GetColumnWidth(1), display.TextWidth("a title that needs room"));
}

TEST_F(BoundGridTest, InTheMultiColumnLayoutARowIsAnObject) {
    point.With("x", Whole(DT_Int, 1)).With("y", Whole(DT_Int, 2)).With("unlisted", Whole(DT_Int, 3));
    HostObject& second = Object("second");
    second.With("Name", Whole(DT_Int, 5)).AddMember("y", false, Whole(DT_Int, 4));
    root.With("p", Group(&point)).With("q", Group(&second)).With("not a group", Whole(DT_Int, 6));
    grid.SetLayoutMultiColumn({"Name", "x", "y"});
    Bind(root);
    // A member without a column lands in column 1, after the one that belongs there.
    EXPECT_EQ(Lines({"p|3|2", "q||4"}), Rows(grid));
    EXPECT_EQ(2 + 1, grid.GetSubItem("y") + grid.GetSubItem("unlisted"));
    EXPECT_EQ("y", grid.GetColumn(2) + grid.GetColumn(3));
    EXPECT_EQ(&second, grid.GetDispInterface(1));
    EXPECT_EQ(grid.NodeAtRow(1), grid.LookupTreeItem(&second, "y"));
    // The protection of whichever member came last, at the first value cell.
    EXPECT_FALSE(grid.NodeAtRow(1)->info->IsCellEnabled(0));
    EXPECT_TRUE(grid.NodeAtRow(1)->info->IsCellEnabled(1));
}

TEST_F(BoundGridTest, ALayoutThatComesBackHasGermanTitlesInEveryLanguage) {
    root.With("a", Words(DT_String, "b"));
    Bind(root);
    grid.SetLayoutMultiColumn({"Name", "x"}); // too late: ends without columns
    EXPECT_EQ(0, grid.GetColumnCount());
    grid.SetLayoutSingleAttrColumn();
    EXPECT_EQ("AttributWert", grid.GetColumnTitle(0) + grid.GetColumnTitle(1));
    EXPECT_EQ(Lines({"a|b"}), Rows(grid));
}

TEST_F(BoundGridTest, GroupsShowTheTextsOfTheirPresentation) {
    HostEnumeration presentation;
    HostEnumeration otherKind;
    otherKind.kind = 2;
    HostObject& silent = Object("silent");
    point.m_pEnumValue = &presentation;
    silent.m_pEnumValue = &otherKind;
    root.With("shown", Group(&point)).With("silent", Group(&silent));
    Bind(root);
    EXPECT_EQ(Lines({"shown|as text", "silent|"}), Rows(grid));
    EXPECT_EQ(CItemInfo::ctButton, grid.NodeAtRow(0)->info->GetControlType(0));
    SinkOf(point).OnOperationChangeTupelPresentation("another");
    SinkOf(silent).OnOperationChangeTupelPresentation("told all the same");
    EXPECT_EQ(Lines({"shown|another", "silent|told all the same"}), Rows(grid));
    EXPECT_EQ(CItemInfo::ctEdit, grid.NodeAtRow(1)->info->GetControlType(0));
    grid.Clear();
    grid.SetLayoutMultiColumn({"Name", "x", "y"});
    Bind(root);
    EXPECT_EQ(Lines({"shown|in x|in y", "silent||"}), Rows(grid));
    const CItemInfo& info = *grid.NodeAtRow(0)->info; // kept: greyed is the cell behind
    EXPECT_TRUE(info.IsCellEnabled(0) && !info.IsCellEnabled(1));
}

TEST_F(GridTest, TheParentNamesTheImagesWhenItIsToBeAsked) {
    ImageParent parent;
    parent.CreateEx(0, "KorvelFrame", "", WS_VISIBLE, {0, 0, 400, 400}, nullptr, 0);
    point.With("x", Flag(true));
    root.With("p", Group(&point));
    CEditableGrid grid(nullptr, nullptr);
    grid.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, {0, 0, 300, 200}, &parent, 105);
    grid.Initialize(&root, "Name", "Value", 0);
    EXPECT_EQ(1, grid.GetIcon(grid.LookupTreeItem(&root, "p")));
    EXPECT_EQ(2, grid.GetIcon(grid.LookupTreeItem(&point, "x")));
    EXPECT_EQ(Lines(), parent.asked);
    grid.Clear();
    grid.ModifyImageStyle(IS_AskParent, 0);
    grid.Initialize(&root, "Name", "Value", 0);
    EXPECT_EQ(Lines({"p1root", "x2point"}), parent.asked);
    EXPECT_EQ(42, grid.GetIcon(grid.LookupTreeItem(&point, "x")));
}

} // namespace
} // namespace korvel
