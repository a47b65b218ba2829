#include "korvel/window/display/window_view.h"
#include "support/list_fixture.h"

namespace korvel {
namespace {

class ListMouse : public ListTest {};

TEST_F(ListMouse, APressSelectsAReleaseIsTheClickAndTheCheckBoxToggles) {
    MakeList(3);
    Press(InRow(1));
    EXPECT_EQ(GetFocus(), list.m_hWnd);
    EXPECT_EQ(parent.Take(), (Notices{"changing 1", "changed 1"}));
    Mouse(WM_LBUTTONUP, InRow(1));
    EXPECT_EQ(parent.Take(), Notices{"click 1"});
    Mouse(WM_LBUTTONDBLCLK, InRow(1), MK_LBUTTON);
    Mouse(WM_LBUTTONUP, InRow(1));
    EXPECT_EQ(parent.Take(), Notices{"double click 1"});
    Click({180, 100}); // beside the columns
    EXPECT_EQ(Selected(), Rows{});
    EXPECT_EQ(parent.Take(), (Notices{"changing 1", "changed 1", "click -1"}));
    list.SetExtendedStyle(LVS_EX_CHECKBOXES);
    Click(InRow(1, 5));
    EXPECT_EQ(Selected(), Rows{});
    Click(InRow(1, 20)); // the label beside it selects
    EXPECT_EQ(Selected(), Rows{1});
    EXPECT_TRUE(list.GetCheck(1));
}

TEST_F(ListMouse, ShiftAndControlChooseSeveralRows) {
    MakeList(5, 0);
    const auto click = [this](int row, UINT flags) { return [=, this] { Click(InRow(row), flags); }; };
    const auto rightClick = [this](int row) {
        return [=, this] { Mouse(WM_RBUTTONDOWN, InRow(row), MK_RBUTTON), Mouse(WM_RBUTTONUP, InRow(row)); };
    };
    const CPoint beside{180, 100};
    for (const auto& [border, act, state] : Table<std::function<void()>, const char*>{
             {"one", click(1, 0), "1|1|0"},
             {"Shift", click(3, MK_SHIFT), "1,2,3|3|0"},
             {"Control", click(2, MK_CONTROL), "1,3|2|0"},
             {"a miss with a modifier", [&] { Click(beside, MK_CONTROL); }, "1,3|2|0"},
             {"a menu for all selected rows", rightClick(1), "1,3|1|0"},
             {"a press, as it might be a drag of all", [&] { Press(InRow(3)); }, "1,3|3|0"},
             {"its release", [&] { Mouse(WM_LBUTTONUP, InRow(3)); }, "3|3|0"},
             {"a menu for another row", rightClick(0), "0|0|0"}}) {
        act();
        EXPECT_EQ(State(), state) << border;
    }
    EXPECT_EQ(parent.Take().back(), "right click 0");
}

TEST_F(ListMouse, ADragBeginsAFewPixelsFromThePress) {
    MakeList(3);
    for (const auto& [border, x, flags, notices] :
         Table<int, UINT, Notices>{{"too near", 33, MK_LBUTTON, {"click 1"}},
                                   {"what became a drag is no click", 34, MK_LBUTTON, {"drag 1"}},
                                   {"released outside of the list", 90, 0, {}}}) {
        Press(InRow(1));
        parent.notices.clear();
        for (const UINT message : {WM_MOUSEMOVE, WM_MOUSEMOVE, WM_LBUTTONUP})
            Mouse(message, InRow(1, x), flags);
        EXPECT_EQ(parent.Take(), notices) << border;
    }
}

TEST_F(ListMouse, AHandlerMayDestroyTheListInAnyNotice) {
    for (const UINT code :
         {LVN_ITEMCHANGING, LVN_ITEMCHANGED, NM_CLICK, NM_DBLCLK, LVN_KEYDOWN, NM_SETFOCUS}) {
        MakeList(3);
        parent.on[code] = [&](const auto&) { return !list.DestroyWindow(); };
        Click(InRow(1));
        Mouse(WM_LBUTTONDBLCLK, InRow(1), MK_LBUTTON);
        Key(VK_DOWN);
        EXPECT_EQ(list.m_hWnd, nullptr) << code;
    }
}

class ListLabelEdit : public ListTest {
protected:
    LRESULT acceptance = 1;
    Notices texts; // of the end notices

    void SetUp() override {
        ListTest::SetUp();
        MakeList(3);
        parent.on[LVN_ENDLABELEDIT] = [this](const NMLISTVIEW& notice) {
            const char* text = reinterpret_cast<const NMLVDISPINFO&>(notice).pszText;
            texts.push_back(text ? text : "(null)");
            return acceptance;
        };
    }

