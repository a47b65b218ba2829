#include "grid_fixture.h"

namespace korvel {
namespace {

TEST_F(BoundGridTest, AnObjectThatThrowsShowsWhatElseItHas) {
    HostObject& broken = Object();
    broken.With("good", Words(DT_String, "here")).With("bad", Words(DT_String, "never")).throwsOn = "bad";
    HostObject& nameless = Object();
    nameless.With("unseen", Flag(true)).throwsOn = "*";
    HostObject& root = Object();
    root.With("broken", Group(&broken)).With("nameless", Group(&nameless)).With("null", Group(nullptr));
    Bind(root);
    grid.ExpandAll();
    EXPECT_EQ(Lines({"broken|", " good|here", " bad|", "nameless|", "null|"}), Rows(grid));
}

TEST_F(BoundGridTest, AnObjectWithinItselfEndsAtItsOwnRow) {
    HostObject& inner = Object("inner");
    HostObject& root = Object("root");
    inner.With("up", Group(&root)).With("self", Group(&inner));
    root.With("inner", Group(&inner));
    Bind(root);
    grid.ExpandAll();
    EXPECT_EQ(Lines({"inner|", " up|", " self|"}), Rows(grid));
    SinkOf(root).OnOperationAdd("late", Words(DT_String, "at the root"));
    EXPECT_EQ(Lines({"inner|", " up|", " self|", "late|at the root"}), Rows(grid));
    SinkOf(root).OnOperationRemove("inner", Group(&inner));
    EXPECT_EQ(Lines({"late|at the root"}), Rows(grid));
}

TEST_F(BoundGridTest, AnObjectInTwoPlacesOutlivesTheFirst) {
    HostObject& shared = Object("shared");
    shared.With("x", Words(DT_String, "1"));
    HostObject& root = Object("root");
    root.With("a", Group(&shared)).With("b", Group(&shared));
    Bind(root);
    grid.ExpandAll();
    SinkOf(root).OnOperationRemove("a", Group(&shared));
    EXPECT_EQ(Lines({"b|", " x|1"}), Rows(grid));
    grid.OnChange(&shared, "x", Words(DT_String, "2")); // its row is known no more
    SinkOf(root).OnOperationRemove("b", Group(&shared));
    EXPECT_EQ(0, grid.GetItemCount());
}

TEST_F(BoundGridTest, OfManyMembersOfOneNameTheFirstIsAddressed) {
    HostObject& root = Object();
    for (int i = 0; i < 10000; ++i)
        root.With("same", Whole(DT_Int, i));
    Bind(root);
    EXPECT_EQ(10000, grid.GetItemCount());
    SinkOf(root).OnChange("same", Whole(DT_Int, 7));
    EXPECT_EQ("7", grid.GetItemText(0, 1));
    SinkOf(root).OnOperationRemove("same", Whole(DT_Int, 7));
    EXPECT_EQ(9999, grid.GetItemCount());
    SinkOf(root).OnOperationRemove("same", Whole(DT_Int, 7)); // none is addressed any more
    EXPECT_EQ(9999, grid.GetItemCount());
}

// The rows go by what they show, not by what the object answers by then.
TEST_F(BoundGridTest, AnObjectMayChangeItsNamesBeforeItsRowsGo) {
    HostObject& point = Object("point");
    point.With("x", Whole(DT_Int, 1)).With("y", Whole(DT_Int, 2));
    HostObject& root = Object("root");
    root.With("p", Group(&point));
    Bind(root);
    point.RemoveMember("x");
    point.RenameMember("y", "z");
    SinkOf(root).OnOperationRemove("p", Group(&point));
    grid.OnChange(&point, "x", Whole(DT_Int, 3));
    grid.OnChange(&point, "y", Whole(DT_Int, 3));
    EXPECT_EQ(0, grid.GetItemCount());
}

TEST_F(BoundGridTest, AnObjectMayTellOfRemovalsWhileItIsRead) {
    HostObject& point = Object("point");
    for (const char* name : {"x", "y", "z"})
        point.With(name, Words(DT_String, name));
    HostObject& root = Object("root");
    root.With("early", Flag(true)).With("late", Words(DT_String, "stays"));
    Bind(root);
    point.onRead = [&](const std::string& name) {
        if (name == "y")
            SinkOf(root).OnOperationRemove("p", Group(&point));
    };
    SinkOf(root).OnOperationAdd("p", Group(&point)); // not filed yet when "y" is read
    SinkOf(root).OnOperationRemove("p", Group(&point));
    point.onRead = [&](const std::string& name) {
        if (name == "y")
            grid.Clear();
    };
    SinkOf(root).OnOperationAdd("p", Group(&point));
    EXPECT_EQ(0, grid.GetItemCount());
    EXPECT_EQ(nullptr, grid.LookupTreeItem(&point, "x"));
}

// A row's text is the host's to touch; a removal must still leave nothing behind that leads to the row.
TEST_F(BoundGridTest, ARowWhoseTextWasOverwrittenIsForgottenWithItsGroup) {
    HostObject& point = Object("point");
    point.With("x", Whole(DT_Int, 1));
    HostObject& root = Object("root");
    root.With("p", Group(&point));
    Bind(root);
    grid.LookupTreeItem(&point, "x")->info->text = "overwritten";
    EXPECT_EQ(nullptr, grid.LookupTreeItem(&point, "x"));
    grid.RemoveRootNode(grid.LookupTreeItem(&root, "p"));
    grid.RebuildRows();
    EXPECT_EQ(nullptr, grid.LookupTreeItem(&point));
    EXPECT_EQ(nullptr, grid.LookupTreeItem(&point, "overwritten"));
    EXPECT_EQ("-point", observer.log.back());
}

TEST_F(BoundGridTest, ManyRowsGoAndComeWithoutTheCostOfTheirSquare) {
    HostObject& root = Object();
    root.SetOptions(0);
    Bind(root);
    constexpr int count = 20000;
    for (int i = 0; i < count; ++i)
        grid.OnOperationInsert(&root, 0, std::to_string(i), Whole(DT_Int, i));
    for (int i = 0; i < count; ++i)
        grid.OnOperationRemove(&root, std::to_string(i), Whole(DT_Int, i));
    EXPECT_EQ(0, grid.GetItemCount());
}

} // namespace
} // namespace korvel
