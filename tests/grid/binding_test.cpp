#include "support/grid_fixture.h"

namespace korvel {
namespace {

TEST_F(BoundGridTest, MembersBecomeRowsAndNestedObjectsBecomeGroups) {
    point.With("x", Number(DT_LengthDouble, 1234.5)).With("visible", Flag(true));
    root.With("name", Words(DT_String, "A 3")).With("start", Group(&point)).With("void", CVariantValue());
    Bind(root);
    EXPECT_EQ(Rows(grid), Lines({"name|A 3", "start|", "void|"}));
    grid.ExpandAll();
    EXPECT_EQ(Rows(grid), Lines({"name|A 3", "start|", " x|1.234,50 m", " visible|", "void|"}));
    EXPECT_EQ(grid.GetDispInterface(1), &root);
    EXPECT_EQ(grid.GetDispInterface(2), &point);
    EXPECT_EQ(grid.LookupTreeItem(&point), grid.NodeAtRow(1));
    EXPECT_EQ(grid.LookupTreeItem(&point, "x"), grid.NodeAtRow(2));
    EXPECT_EQ(grid.LookupTreeItem(&root, "start"), grid.NodeAtRow(1));
    EXPECT_EQ(grid.LookupTreeItem(&root, "x"), nullptr);
    Bind(point); // ignored while another object is shown
    EXPECT_EQ(grid.GetItemCount(), 5);
    EXPECT_EQ(grid.GetColumnCount(), 2);
}

TEST_F(BoundGridTest, NamesAreSortedByBytesUnlessTheObjectKeepsItsOrder) {
    for (const char* name : {"b", "\xE4", "B", "a"})
        root.With(name, CVariantValue());
    Bind(root);
    EXPECT_EQ(Rows(grid), Lines({"b|", "\xE4|", "B|", "a|"}));
    grid.Clear();
    root.SetOptions(0);
    Bind(root);
    EXPECT_EQ(Rows(grid), Lines({"B|", "a|", "b|", "\xE4|"}));
}

// Objects are told in the order of their addresses when the grid is bound and when it is cleared.
TEST_F(BoundGridTest, TheObserverHearsOfNestedObjectsTwiceAndOfTheRootInTheMiddle) {
    HostObject objects[] = {HostObject("p"), HostObject("q")};
    root.With("second", Group(&objects[1])).With("first", Group(&objects[0]));
    Bind(root);
    EXPECT_EQ(observer.Take(), Lines({"+q", "+p", "+root", "+p", "+q"}));
    grid.Clear();
    EXPECT_EQ(observer.Take(), Lines({"-p", "-q", "-root"}));
    EXPECT_EQ(grid.GetItemCount(), 0);
    EXPECT_EQ(grid.GetColumnCount(), 0);
    grid.Clear();
    EXPECT_EQ(observer.Take(), Lines());
    Bind(root);
    observer.Take();
    grid.DestroyWindow();
    EXPECT_EQ(observer.Take(), Lines({"-p", "-q", "-root"}));
}

TEST_F(BoundGridTest, WithoutAnObjectThereAreColumnsAndTheObserverHearsNull) {
    grid.Initialize(nullptr, "Name", "Value", 0);
    EXPECT_EQ(grid.GetColumnCount(), 2);
    EXPECT_EQ(observer.Take(), Lines({"+null"}));
    EXPECT_EQ(grid.GetDispInterface(0), nullptr);
    observer.sinks.at(nullptr)->OnChange("a", Flag(true));
    observer.sinks.at(nullptr)->OnOperationAdd("a", Flag(true));
    EXPECT_EQ(grid.GetItemCount(), 0);
}

TEST_F(GridTest, WithoutAnObserverOrAWindowTheTreeIsThereAllTheSame) {
    point.With("x", Flag(false));
    root.With("point", Group(&point));
    CEditableGrid untold(nullptr, nullptr);
    Make(untold);
    untold.Initialize(&root, "Name", "Value", 0);
    untold.OnOperationAdd(&root, "other", Group(&point));
    untold.OnOperationRemove(&root, "point", Group(&point));
    EXPECT_EQ(Rows(untold), Lines({"other|"}));
    RecordingObserver observer;
    {
        CEditableGrid unseen(&observer, nullptr);
        unseen.Initialize(&root, "Name", "Value", 0);
        ASSERT_EQ(unseen.rootItems().size(), 1);
        EXPECT_EQ(unseen.rootItems().front()->children().size(), 1);
        observer.Take();
    }
    EXPECT_EQ(observer.Take(), Lines({"-point", "-root"}));
}

TEST_F(BoundGridTest, ColumnWidthsAreThreeFifthsAtFirstAndKeptFromThenOn) {
    Bind(root);
    const int width = grid.GetClientRect().Width();
    EXPECT_EQ(grid.GetColumnWidth(0), width * 3 / 5);
    EXPECT_EQ(grid.GetColumnWidth(1), width - width * 3 / 5);
    grid.SetColumnWidth(0, 77);
    grid.Clear();
    Bind(root);
    EXPECT_EQ(grid.GetColumnWidth(0), 77);
    grid.Clear();
    grid.SetColumnInfo({{0, 60}});
    grid.SetLayoutMultiColumn({"Name", "a title that needs room"});
    Bind(root);
    EXPECT_EQ(grid.GetColumnWidth(0), 60);
    EXPECT_GE(grid.GetColumnWidth(1), display.TextWidth("a title that needs room"));
}

TEST_F(BoundGridTest, NoMemberIsFoundInARowThatHasGone) {
    point.With("x", Whole(DT_Int, 1));
    root.With("p", Group(&point));
    BindAndExpand();
    HostObject& other = Object("other");
    other.With("m", Whole(DT_Int, 2));
    grid.InsertDispMember(grid.LookupTreeItem(&point), &other, -1UL, "m", Whole(DT_Int, 2));
    EXPECT_NE(grid.LookupTreeItem(&other, "m"), nullptr);
    SinkOf(root).OnOperationRemove("p", Group(&point));
    EXPECT_EQ(grid.LookupTreeItem(&other, "m"), nullptr)
        << "a member of an object that is none of the rows above";

    grid.Clear();
    grid.SetLayoutMultiColumn({"Name", "x", "y"});
    Bind(root);
    point.With("y", Whole(DT_Int, 3)); // the grid has not heard of it
    root.With("second", Group(&point));
    SinkOf(root).OnOperationAdd("second", Group(&point));
    SinkOf(root).OnOperationRemove("second", Group(&point));
    EXPECT_EQ(grid.LookupTreeItem(&point, "y"), nullptr)
        << "a cell of the second row of an object that stays";
    EXPECT_NE(grid.LookupTreeItem(&point, "x"), nullptr);
}

TEST_F(BoundGridTest, InTheMultiColumnLayoutARowIsAnObject) {
    point.With("x", Whole(DT_Int, 1)).With("y", Whole(DT_Int, 2)).With("unlisted", Whole(DT_Int, 3));
    HostObject& second = Object("second");
    second.With("Name", Whole(DT_Int, 5)).AddMember("y", false, Whole(DT_Int, 4));
    root.With("p", Group(&point)).With("q", Group(&second)).With("not a group", Whole(DT_Int, 6));
    grid.SetLayoutMultiColumn({"Name", "x", "y"});
    Bind(root);
    // A member without a column lands in column 1, after the one that belongs there.
    EXPECT_EQ(Rows(grid), Lines({"p|3|2", "q||4"}));
    EXPECT_EQ(grid.GetSubItem("y"), 2);
    EXPECT_EQ(grid.GetSubItem("unlisted"), 1);
    EXPECT_EQ(grid.GetColumn(2), "y");
    EXPECT_EQ(grid.GetColumn(3), "");
    EXPECT_EQ(grid.GetDispInterface(1), &second);
    EXPECT_EQ(grid.LookupTreeItem(&second, "y"), grid.NodeAtRow(1));
    // The protection of whichever member came last, at the first value cell.
    EXPECT_FALSE(grid.NodeAtRow(1)->info->IsCellEnabled(0));
    EXPECT_TRUE(grid.NodeAtRow(1)->info->IsCellEnabled(1));
}

TEST_F(BoundGridTest, ALayoutThatComesBackHasGermanTitlesInEveryLanguage) {
    root.With("a", Words(DT_String, "b"));
    Bind(root);
    grid.SetLayoutMultiColumn({"Name", "x"}); // too late: ends without columns
    EXPECT_EQ(grid.GetColumnCount(), 0);
    grid.SetLayoutSingleAttrColumn();
    EXPECT_EQ(grid.GetColumnTitle(0), "Attribut");
    EXPECT_EQ(grid.GetColumnTitle(1), "Wert");
    EXPECT_EQ(Rows(grid), Lines({"a|b"}));
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
    EXPECT_EQ(Rows(grid), Lines({"shown|as text", "silent|"}));
    EXPECT_EQ(grid.NodeAtRow(0)->info->GetControlType(0), CItemInfo::ctButton);
    SinkOf(point).OnOperationChangeTupelPresentation("another");
    SinkOf(silent).OnOperationChangeTupelPresentation("told all the same");
    EXPECT_EQ(Rows(grid), Lines({"shown|another", "silent|told all the same"}));
    EXPECT_EQ(grid.NodeAtRow(1)->info->GetControlType(0), CItemInfo::ctEdit);
    grid.Clear();
    grid.SetLayoutMultiColumn({"Name", "x", "y"});
    Bind(root);
    EXPECT_EQ(Rows(grid), Lines({"shown|in x|in y", "silent||"}));
    const CItemInfo& info = *grid.NodeAtRow(0)->info; // kept: the cell after it is greyed
    EXPECT_TRUE(info.IsCellEnabled(0));
    EXPECT_FALSE(info.IsCellEnabled(1));
}

TEST_F(GridTest, TheParentNamesTheImagesWhenItIsToBeAsked) {
    ImageParent parent;
    parent.CreateEx(0, "KorvelFrame", "", WS_VISIBLE, {0, 0, 400, 400}, nullptr, 0);
    point.With("x", Flag(true));
    root.With("p", Group(&point));
    CEditableGrid grid(nullptr, nullptr);
    grid.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, {0, 0, 300, 200}, &parent, 105);
    grid.Initialize(&root, "Name", "Value", 0);
    EXPECT_EQ(grid.GetIcon(grid.LookupTreeItem(&root, "p")), 1);
    EXPECT_EQ(grid.GetIcon(grid.LookupTreeItem(&point, "x")), 2);
    EXPECT_EQ(parent.asked, Lines());
    grid.Clear();
    grid.ModifyImageStyle(IS_AskParent, 0);
    grid.Initialize(&root, "Name", "Value", 0);
    EXPECT_EQ(parent.asked, Lines({"p1root", "x2point"}));
    EXPECT_EQ(grid.GetIcon(grid.LookupTreeItem(&point, "x")), 42);
}

} // namespace
} // namespace korvel