    HWND Begin(const char* typed) {
        const HWND edit = list.EditLabel(1);
        SetWindowTextA(edit, typed);
        return edit;
    }
    void Press(UINT key) { input::Key(list.GetEditControl(), WM_KEYDOWN, key, "\r"); }
};

TEST_F(ListLabelEdit, EndsByReturnEscapeOrLossOfFocus) {
    const auto press = [this](UINT key) { return [=, this] { Press(key); }; };
    const CRect low{0, 0, 200, 64};
    const CSize byARow{0, 20};
    for (const auto& [border, answer, end, told, labels] :
         Table<LRESULT, std::function<void()>, const char*, const char*>{
             {"Return takes", 1, press(VK_RETURN), "typed", "row 0,typed,row 2"},
             {"a refused text", 0, press(VK_RETURN), "typed", "row 0,row 1,row 2"},
             {"Escape gives up", 1, press(VK_ESCAPE), "(null)", "row 0,row 1,row 2"},
             {"the focus leaves", 1, [this] { parent.SetFocus(); }, "typed", "row 0,typed,row 2"},
             {"a click into the list", 1, [this] { Click(InRow(2)); }, "typed", "row 0,typed,row 2"},
             {"scrolling", 1, [&] { list.MoveWindow(low), list.Scroll(byARow); }, "typed",
              "row 0,typed,row 2"},
             {"cancelled", 1, [this] { list.CancelEditLabel(); }, "(null)", "row 0,row 1,row 2"},
             {"an edit of no row", 1, [this] { list.EditLabel(3); }, "(null)", "row 0,row 1,row 2"},
             {"the row goes", 1, [this] { list.DeleteItem(1); }, "(null)", "row 0,row 2"}}) {
        SCOPED_TRACE(border);
        acceptance = answer;
        texts.clear();
        list.SetItemText(1, 0, "row 1");
        const HWND edit = Begin("typed");
        ASSERT_EQ(GetFocus(), edit);
        EXPECT_EQ(list.GetEditControl(), edit);
        end();
        EXPECT_EQ(texts, Notices{told});
        EXPECT_EQ(Labels(), labels);
        EXPECT_FALSE(IsWindow(edit));
        EXPECT_EQ(list.GetEditControl(), nullptr);
    }
}

TEST_F(ListLabelEdit, APressStopsWhereTheTextIsRefused) {
    for (const LRESULT answer : {1, 0}) {
        acceptance = answer;
        list.SetItemState(1, LVIS_SELECTED, LVIS_SELECTED);
        Begin("typed");
        Click(InRow(2));
        EXPECT_EQ(list.GetItemState(2, LVIS_SELECTED) != 0, answer == 1);
        list.SetItemState(-1, 0, LVIS_SELECTED);
    }
}

TEST_F(ListLabelEdit, TheEditExistsWhileItsBeginningCanBeRefused) {
    for (const bool refused : {true, false}) {
        HWND seen = nullptr;
        parent.on[LVN_BEGINLABELEDIT] = [&](const auto&) {
            SetWindowTextA(seen = list.GetEditControl(), "from the host");
            return refused;
        };
        EXPECT_EQ(list.EditLabel(0) == nullptr, refused);
        EXPECT_EQ(GetWindowTextA(seen), refused ? "" : "from the host");
    }
}

TEST_F(ListLabelEdit, FollowsItsRowAndGivesItTheTextThatItKeepsItself) {
    for (const bool hasTextSource : {false, true}) {
        if (hasTextSource)
            list.SetTextSource([](LPARAM, int) { return "lent"; });
        const HWND edit = Begin("typed");
        const int top = view::Rectangle(edit).top;
        list.InsertItem(0, "new");
        EXPECT_EQ(view::Rectangle(edit).top, top + 20);
        Press(VK_RETURN);
        EXPECT_EQ(list.GetItemText(2, 0), "typed");
    }
}

TEST_F(ListLabelEdit, NoneIsLeftByAHandlerThatBeginsAnotherOrThrows) {
    Begin("typed");
    parent.on[LVN_ENDLABELEDIT] = [&](const auto&) { return !list.EditLabel(2); };
    Press(VK_RETURN);
    EXPECT_EQ(Labels(), "row 0,typed,row 2");
    for (const UINT thrower : {LVN_BEGINLABELEDIT, LVN_ENDLABELEDIT}) {
        parent.on = {{thrower, [](const auto&) -> LRESULT { throw std::runtime_error("refused"); }}};
        EXPECT_THROW((list.EditLabel(1), list.CancelEditLabel()), std::runtime_error);
        EXPECT_EQ(list.GetEditControl(), nullptr);
        EXPECT_EQ(GetNextSibling(GetFirstChild(list.m_hWnd)), nullptr) << "the header alone";
    }
}

TEST_F(ListLabelEdit, AHandlerOfItsEndMayRemoveRowsWhileTheListScrolls) {
    MakeList(12);
    parent.on[LVN_ENDLABELEDIT] = [&](const auto&) { return !list.DeleteRows(1, 12); };
    list.EditLabel(0);
    list.Scroll({0, 20});
    EXPECT_EQ(view::Rectangle(list.GetHeaderCtrl()->m_hWnd), (CRect{0, 0, 200, 24}))
        << "without a bar beside it";
}

TEST_F(ListLabelEdit, ASecondSlowClickBeginsItOnce) {
    list.ModifyStyle(0, LVS_EDITLABELS);
    const auto click = [this] { Click(InRow(1)); };
    const auto inValue = [this] { Click(InRow(1, 110)); };
    const auto doubleClick = [&] { click(), Mouse(WM_LBUTTONDBLCLK, InRow(1), MK_LBUTTON); };
    const auto fromOutside = [&] { parent.SetFocus(), click(); };
    const auto clickAndKey = [&] { click(), Key(VK_UP), Key(VK_DOWN); };
    for (const auto& [border, act, begins] :
         Table<std::function<void()>, bool>{{"the first click", click, false},
                                            {"a double click", doubleClick, false},
                                            {"in another column", inValue, false},
                                            {"a key after it", clickAndKey, false},
                                            {"a slow one", click, true},
                                            {"after its end", [this] { Press(VK_ESCAPE); }, false},
                                            {"which brings the focus", fromOutside, false}}) {
        act();
        display.Advance(std::chrono::seconds(1));
        EXPECT_EQ(list.GetEditControl() != nullptr, begins) << border;
    }
}

} // namespace
} // namespace korvel
