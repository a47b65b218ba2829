#include "korvel/window/core/exception_handler.h"
#include "support/grid_fixture.h"
#include "support/table.h"

#include <functional>
#include <new>

namespace korvel {
namespace {

TEST_F(BoundGridTest, AnObjectThatThrowsShowsWhatElseItHas) {
    HostObject& nameless = Object();
    nameless.With("unseen", Flag(true)).throwsOn = "*";
    point.With("good", Words(DT_String, "here")).With("bad", Words(DT_String, "never")).throwsOn = "bad";
    root.With("broken", Group(&point)).With("nameless", Group(&nameless)).With("null", Group(nullptr));
    BindAndExpand();
    EXPECT_EQ(Rows(grid), Lines({"broken|", " good|here", " bad|", "nameless|", "null|"}));
}

TEST_F(BoundGridTest, AnObjectWithinItselfEndsAtItsOwnRow) {
    point.With("up", Group(&root)).With("self", Group(&point));
    root.With("inner", Group(&point));
    BindAndExpand();
    SinkOf(root).OnOperationAdd("late", Words(DT_String, "at the root"));
    EXPECT_EQ(Rows(grid), Lines({"inner|", " up|", " self|", "late|at the root"}));
    SinkOf(root).OnOperationRemove("inner", Group(&point));
    EXPECT_EQ(Rows(grid), Lines({"late|at the root"}));
}

TEST_F(BoundGridTest, ObjectsWithinObjectsEndAtADepthThatMemoryBears) {
    HostObject* deepest = &root;
    for (int depth = 0; depth < 2500; ++depth) {
        HostObject& inner = Object();
        deepest->With("in", Group(&inner));
        deepest = &inner;
    }
    BindAndExpand();
    EXPECT_EQ(grid.GetItemCount(), 2000);
}

TEST_F(BoundGridTest, AnObjectInTwoPlacesOutlivesTheFirst) {
    point.With("x", Words(DT_String, "1"));
    root.With("a", Group(&point)).With("b", Group(&point));
    BindAndExpand();
    SinkOf(root).OnOperationRemove("a", Group(&point));
    EXPECT_EQ(Rows(grid), Lines({"b|", " x|1"}));
    grid.OnChange(&point, "x", Words(DT_String, "2")); // its row is known no more
    SinkOf(root).OnOperationRemove("b", Group(&point));
    EXPECT_EQ(grid.GetItemCount(), 0);
}

TEST_F(BoundGridTest, OfManyMembersOfOneNameTheFirstIsAddressed) {
    for (int i = 0; i < 10000; ++i)
        root.With("same", Whole(DT_Int, i));
    Bind(root);
    SinkOf(root).OnChange("same", Whole(DT_Int, 7));
    EXPECT_EQ(grid.GetItemText(0, 1), "7");
    for (int i = 0; i < 2; ++i) {
        SinkOf(root).OnOperationRemove("same", Whole(DT_Int, 7));
        EXPECT_EQ(grid.GetItemCount(), 9999) << "none is addressed any more";
    }
}

// Rows go by what they are filed for, whatever object and host have made of names and texts since.
TEST_F(BoundGridTest, AnObjectMayChangeItsNamesAndTheHostItsTextsBeforeRowsGo) {
    point.With("x", Whole(DT_Int, 1)).With("y", Whole(DT_Int, 2));
    root.With("p", Group(&point));
    Bind(root);
    point.RemoveMember("x");
    point.RenameMember("y", "z");
    grid.LookupTreeItem(&point, "x")->info->text = "overwritten";
    grid.RemoveRootNode(grid.LookupTreeItem(&root, "p"));
    for (const char* name : {"x", "y", "overwritten"})
        EXPECT_EQ(grid.LookupTreeItem(&point, name), nullptr) << name;
    EXPECT_EQ(observer.log.back(), "-point");
}

TEST_F(BoundGridTest, AnObjectMayTellOfRemovalsWhileItIsPainted) {
    root.With("early", Flag(true)).With("late", Words(DT_String, "stays"));
    Bind(root);
    root.onRead = [&](const std::string& name) { SinkOf(root).OnOperationRemove(name, Flag(true)); };
    display.PaintWindow(grid.m_hWnd);
    EXPECT_EQ(Rows(grid), Lines({"late|stays"}));
}

// Whatever goes while a flag is read: only its own row ends the write.
TEST_F(BoundGridTest, AFlagIsWrittenAlthoughAnotherRowGoesMeanwhile) {
    for (const auto& [removed, isWritten] : {std::pair("other", true), {"on", false}}) {
        HostObject& object = Object();
        object.With("on", Flag(true)).With("other", Flag(true));
        Bind(object);
        object.onRead = [&, name = std::string(removed)](const std::string&) {
            SinkOf(object).OnOperationRemove(name, Flag(true));
        };
        SinkOf(object).OnChange("on", Flag(false));
        EXPECT_EQ(object.writes, isWritten ? 1 : 0) << removed;
        grid.Clear();
    }
}

TEST_F(BoundGridTest, AnObserverThatThrowsStopsNoneOfTheOthersFromHearing) {
    root.With("p", Group(&point)).With("q", Group(&Object("other")));
    point.With("deep", Group(&Object("deep")));
    for (const auto& [border, told, act] : Table<int, std::function<void()>>{
             {"a removal", 2, [&] { SinkOf(root).OnOperationRemove("p", Group(&point)); }},
             {"the end", 4, [&] { grid.Clear(); }},
             {"another layout", 4, [&] { grid.SetLayoutSingleAttrColumn(); }},
             {"the end of the window", 4, [&] { grid.DestroyWindow(); }}}) {
        Bind(root);
        observer.Take();
        observer.throwsOnRemove = true;
        std::string thrown;
        try {
            act();
        } catch (const std::runtime_error& error) {
            thrown = error.what();
        }
        observer.throwsOnRemove = false;
        const Lines heard = observer.Take();
        EXPECT_EQ(std::count_if(heard.begin(), heard.end(), [](auto& line) { return line[0] == '-'; }), told)
            << border;
        EXPECT_EQ(thrown, heard.front()) << border << ": the first goes on";
        grid.Clear();
    }
}

/// Says when one of its columns has another width.
class WidthGrid : public CEditableGrid {
public:
    using CEditableGrid::CEditableGrid;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_NOTIFY && reinterpret_cast<const NMHDR*>(lParam)->code == HDN_ITEMCHANGED &&
            onWidth)
            onWidth();
        return CEditableGrid::WindowProc(message, wParam, lParam);
    }
    std::function<void()> onWidth;
};

