#include "support/grid_fixture.h"

namespace korvel {
namespace {

TEST_F(BoundGridTest, AnObjectThatThrowsShowsWhatElseItHas) {
    HostObject& nameless = Object();
    nameless.With("unseen", Flag(true)).throwsOn = "*";
    point.With("good", Words(DT_String, "here")).With("bad", Words(DT_String, "never")).throwsOn = "bad";
    root.With("broken", Group(&point)).With("nameless", Group(&nameless)).With("null", Group(nullptr));
    BindAndExpand();
    EXPECT_EQ(Lines({"broken|", " good|here", " bad|", "nameless|", "null|"}), Rows(grid));
}

TEST_F(BoundGridTest, AnObjectWithinItselfEndsAtItsOwnRow) {
    point.With("up", Group(&root)).With("self", Group(&point));
    root.With("inner", Group(&point));
    BindAndExpand();
    SinkOf(root).OnOperationAdd("late", Words(DT_String, "at the root"));
    EXPECT_EQ(Lines({"inner|", " up|", " self|", "late|at the root"}), Rows(grid));
    SinkOf(root).OnOperationRemove("inner", Group(&point));
    EXPECT_EQ(Lines({"late|at the root"}), Rows(grid));
}

TEST_F(BoundGridTest, ObjectsWithinObjectsEndAtADepthThatMemoryBears) {
    HostObject* deepest = &root;
    for (int depth = 0; depth < 2500; ++depth) {
        HostObject& inner = Object();
        deepest->With("in", Group(&inner));
        deepest = &inner;
    }
    BindAndExpand();
    EXPECT_EQ(2000, grid.GetItemCount());
}

TEST_F(BoundGridTest, AnObjectInTwoPlacesOutlivesTheFirst) {
    point.With("x", Words(DT_String, "1"));
    root.With("a", Group(&point)).With("b", Group(&point));
    BindAndExpand();
    SinkOf(root).OnOperationRemove("a", Group(&point));
    EXPECT_EQ(Lines({"b|", " x|1"}), Rows(grid));
    grid.OnChange(&point, "x", Words(DT_String, "2")); // its row is known no more
    SinkOf(root).OnOperationRemove("b", Group(&point));
    EXPECT_EQ(0, grid.GetItemCount());
}

TEST_F(BoundGridTest, OfManyMembersOfOneNameTheFirstIsAddressed) {
    for (int i = 0; i < 10000; ++i)
        root.With("same", Whole(DT_Int, i));
    Bind(root);
    SinkOf(root).OnChange("same", Whole(DT_Int, 7));
    EXPECT_EQ("7", grid.GetItemText(0, 1));
    for (int i = 0; i < 2; ++i) {
        SinkOf(root).OnOperationRemove("same", Whole(DT_Int, 7));
        EXPECT_EQ(9999, grid.GetItemCount()) << "none is addressed any more";
    }
}

// The rows go by what they show, not by what the object answers by then.
TEST_F(BoundGridTest, AnObjectMayChangeItsNamesBeforeItsRowsGo) {
    point.With("x", Whole(DT_Int, 1)).With("y", Whole(DT_Int, 2));
    root.With("p", Group(&point));
    Bind(root);
    point.RemoveMember("x");
    point.RenameMember("y", "z");
    SinkOf(root).OnOperationRemove("p", Group(&point));
    for (const char* name : {"x", "y"})
        EXPECT_EQ(nullptr, grid.LookupTreeItem(&point, name)) << name;
}

TEST_F(BoundGridTest, AnObjectMayTellOfRemovalsWhileItIsReadOrPainted) {
    for (const char* name : {"x", "y", "z"})
        point.With(name, Words(DT_String, name));
    root.With("early", Flag(true)).With("late", Words(DT_String, "stays"));
    Bind(root);
    point.onRead = [&](const std::string& name) {
        if (name == "y")
            SinkOf(root).OnOperationRemove("p", Group(&point));
    };
    SinkOf(root).OnOperationAdd("p", Group(&point)); // not filed yet when "y" is read
    SinkOf(root).OnOperationRemove("p", Group(&point));
    root.onRead = [&](const std::string& name) { SinkOf(root).OnOperationRemove(name, Flag(true)); };
    display.PaintWindow(grid.m_hWnd);
    EXPECT_EQ("late|stays", Rows(grid).front());
    point.onRead = [&](const std::string& name) {
        if (name == "y")
            grid.Clear();
    };
    SinkOf(root).OnOperationAdd("p", Group(&point));
    EXPECT_EQ(0, grid.GetItemCount());
    EXPECT_EQ(nullptr, grid.LookupTreeItem(&point, "x"));
}

TEST_F(BoundGridTest, AnObjectThatBindsTheGridWhileItIsReadIsShownOnce) {
    root.With("a", Flag(true));
    root.onRead = [&](const std::string&) { Bind(root); };
    Bind(root);
    EXPECT_EQ(Lines({"a|"}), Rows(grid));
}

TEST_F(GridTest, AnObserverMayComeBackWhileTheGridIsCleared) {
    root.With("p", Group(&point));
    ReturningObserver returning;
    CEditableGrid& grid = returning.grid;
    Make(grid);
    grid.Initialize(&root, "Name", "Value", 0);
    returning.Take();
    grid.Clear();
    EXPECT_EQ(Lines({"-point", "-root"}), returning.Take());
    EXPECT_EQ(0, grid.GetColumnCount());
    EXPECT_EQ(nullptr, grid.LookupTreeItem(&returning.late));
    grid.Initialize(&root, "Name", "Value", 0);
    EXPECT_EQ(Lines({"p|"}), Rows(grid));
}

// A row's text is the host's to touch; a removal must still leave nothing behind that leads to the row.
TEST_F(BoundGridTest, ARowWhoseTextWasOverwrittenIsForgottenWithItsGroup) {
    point.With("x", Whole(DT_Int, 1));
    root.With("p", Group(&point));
    Bind(root);
    grid.LookupTreeItem(&point, "x")->info->text = "overwritten";
    grid.RemoveRootNode(grid.LookupTreeItem(&root, "p"));
    EXPECT_EQ(nullptr, grid.LookupTreeItem(&point));
    EXPECT_EQ(nullptr, grid.LookupTreeItem(&point, "overwritten"));
    EXPECT_EQ("-point", observer.log.back());
}

} // namespace
} // namespace korvel
