#include "support/edit_fixture.h"
#include "support/table.h"

#include <chrono>

namespace korvel {
namespace {

using namespace std::chrono_literals;

/// A group "group" with a member "inner", between other rows.
class EditKeys : public EditTest {
protected:
    EditKeys() {
        inner.With("inner", Number(DT_Double, 1));
        root.With("flag", Flag(false))
            .With("list", entries.ValueOf(",1,"))
            .With("angle", Number(DT_AngleDouble, 0))
            .With("group", Group(&inner));
        grid.Initialize(&root, "Name", "Value", 0);
        parent.Take();
    }
    ~EditKeys() override {
        grid.DestroyWindow();
        root.LetGo();
    }
    void Select(const std::string& name) {
        grid.SetFocus();
        const int row = grid.RowOfNode(grid.LookupTreeItem(&root, name));
        grid.SetItemState(row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    }
    std::string State() {
        std::string state = grid.m_Edit.IsWindowVisible() ? "field " + grid.m_Edit.GetWindowTextA()
                            : grid.GetDroppedState()      ? "list"
                                                          : "";
        if (!grid.LookupTreeItem(&root, "group")->collapsed())
            state += "open";
        return state + parent.Take();
    }

    TestEnumeration entries{std::vector<std::string>{"a", "b"}};
    HostObject inner{"inner"};
};

TEST_F(EditKeys, OpenToggleAndDropWhereTheGridSaysSo) {
    const Table<const char*, UINT, const char*, UINT, const char*, const char*> rows = {
        {"F2", "v", VK_F2, "", WM_KEYDOWN, "field 12.500000", ""},
        {"Return", "s", VK_RETURN, "\r", WM_KEYDOWN, "field text", ""},
        {"F2 on an angle", "angle", VK_F2, "", WM_KEYDOWN, "field 0.000000", ""},
        {"F2 on a flag", "flag", VK_F2, "", WM_KEYDOWN, "", ""},
        {"Space", "flag", VK_SPACE, " ", WM_KEYDOWN, "[Member edited set flag=true  changed flag=true ]", ""},
        {"Space elsewhere", "v", VK_SPACE, " ", WM_KEYDOWN, "", ""},
        {"Alt+Down", "list", VK_DOWN, "", WM_SYSKEYDOWN, "list<7><22 a>", ""},
        {"Alt+Down elsewhere", "v", VK_DOWN, "", WM_SYSKEYDOWN, "", ""},
        {"Right", "group", VK_RIGHT, "", WM_KEYDOWN, "open", ""},
        {"plus of the main row", "group", 0xBB, "+", WM_KEYDOWN, "open", ""},
        {"star of the main row", "group", 0xBB, "*", WM_KEYDOWN, "open", ""},
        {"Return on a group", "group", VK_RETURN, "\r", WM_KEYDOWN, "open", ""},
        {"plus of the keypad", "group", VK_ADD, "+", WM_KEYDOWN, "open", "open"}};
    for (const bool isOn : {true, false})
        for (const auto& [border, name, key, characters, message, stateOn, stateOff] : rows) {
            SCOPED_TRACE(std::string(border) + (isOn ? " on" : " off"));
            grid.SetGridOption(EGridOption::KeyboardEditing, isOn);
            Select(name);
            Press(key, characters, message);
            EXPECT_EQ(State(), isOn ? stateOn : stateOff);
            grid.CtrlEnd();
            grid.CollapseAll();
            grid.SetFocus();
            parent.Take();
        }
}

TEST_F(EditKeys, CloseGroupsAndMoveTheColumnElsewhere) {
    grid.SetGridOption(EGridOption::KeyboardEditing, true);
    for (const auto& [border, key, characters] :
         Table<UINT, const char*>{{"Left", VK_LEFT, ""}, {"minus", 0xBD, "-"}, {"Return", VK_RETURN, "\r"}}) {
        grid.ExpandAll();
        Select("group");
        Press(key, characters);
        EXPECT_EQ(State(), "") << border;
    }
    Select("v");
    EXPECT_EQ(grid.GetCurrentColumn(), 0);
    Press(VK_RIGHT);
    EXPECT_EQ(grid.GetCurrentColumn(), 1);
    Press(VK_LEFT);
    EXPECT_EQ(grid.GetCurrentColumn(), 0);
    grid.SetAllowEdit(false);
    Press(VK_F2);
    EXPECT_EQ(State(), "");
}

TEST_F(EditKeys, KeysOfTheFieldAreNotTheGrids) {
    grid.SetGridOption(EGridOption::KeyboardEditing, true);
    Select("v");
    Press(VK_F2);
    Press(VK_RIGHT);
    Press(VK_SPACE, " ");
    EXPECT_TRUE(IsFieldOpen());
    Press(VK_TAB, "\t");
    EXPECT_EQ(GetFocus(), other.m_hWnd) << "Tab leads on from the grid";
    ExpectUsable();
}

TEST_F(EditKeys, KeysOfAListAreDroppedWhileThereIsNone) {
    Select("list");
    EXPECT_TRUE(Press(VK_F4));
    EXPECT_TRUE(Press(VK_DOWN, "", WM_SYSKEYDOWN));
    EXPECT_EQ(grid.GetDroppedState(), 0);
    Press(VK_TAB, "\t");
    EXPECT_EQ(GetFocus(), other.m_hWnd);
}

TEST_F(EditKeys, ThePointerRestsOnALabel) {
    const CPoint label{60, MiddleOf(Cell("v")).y};
    const auto move = [&](CPoint point) {
        display.MovePointer(ClientToScreen(grid.m_hWnd, point));
        input::Mouse(grid.m_hWnd, WM_MOUSEMOVE, 0, point);
    };
    move(label);
    display.Advance(190ms);
    EXPECT_EQ(grid.GetHighlightItem(), -1);
    display.Advance(20ms);
    EXPECT_EQ(grid.GetHighlightItem(), 0);
    EXPECT_EQ(parent.Take(), "<21>");
    display.Advance(2000ms);
    EXPECT_EQ(grid.GetHighlightItem(), -1);
    EXPECT_EQ(parent.Take(), "<20>");
    display.Advance(5000ms);
    EXPECT_EQ(parent.Take(), "") << "once, until it moves";
    move(label);
    display.Advance(200ms);
    move({60, MiddleOf(Cell("s")).y});
    EXPECT_EQ(parent.Take(), "<21><20>");
    move({60, 215}); // below the last row
    display.Advance(500ms);
    EXPECT_EQ(parent.Take(), "");
    EXPECT_EQ(grid.m_HoverTimer, 0u);
}

TEST_F(EditKeys, ControlsOfACellAreSquaresOfItsHeight) {
    const CRect cell = Cell("v");
    EXPECT_EQ(grid.GetControlRect(0, 1, DT_Bool), (CRect{cell.left, cell.top, cell.left + 20, cell.bottom}));
    EXPECT_EQ(grid.GetControlRect(0, 1, DT_Double),
              (CRect{cell.right - 20, cell.top, cell.right, cell.bottom}));
    EXPECT_EQ(grid.GetControlRect(99, 1, DT_Double), CRect());
}

} // namespace
} // namespace korvel
