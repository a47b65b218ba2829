#include "grid_fixture.h"
#include "window/registered_messages.h"

namespace korvel {
namespace {

TEST_F(BoundGridTest, MembersBecomeRowsAndNestedObjectsBecomeGroups) {
    HostObject& point = Object("point");
    point.With("x", Number(DT_LengthDouble, 1234.5)).With("visible", Flag(true));
    HostObject& axis = Object("axis");
    axis.With("name", Words(DT_String, "A 3")).With("start", Group(&point)).With("void", CVariantValue());
    Bind(axis);
    EXPECT_EQ(Lines({"name|A 3", "start|", "void|"}), Rows(grid));
    grid.ExpandAll();
    EXPECT_EQ(Lines({"name|A 3", "start|", " x|1.234,50 m", " visible|", "void|"}), Rows(grid));
    EXPECT_EQ(&axis, grid.GetDispInterface(1));
    EXPECT_EQ(&point, grid.GetDispInterface(2));
    EXPECT_EQ(grid.NodeAtRow(1), grid.LookupTreeItem(&point));
    EXPECT_EQ(grid.NodeAtRow(2), grid.LookupTreeItem(&point, "x"));
    EXPECT_EQ(grid.NodeAtRow(1), grid.LookupTreeItem(&axis, "start"));
    EXPECT_EQ(nullptr, grid.LookupTreeItem(&axis, "x"));
    EXPECT_EQ(nullptr, grid.GetDispInterface(5));
}

TEST_F(BoundGridTest, NamesAreSortedByBytesUnlessTheObjectKeepsItsOrder) {
    HostObject& object = Object();
    for (const char* name : {"b", "\xE4", "B", "a"})
        object.With(name, CVariantValue());
    object.SetOptions(0);
    Bind(object);
    EXPECT_EQ(Lines({"B|", "a|", "b|", "\xE4|"}), Rows(grid));
    grid.Clear();
    object.SetOptions(DO_KeepOrder);
    Bind(object);
    EXPECT_EQ(Lines({"b|", "\xE4|", "B|", "a|"}), Rows(grid));
}

// Objects are told in the order of their addresses when the grid is bound and when it is cleared.
TEST_F(BoundGridTest, TheObserverHearsOfNestedObjectsTwiceAndOfTheRootInTheMiddle) {
    HostObject objects[] = {HostObject("p"), HostObject("q")};
    HostObject& root = Object("root");
    root.With("second", Group(&objects[1])).With("first", Group(&objects[0]));
    Bind(root);
    EXPECT_EQ(Lines({"+q", "+p", "+root", "+p", "+q"}), observer.Take());
    grid.Clear();
    EXPECT_EQ(Lines({"-p", "-q", "-root"}), observer.Take());
    EXPECT_EQ(0, grid.GetItemCount());
    EXPECT_EQ(0, grid.GetColumnCount());
    grid.Clear();
    EXPECT_EQ(Lines(), observer.Take());
}

TEST_F(BoundGridTest, ASecondBindingIsIgnored) {
    HostObject& first = Object();
    first.With("a", CVariantValue());
    HostObject& second = Object();
    Bind(first);
    Bind(second);
    EXPECT_EQ(Lines({"a|"}), Rows(grid));
    EXPECT_EQ(2, grid.GetColumnCount());
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

TEST_F(GridTest, WithoutAnObserverNothingIsTold) {
    HostObject& point = Object();
    HostObject& root = Object();
    root.With("point", Group(&point));
    CEditableGrid grid(nullptr, nullptr);
    Make(grid);
    grid.Initialize(&root, "Name", "Value", 0);
    grid.OnOperationAdd(&root, "other", Group(&point));
    grid.OnOperationRemove(&root, "point", Group(&point));
    EXPECT_EQ(Lines({"other|"}), Rows(grid));
}

TEST_F(GridTest, WithoutAWindowTheTreeIsThereAllTheSame) {
    HostObject& point = Object();
    HostObject& root = Object();
    point.With("x", Flag(false));
    root.With("point", Group(&point));
    RecordingObserver observer;
    {
        CEditableGrid grid(&observer, nullptr);
        grid.Initialize(&root, "Name", "Value", 0);
        ASSERT_EQ(1, grid.rootItems().size());
        EXPECT_EQ(1, grid.rootItems().front()->children().size());
        observer.Take();
    }
    EXPECT_EQ(Lines({"-object", "-object"}), observer.Take());
}

TEST_F(BoundGridTest, TheEndOfTheWindowUnbinds) {
    HostObject& root = Object("root");
    Bind(root);
    observer.Take();
    grid.DestroyWindow();
    EXPECT_EQ(Lines({"-root"}), observer.Take());
}

TEST_F(BoundGridTest, ColumnWidthsAreThreeFifthsAtFirstAndKeptFromThenOn) {
    HostObject& root = Object();
    Bind(root);
    const int width = grid.GetClientRect().Width();
    EXPECT_EQ(width * 3 / 5, grid.GetColumnWidth(0));
    EXPECT_EQ(width - width * 3 / 5, grid.GetColumnWidth(1));
    grid.SetColumnWidth(0, 77);
    grid.Clear();
    ASSERT_EQ(2u, grid.GetColumnInfo().size());
    EXPECT_EQ(77, grid.GetColumnInfo()[0].width);
    Bind(root);
    EXPECT_EQ(77, grid.GetColumnWidth(0));
}

TEST_F(BoundGridTest, ColumnsWithoutAKnownWidthFitTheirTitles) {
    HostObject& root = Object();
    grid.SetColumnInfo({{0, 60}});
    grid.SetLayoutMultiColumn({"Name", "a title that needs room"});
    Bind(root);
    EXPECT_EQ(60, grid.GetColumnWidth(0));
    EXPECT_GE(grid.GetColumnWidth(1), display.TextWidth("a title that needs room"));
}

TEST_F(BoundGridTest, InTheMultiColumnLayoutARowIsAnObject) {
    HostObject& first = Object("first");
    first.With("x", Whole(DT_Int, 1)).With("y", Whole(DT_Int, 2)).With("unlisted", Whole(DT_Int, 3));
    HostObject& second = Object("second");
    second.With("y", Whole(DT_Int, 4)).With("Name", Whole(DT_Int, 5));
    HostObject& root = Object("root");
    root.With("p", Group(&first)).With("q", Group(&second)).With("plain", Flag(true));
    grid.SetLayoutMultiColumn({"Name", "x", "y"});
    Bind(root);
    // A member without a column lands in column 1, after the one that belongs there.
    EXPECT_EQ(Lines({"p|3|2", "q||4"}), Rows(grid));
    EXPECT_EQ(2, grid.GetSubItem("y"));
    EXPECT_EQ(1, grid.GetSubItem("unlisted"));
    EXPECT_EQ("y", grid.GetColumn(2));
    EXPECT_EQ("", grid.GetColumn(3));
    EXPECT_EQ(&second, grid.GetDispInterface(1));
    EXPECT_EQ(grid.NodeAtRow(1), grid.LookupTreeItem(&second, "y"));
}

// The protection of whichever member came last, at the first value cell.
TEST_F(BoundGridTest, InTheMultiColumnLayoutProtectionGreysTheFirstValueCellOnly) {
    HostObject& point = Object();
    point.With("x", Flag(true));
    point.AddMember("y", false, Flag(true));
    HostObject& root = Object();
    root.With("p", Group(&point));
    grid.SetLayoutMultiColumn({"Name", "x", "y"});
    Bind(root);
    const CItemInfo& info = *grid.NodeAtRow(0)->info;
    EXPECT_FALSE(info.IsCellEnabled(0));
    EXPECT_TRUE(info.IsCellEnabled(1));
}

TEST_F(BoundGridTest, ALayoutThatIsSetTooLateEndsWithoutColumns) {
    HostObject& root = Object();
    root.With("a", Flag(true));
    Bind(root);
    grid.SetLayoutMultiColumn({"Name", "x"});
    EXPECT_EQ(0, grid.GetColumnCount());
    EXPECT_EQ(eMultiColumn, grid.GetGridLayout());
}

TEST_F(BoundGridTest, ALayoutThatComesBackHasGermanTitlesInEveryLanguage) {
    HostObject& root = Object();
    root.With("a", Words(DT_String, "b"));
    Bind(root);
    grid.SetLayoutSingleAttrColumn();
    EXPECT_EQ("Attribut", grid.GetColumnTitle(0));
    EXPECT_EQ("Wert", grid.GetColumnTitle(1));
    EXPECT_EQ(Lines({"a|b"}), Rows(grid));
}

TEST_F(BoundGridTest, GroupsShowTheTextsOfTheirPresentation) {
    HostEnumeration presentation;
    HostObject& shown = Object("shown");
    shown.m_pEnumValue = &presentation;
    HostEnumeration otherKind;
    otherKind.kind = 2;
    HostObject& silent = Object("silent");
    silent.m_pEnumValue = &otherKind;
    HostObject& root = Object();
    root.With("shown", Group(&shown)).With("silent", Group(&silent));
    Bind(root);
    EXPECT_EQ(Lines({"shown|as text", "silent|"}), Rows(grid));
    EXPECT_EQ(CItemInfo::ctButton, grid.NodeAtRow(0)->info->GetControlType(0));
    SinkOf(shown).OnOperationChangeTupelPresentation("another");
    SinkOf(silent).OnOperationChangeTupelPresentation("told all the same");
    EXPECT_EQ(Lines({"shown|another", "silent|told all the same"}), Rows(grid));
    EXPECT_EQ(CItemInfo::ctEdit, grid.NodeAtRow(1)->info->GetControlType(0));
    grid.Clear();
    grid.SetLayoutMultiColumn({"Name", "x", "y"});
    Bind(root);
    EXPECT_EQ(Lines({"shown|in x|in y", "silent||"}), Rows(grid));
}

/// Answers which image a row gets, and writes down what it was asked.
class ImageParent : public CWnd {
public:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message != WM_GET_IMAGEINDEX)
            return CWnd::WindowProc(message, wParam, lParam);
        auto& question = *reinterpret_cast<SImageIndex*>(lParam);
        asked.push_back(*question.name + std::to_string(question.index) + question.disp->GetIdent());
        question.index += 40;
        return 0;
    }
    Lines asked;
};

TEST_F(GridTest, TheParentNamesTheImagesWhenItIsToBeAsked) {
    ImageParent parent;
    parent.CreateEx(0, "KorvelFrame", "", WS_VISIBLE, {0, 0, 400, 400}, nullptr, 0);
    HostObject& point = Object("point");
    point.With("x", Flag(true));
    HostObject& root = Object("root");
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
