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

TEST_F(BoundGridTest, AnObjectMayRemoveARowThatIsBeingPainted) {
    HostObject& root = Object("root");
    root.With("on", Flag(true)).With("stays", Words(DT_String, "here"));
    Bind(root);
    root.onRead = [&](const std::string& name) { SinkOf(root).OnOperationRemove(name, Flag(true)); };
    display.PaintWindow(grid.m_hWnd);
    EXPECT_EQ(Lines({"stays|here"}), Rows(grid));
}

TEST_F(BoundGridTest, AnObjectMayTellOfAFlagBeforeItKeepsIt) {
    HostObject& root = Object("root");
    root.With("on", Flag(false));
    Bind(root);
    root.onWrite = [&](const std::string& name, const CVariantValue& value) {
        SinkOf(root).OnChange(name, value);
    };
    SinkOf(root).OnChange("on", Flag(true));
    EXPECT_EQ(1, root.writes);
    SinkOf(root).OnChange("on", Flag(false));
    EXPECT_EQ(2, root.writes);
}

TEST_F(BoundGridTest, AnObjectThatBindsTheGridWhileItIsReadIsShownOnce) {
    HostObject& root = Object("root");
    root.With("a", Flag(true));
    root.onRead = [&](const std::string&) { Bind(root); };
    Bind(root);
    EXPECT_EQ(Lines({"a|"}), Rows(grid));
    EXPECT_EQ(2, grid.GetColumnCount());
}

/// Comes back to the grid with whatever it hears of an object that is no longer shown.
class ReturningObserver final : public RecordingObserver {
public:
    void RemoveSink(IMemberDispatch* disp, IObserverGridSink* sink) override {
        RecordingObserver::RemoveSink(disp, sink);
        sink->OnOperationAdd("late", Group(&late));
        grid->Clear();
        grid->Initialize(disp, "Name", "Value", 0);
    }
    HostObject late{"late"};
    CEditableGrid* grid = nullptr;
};

TEST_F(GridTest, AnObserverMayComeBackWhileTheGridIsCleared) {
    HostObject& point = Object("point");
    HostObject& root = Object("root");
    root.With("p", Group(&point));
    ReturningObserver observer;
    CEditableGrid grid(&observer, nullptr);
    observer.grid = &grid;
    Make(grid);
    grid.Initialize(&root, "Name", "Value", 0);
    observer.Take();
    grid.Clear();
    EXPECT_EQ(Lines({"-point", "-root"}), observer.Take());
    EXPECT_EQ(0, grid.GetColumnCount());
    EXPECT_EQ(nullptr, grid.LookupTreeItem(&observer.late));
    grid.Initialize(&root, "Name", "Value", 0);
    EXPECT_EQ(Lines({"p|"}), Rows(grid));
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
