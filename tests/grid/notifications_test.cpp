#include "support/grid_fixture.h"

namespace korvel {
namespace {

class Notifications : public BoundGridTest {
protected:
    Notifications() {
        point.With("x", Number(DT_Double, 1)).With("y", Number(DT_Double, 2));
        root.With("name", Words(DT_String, "A")).With("p", Group(&point)).With("on", Flag(true));
    }
};

TEST_F(Notifications, MembersComeAfterTheOthersOrAtTheirPositionAndLeaveWithAllBelow) {
    BindAndExpand();
    SinkOf(point).OnOperationAdd("z", Number(DT_Double, 3));
    SinkOf(root).OnOperationAdd("last", Words(DT_String, "B"));
    for (const unsigned long position : {0ul, 2ul, 99ul, static_cast<unsigned long>(-1)})
        SinkOf(point).OnOperationInsert(position, std::to_string(position), Words(DT_String, ""));
    EXPECT_EQ(Rows(grid),
              Lines({"name|A", "p|", " 0|", " x|1,00", " 2|", " y|2,00", " z|3,00", " 99|",
                     " " + std::to_string(static_cast<unsigned long>(-1)) + "|", "on|", "last|B"}));
    EXPECT_EQ(observer.Take(), Lines());
    HostObject& deep = Object("deep").With("d", Flag(true));
    SinkOf(point).OnOperationAdd("deep", Group(&deep));
    EXPECT_EQ(observer.Take(), Lines({"+deep", "+deep"})); // kept: twice
    SinkOf(root).OnOperationInsert(0, "r", Group(&Object("inserted")));
    EXPECT_EQ(observer.Take(), Lines({"+inserted"}));
    SinkOf(root).OnOperationRemove("p", Group(&point));
    EXPECT_EQ(Rows(grid), Lines({"r|", "name|A", "on|", "last|B"}));
    EXPECT_EQ(observer.Take(), Lines({"-deep", "-point"}));
    EXPECT_EQ(grid.LookupTreeItem(&deep, "d"), nullptr);
}

TEST_F(Notifications, RemoveMovesTheSelectionOnlyWithItsRow) {
    const std::tuple<const char*, Lines, const char*, int, int> rows[] = {
        {"the row below moves up to the selection", {"a", "b", "c"}, "b", 1, 1},
        {"the last row hands it to the one above", {"a", "b", "c"}, "c", 2, 1},
        {"another row", {"a", "b", "c"}, "a", 2, 1},
        {"the first row", {"a", "b", "c"}, "a", 0, 0},
        {"the only row", {"a"}, "a", 0, -1},
    };
    for (const auto& [border, names, removed, selectedBefore, selectedAfter] : rows) {
        HostObject& object = Object();
        for (const std::string& name : names)
            object.With(name, Flag(true));
        Bind(object);
        Select(grid, selectedBefore);
        SinkOf(object).OnOperationRemove(removed, Flag(true));
        EXPECT_EQ(SelectedRow(grid), selectedAfter) << border;
        grid.Clear();
    }
}

TEST_F(Notifications, RenameMovesTheRowToItsNewName) {
    BindAndExpand();
    point.RenameMember("x", "east");
    SinkOf(point).OnOperationRename("x", "east");
    EXPECT_EQ(Rows(grid)[2], " east|1,00");
    EXPECT_EQ(grid.LookupTreeItem(&point, "x"), nullptr);
    SetFormatDouble(GermanFormat(1)); // the registration has moved along
    EXPECT_EQ(Rows(grid)[2], " east|1,0");
    SinkOf(point).OnOperationRename("east", "east");
    EXPECT_EQ(grid.LookupTreeItem(&point, "east"), grid.NodeAtRow(2));
}

TEST_F(Notifications, ChangeRewritesTheCellAndWritesOnlyNewFlagsThrough) {
    BindAndExpand();
    SinkOf(point).OnChange("x", Number(DT_Double, 9));
    SinkOf(root).OnChange("p", Words(DT_String, "a group has no text"));
    EXPECT_EQ(Rows(grid), Lines({"name|A", "p|", " x|9,00", " y|2,00", "on|"}));
    CVariantValue alsoTrue = Flag(true);
    alsoTrue.Value.Bool = 2;
    SinkOf(root).OnChange("on", Flag(true));
    SinkOf(root).OnChange("on", alsoTrue);
    EXPECT_EQ(root.writes, 0);
    root.onWrite = [&](auto& name, auto& value) { SinkOf(root).OnChange(name, value); }; // before it keeps it
    SinkOf(root).OnChange("on", Flag(false));
    EXPECT_EQ(root.writes, 1);
    EXPECT_EQ(grid.GetItemText(4, 1), "");
}

TEST_F(Notifications, ChangeOfTypeMovesTheRegistrationAndTheEditor) {
    BindAndExpand();
    point.ChangeMemberType("x", DT_AngleDouble);
    SinkOf(point).OnOperationChangeType("x", DT_Double, Number(DT_AngleDouble, 1));
    EXPECT_EQ(grid.NodeAtRow(2)->info->GetControlType(0), CItemInfo::ctAngle);
    SetAngleFormatDouble(GermanFormat(0));
    EXPECT_EQ(grid.GetItemText(2, 1), "1");
    EXPECT_FALSE(grid.RemoveSink(DT_Double, &point, "x"));
    EXPECT_TRUE(grid.RemoveSink(DT_AngleDouble, &point, "x"));

    SinkOf(point).OnChangeEditFlag("y", false);
    EXPECT_FALSE(grid.NodeAtRow(3)->info->IsCellEnabled(0));
}

TEST_F(Notifications, InTheMultiColumnLayoutMembersAreCells) {
    grid.SetLayoutMultiColumn({"Name", "x", "y", "z"});
    Bind(root);
    EXPECT_EQ(Rows(grid), Lines({"p|1,00|2,00|"}));
    SinkOf(point).OnChange("y", Number(DT_Double, 5));
    SinkOf(point).OnOperationAdd("z", Words(DT_String, "new"));
    EXPECT_EQ(Rows(grid), Lines({"p|1,00|5,00|new"}));
    // Kept: the first value cell gets the editor of a member that stands in another column.
    SinkOf(point).OnOperationChangeType("y", DT_Double, Whole(DT_RangeInt, 5));
    EXPECT_EQ(grid.NodeAtRow(0)->info->GetControlType(0), CItemInfo::ctRange);
    EXPECT_EQ(grid.NodeAtRow(0)->info->GetControlType(1), CItemInfo::ctRange);
    SinkOf(point).OnOperationRename("z", "x2"); // no column: the first takes it
    EXPECT_EQ(Rows(grid), Lines({"p|new|5|"}));
    SinkOf(point).OnOperationRemove("y", Whole(DT_RangeInt, 5));
    SinkOf(root).OnOperationRename("p", "q");
    EXPECT_EQ(Rows(grid), Lines({"q|new||"}));
    SinkOf(root).OnOperationRemove("q", Group(&point));
    EXPECT_EQ(grid.LookupTreeItem(&point, "x"), nullptr);
    EXPECT_EQ(grid.GetItemCount(), 0);
}

TEST_F(Notifications, WhatIsNotShownIsIgnored) {
    BindAndExpand();
    const Lines before = Rows(grid);
    for (HostObject* unknown : {&Object(), static_cast<HostObject*>(nullptr), &point}) {
        grid.OnChange(unknown, "name", Words(DT_String, "B"));
        grid.OnOperationRemove(unknown, "name", Flag(true));
        grid.OnOperationRename(unknown, "name", "z");
        grid.OnChangeEditFlag(unknown, "name", false);
        grid.OnOperationChangeType(unknown, "name", DT_Int, Flag(true));
        grid.OnOperationChangeTupelPresentation(unknown == &point ? nullptr : unknown, "text");
    }
    grid.OnOperationAdd(&Object(), "new", Flag(true));
    grid.OnOperationInsert(nullptr, 0, "new", Flag(true));
    EXPECT_EQ(Rows(grid), before);
}

} // namespace
} // namespace korvel
