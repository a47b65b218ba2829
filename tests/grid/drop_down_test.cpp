#include "korvel/editors/i_grid_ctrl_combo_box_input_state.h"
#include "korvel/platform/error.h"
#include "korvel/window/list/header_ctrl.h"
#include "support/edit_fixture.h"
#include "support/table.h"

namespace korvel {
namespace {

using Act = std::function<void()>;

/// A grid with a list member "list", of which the first of many entries is chosen.
class DropDown : public EditTest {
protected:
    DropDown() {
        root.With("list", entries.ValueOf(",1,"));
        Bind();
    }
    ~DropDown() override {
        grid.DestroyWindow();
        root.LetGo();
    }
    void Open() {
        Click("list");
        ASSERT_EQ(grid.GetDroppedState(), 1);
        parent.Take();
        TakeBoxes();
    }
    std::string Chosen() { return root.Get("list").Text; }

    TestEnumeration entries{
        std::vector<std::string>{"a\\-b", "c", "d", "e", "f", "g", "h", "i", "j", "k", "l", "m"}};
};

TEST_F(DropDown, OpensBelowItsCell) {
    Click("list");
    const CRect cell = Cell("list");
    EXPECT_EQ(parent.Take(), "<7><22 a\\-b>");
    EXPECT_EQ(grid.m_ComboEdit.GetWindowTextA(), "a-b");
    EXPECT_EQ(view::Rectangle(grid.m_ComboEdit.m_hWnd),
              (CRect{cell.left + 1, cell.top + 1, cell.right - 20, cell.bottom - 1}));
    EXPECT_EQ(view::Rectangle(grid.m_ComboButton.m_hWnd),
              (CRect{cell.right - 19, cell.top + 1, cell.right - 1, cell.bottom - 1}));
    CRect place;
    grid.CalculateDroppedRect(place);
    EXPECT_EQ(place.Height(), 150);
    EXPECT_EQ(grid.m_ComboList.GetWindowRect().TopLeft(), place.TopLeft());
    EXPECT_EQ(grid.m_ComboList.GetWindowRect().right, place.right);
    EXPECT_EQ(GetFocus(), grid.m_hWnd) << "keys come to the grid";
    grid.CtrlEnd();
    ExpectUsable();
    const HWND list = grid.m_ComboList.m_hWnd;
    grid.DestroyWindow();
    EXPECT_FALSE(IsWindow(list));
}

TEST_F(DropDown, InAPaneItEndsWithTheMoveOfTheWindowAround) {
    grid.Clear();
    CWnd pane;
    pane.CreateEx(0, "KorvelFrame", "", WS_CHILD | WS_VISIBLE, {0, 0, 300, 224}, &parent, 3);
    pane.ModifyStyle(WS_CHILD, 0); // as embedded windows are
    OpenedGrid inPane(&observer, nullptr);
    inPane.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, {0, 0, 300, 224}, &pane, 4);
    inPane.Initialize(&root, "Name", "Value", 0);
    const CRect cell = inPane.GetSubItemRect(inPane.RowOfNode(inPane.LookupTreeItem(&root, "list")), 1);
    input::Mouse(inPane.m_hWnd, WM_LBUTTONDOWN, MK_LBUTTON, MiddleOf(cell));
    ASSERT_EQ(inPane.GetDroppedState(), 1);
    parent.MoveWindow({5, 5, 405, 405});
    EXPECT_EQ(inPane.GetDroppedState(), 0);
    inPane.DestroyWindow();
}

TEST_F(DropDown, KeysAndPressesEndIt) {
    const CRect moved{5, 5, 405, 405};
    const auto onEntry = [&] {
        input::Mouse(grid.m_ComboList.m_hWnd, WM_MOUSEMOVE, 0, {9, 30});
        PressIn(grid.m_ComboList, 9, 30)();
    };
    const auto pressRight = [&] {
        input::Mouse(grid.m_hWnd, WM_RBUTTONDOWN, MK_RBUTTON, MiddleOf(Cell("s")));
    };
    for (const auto& [border, act, isEnded, codes] : Table<Act, bool, const char*>{
             {"Return", [&] { Return(); }, true, "<9>"},
             {"F4", [&] { Press(VK_F4); }, true, "<9>"},
             {"Escape", [&] { Press(VK_ESCAPE, "\x1B"); }, true, "<10>"},
             {"Tab", [&] { Press(VK_TAB, "\t"); }, true, "<9>"},
             {"Alt+Up does not close", [&] { Press(VK_UP, "", WM_SYSKEYDOWN); }, false, ""},
             {"an entry", onEntry, true, ""},
             {"its own field", PressIn(grid.m_ComboEdit, 3, 3), true, ""},
             {"its arrow", PressIn(grid.m_ComboButton, 3, 3), true, ""},
             {"the header", PressIn(*grid.GetHeaderCtrl(), 30, 5), true, ""},
             {"a right press in another row", pressRight, true, ""},
             {"Return comes up again", [&] { Press(VK_RETURN, "", WM_KEYUP); }, false, ""},
             {"a press in the parent", PressIn(parent, 350, 350), true, "<4><9>"},
             {"the parent moves", [&] { parent.MoveWindow(moved); }, true, "<4><9>"},
             {"the focus leaves", [&] { other.SetFocus(); }, true, ""},
             {"the program is left", [] { input::ProgramLeft(); }, true, ""},
             {"the row scrolls away", [&] { grid.EnsureVisible(25, false); }, true, ""}}) {
        SCOPED_TRACE(border);
        grid.EnsureVisible(0, false);
        grid.SetFocus();
        ASSERT_NO_FATAL_FAILURE(Open());
        act();
        EXPECT_EQ(grid.GetDroppedState(), isEnded ? 0 : 1);
        const std::string chosen = root.Get("list").ToText();
        const std::string written =
            "[Member edited set list=" + chosen + "  changed list=" + chosen + " ]<8>";
        EXPECT_EQ(parent.Take(), isEnded ? codes + written : codes);
        grid.CtrlEnd();
        ExpectUsable();
    }
}

TEST_F(DropDown, KeysAndWheelAreTheLists) {
    Open();
    const int top = grid.GetTopIndex();
    input::Mouse(grid.m_hWnd, WM_MOUSEWHEEL, 0, {20, 60}, -120);
    EXPECT_EQ(grid.GetTopIndex(), top);
    EXPECT_GT(grid.m_ComboList.GetTopIndex(), 0);
    Press('K', "k");
    EXPECT_EQ(grid.m_ComboList.GetCurrentRow(), 9);
    EXPECT_EQ(grid.m_ComboEdit.GetWindowTextA(), "k") << "the field shows what is chosen";
    EXPECT_EQ(Chosen(), ",1,") << "which is not written before the list closes";
    const CRect list = grid.m_ComboList.GetWindowRect();
    const CPoint inGrid = ScreenToClient(grid.m_hWnd, {list.left + 5, list.top + 5});
    input::Mouse(grid.m_hWnd, WM_LBUTTONDOWN, MK_LBUTTON, inGrid);
    EXPECT_EQ(grid.GetDroppedState(), 0) << "a press at the list is the list's";
}

TEST_F(DropDown, EscapeGivesTheChoiceUpWhereTheGridSaysSo) {
    for (const bool cancels : {true, false}) {
        SCOPED_TRACE(cancels);
        grid.SetGridOption(EGridOption::EscapeCancels, cancels);
        Open();
        Press(VK_DOWN);
        Press(VK_ESCAPE, "\x1B");
        EXPECT_EQ(Chosen(), cancels ? ",1," : ",2,");
        EXPECT_EQ(parent.Take().find("[Member edited") != std::string::npos, !cancels);
        ExpectUsable();
    }
}

TEST_F(DropDown, AMemberThatCannotBeReadOpensNoList) {
    for (const bool throws : {false, true}) {
        SCOPED_TRACE(throws);
        int reads = 0;
        root.onRead = [&](const std::string& name) {
            if (name == "list" && ++reads == 1) {
                if (throws)
                    throw Error("of the object");
                root.RemoveMember("list");
            }
        };
        display.AnswerNext(IDOK);
        Click("list");
        EXPECT_EQ(TakeBoxes(), throws ? 1u : 0u);
        EXPECT_EQ(grid.GetDroppedState(), 0);
        EXPECT_EQ(grid.m_ComboEdit.IsWindowVisible(), !throws) << "a box takes the focus, which ends it";
        if (!throws)
            root.With("list", entries.ValueOf(",1,"));
        grid.CtrlEnd();
        ExpectUsable();
    }
}

TEST_F(DropDown, AnObjectThatThrowsClosesItToo) {
    Open();
    onSet = [] { throw Error("of the object"); };
    display.AnswerNext(IDOK);
    Return();
    EXPECT_EQ(TakeBoxes(), 1u);
    EXPECT_NE(parent.Take().find("]!"), std::string::npos);
    ExpectUsable();
}

TEST_F(DropDown, FollowsWhatHappensToItsMember) {
    IObserverGridSink& sink = *observer.sinks[&root];
    Open();
    root.RenameMember("list", "choice");
    sink.OnOperationRename("list", "choice");
    Press(VK_DOWN);
    Return();
    EXPECT_NE(parent.Take().find("set choice=c"), std::string::npos);
    root.RenameMember("choice", "list");
    sink.OnOperationRename("choice", "list");
    for (const auto& [border, act] : Table<Act>{
             {"retyped", [&] { sink.OnOperationChangeType("list", DT_ListString, Number(DT_Double, 1)); }},
             {"removed", [&] { sink.OnOperationRemove("list", {}); }}}) {
        SCOPED_TRACE(border);
        sink.OnOperationChangeType("list", DT_Double, entries.ValueOf(",1,"));
        Open();
        Press(VK_DOWN);
        parent.Take();
        act();
        EXPECT_EQ(parent.Take(), "<8>") << "nothing is written";
        ExpectUsable();
    }
}

} // namespace
} // namespace korvel