TEST_F(GridTest, WidthsOfColumnsOutliveBindingsThatFailAndHandlersThatEndThem) {
    point.With("x", Flag(true));
    root.With("p", Group(&point));
    WidthGrid* grid = nullptr;
    const auto bind = [&] { grid->Initialize(&root, "Name", "Value", 0); };
    const auto fail = [&] {
        point.onRead = [](const std::string&) { throw std::bad_alloc(); };
        EXPECT_THROW(bind(), std::bad_alloc);
        EXPECT_EQ(grid->GetColumnCount(), 0);
        point.onRead = nullptr;
    };
    for (const auto& [border, onWidth, act] : Table<std::function<void()>, std::function<void()>>{
             {"a failure", nullptr, fail},
             {"a handler that takes them away", [&] { grid->SetColumnInfo({}); }, bind},
             {"a handler that ends the binding, then a failure", [&] { grid->Clear(); }, bind}}) {
        SCOPED_TRACE(border);
        WidthGrid made(nullptr, nullptr);
        grid = &made;
        Make(made);
        made.SetColumnInfo({{0, 70}, {1, 80}});
        made.onWidth = onWidth;
        act();
        made.onWidth = nullptr;
        made.Clear();
        fail();
        bind();
        EXPECT_EQ(made.GetColumnWidth(0), 70);
        EXPECT_EQ(made.GetColumnWidth(1), 80);
    }
}

TEST_F(GridTest, WhatIsThrownAtTheEndOfAGridGoesToTheExceptionHandler) {
    Lines heard;
    SetExceptionHandler([&](const CString& text) { heard.push_back(text); });
    RecordingObserver observer;
    for (const bool hasWindow : {true, false}) {
        CEditableGrid grid(&observer, nullptr);
        if (hasWindow)
            Make(grid);
        grid.Initialize(&root, "Name", "Value", 0);
        observer.throwsOnRemove = true;
    }
    SetExceptionHandler(nullptr);
    EXPECT_EQ(heard, Lines({"-root", "-root"}));
}

/// The parent of a grid that ends.
struct ThrowingParent : CWnd {
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_NOTIFY && onNotice)
            onNotice(reinterpret_cast<const NMHDR*>(lParam)->hwndFrom);
        return CWnd::WindowProc(message, wParam, lParam);
    }
    std::function<void(HWND sender)> onNotice;
};

TEST_F(GridTest, ABareGridEndsAsAWholeAlthoughItsParentThrows) {
    ThrowingParent parent;
    parent.CreateEx(0, "KorvelFrame", "", WS_VISIBLE, {0, 0, 400, 400}, nullptr, 0);
    for (const bool isEdited : {true, false}) {
        SCOPED_TRACE(isEdited);
        Lines heard;
        SetExceptionHandler([&](const CString& text) { heard.push_back(text); });
        HWND window = nullptr;
        {
            CSuperGridCtrl grid;
            grid.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, {0, 0, 300, 224}, &parent, 105);
            grid.InsertColumn(0, "Name", 150);
            Add(grid, nullptr, "row");
            Select(grid, 0);
            window = grid.m_hWnd;
            if (isEdited) {
                Press(grid, VK_RETURN);
                ASSERT_NE(GetFocus(), window);
            }
            parent.onNotice = [&](HWND sender) {
                ASSERT_EQ(sender, window);
                EXPECT_TRUE(dynamic_cast<CSuperGridCtrl*>(CWnd::FromHandlePermanent(window)))
                    << "its rows lead to nodes";
                throw std::runtime_error("of the parent");
            };
        }
        parent.onNotice = nullptr;
        SetExceptionHandler(nullptr);
        EXPECT_EQ(heard, Lines(isEdited ? 2 : 1, "of the parent"));
        EXPECT_FALSE(IsWindow(window));
    }
}

} // namespace
} // namespace korvel
