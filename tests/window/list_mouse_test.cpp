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
    input::Mouse(list.m_hWnd, WM_LBUTTONUP, 0, InRow(1));
    EXPECT_EQ(parent.Take(), Notices{"click 1"});
    input::Mouse(list.m_hWnd, WM_LBUTTONDBLCLK, MK_LBUTTON, InRow(1));
    input::Mouse(list.m_hWnd, WM_LBUTTONUP, 0, InRow(1));
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
    const auto rightClick = [&](int row) {
        input::Mouse(list.m_hWnd, WM_RBUTTONDOWN, MK_RBUTTON, InRow(row));
        input::Mouse(list.m_hWnd, WM_RBUTTONUP, 0, InRow(row));
    };
    for (const auto& [border, act, selected] : Table<std::function<void()>, Rows>{
             {"one", [&] { Click(InRow(1)); }, {1}},
             {"Shift", [&] { Click(InRow(3), MK_SHIFT); }, {1, 2, 3}},
             {"Control", [&] { Click(InRow(2), MK_CONTROL); }, {1, 3}},
             {"a miss with a modifier",
              [&] {
                  Click({180, 100}, MK_CONTROL);
              },
              {1, 3}},
             {"a menu for all selected rows", [&] { rightClick(1); }, {1, 3}},
             {"a press, as it might be a drag of all", [&] { Press(InRow(3)); }, {1, 3}},
             {"its release", [&] { input::Mouse(list.m_hWnd, WM_LBUTTONUP, 0, InRow(3)); }, {3}},
             {"a menu for another row", [&] { rightClick(0); }, {0}}}) {
        act();
        EXPECT_EQ(Selected(), selected) << border;
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
        input::Mouse(list.m_hWnd, WM_MOUSEMOVE, flags, InRow(1, x));
        input::Mouse(list.m_hWnd, WM_MOUSEMOVE, flags, InRow(1, x));
        input::Mouse(list.m_hWnd, WM_LBUTTONUP, 0, InRow(1, x));
        EXPECT_EQ(parent.Take(), notices) << border;
    }
}

TEST_F(ListMouse, AHandlerMayDestroyTheListInAnyNotice) {
    for (const UINT code :
         {LVN_ITEMCHANGING, LVN_ITEMCHANGED, NM_CLICK, NM_DBLCLK, LVN_KEYDOWN, NM_SETFOCUS}) {
        parent.answer = nullptr;
        MakeList(3);
        parent.answer = [&](const NMLISTVIEW& notice) -> LRESULT {
            if (notice.hdr.code == code)
                list.DestroyWindow();
            return 0;
        };
        Click(InRow(1));
        input::Mouse(list.m_hWnd, WM_LBUTTONDBLCLK, MK_LBUTTON, InRow(1));
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
        parent.answer = [this](const NMLISTVIEW& notice) -> LRESULT {
            if (notice.hdr.code != LVN_ENDLABELEDIT)
                return 0;
            const char* text = reinterpret_cast<const NMLVDISPINFO&>(notice).pszText;
            texts.push_back(text ? text : "(null)");
            return acceptance;
        };
    }

    HWND Begin(int row, const char* typed) {
        const HWND edit = list.EditLabel(row);
        SetWindowTextA(edit, typed);
        return edit;
    }
};

TEST_F(ListLabelEdit, EndsByReturnEscapeOrLossOfFocus) {
    const auto press = [](UINT key) { return [key](HWND edit) { input::Key(edit, WM_KEYDOWN, key, "\r"); }; };
    const auto scroll = [this](HWND) {
        list.MoveWindow({0, 0, 200, 64});
        list.Scroll({0, 20});
    };
    for (const auto& [border, answer, end, told, textAfter] :
         Table<LRESULT, std::function<void(HWND)>, const char*, const char*>{
             {"Return takes", 1, press(VK_RETURN), "typed", "typed"},
             {"a refused text", 0, press(VK_RETURN), "typed", "row 1"},
             {"Escape gives up", 1, press(VK_ESCAPE), "(null)", "row 1"},
             {"the focus leaves", 1, [this](HWND) { SetFocus(parent.m_hWnd); }, "typed", "typed"},
             {"a click into the list", 1, [this](HWND) { Click(InRow(2)); }, "typed", "typed"},
             {"scrolling", 1, scroll, "typed", "typed"},
             {"cancelled", 1, [this](HWND) { list.CancelEditLabel(); }, "(null)", "row 1"},
             {"an edit of no row", 1, [this](HWND) { list.EditLabel(-1); }, "(null)", "row 1"},
             {"the row goes", 1, [this](HWND) { list.DeleteItem(1); }, "(null)", "row 2"}}) {
        SCOPED_TRACE(border);
        acceptance = answer;
        texts.clear();
        list.SetItemText(1, 0, "row 1");
        const HWND edit = Begin(1, "typed");
        ASSERT_EQ(GetFocus(), edit);
        EXPECT_EQ(list.GetEditControl(), edit);
        end(edit);
        EXPECT_EQ(texts, Notices{told});
        EXPECT_EQ(list.GetItemText(1, 0), textAfter);
        EXPECT_FALSE(IsWindow(edit));
        EXPECT_EQ(list.GetEditControl(), nullptr);
    }
}

TEST_F(ListLabelEdit, TheEditExistsWhileItsBeginningCanBeRefused) {
    for (const bool refused : {true, false}) {
        HWND seen = nullptr;
        parent.answer = [&](const NMLISTVIEW& notice) {
            if (notice.hdr.code == LVN_BEGINLABELEDIT)
                SetWindowTextA(seen = list.GetEditControl(), "from the host");
            return refused && notice.hdr.code == LVN_BEGINLABELEDIT;
        };
        EXPECT_EQ(list.EditLabel(0) == nullptr, refused);
        EXPECT_EQ(GetWindowTextA(seen), refused ? "" : "from the host");
        parent.answer = nullptr;
    }
    EXPECT_EQ(list.EditLabel(3), nullptr); // no such row: the running edit has ended all the same
    EXPECT_EQ(list.GetEditControl(), nullptr);
}

TEST_F(ListLabelEdit, FollowsItsRowAndGivesItTheTextThatItKeepsItself) {
    for (const bool hasTextSource : {false, true}) {
        list.SetTextSource(hasTextSource ? [](LPARAM, int) { return CString("lent"); }
                                         : CListCtrl::TextSource());
        const HWND edit = Begin(1, "typed");
        const int top = view::Rectangle(edit).top;
        list.InsertItem(0, "new");
        EXPECT_EQ(view::Rectangle(edit).top, top + 20);
        input::Key(list.GetEditControl(), WM_KEYDOWN, VK_RETURN, "\r");
        EXPECT_EQ(list.GetItemText(2, 0), "typed");
    }
}

TEST_F(ListLabelEdit, NoneIsLeftByAHandlerThatBeginsAnotherOrThrows) {
    const HWND edit = Begin(1, "typed");
    parent.answer = [&](const NMLISTVIEW& notice) -> LRESULT {
        return notice.hdr.code == LVN_ENDLABELEDIT && !list.EditLabel(2);
    };
    input::Key(edit, WM_KEYDOWN, VK_RETURN, "\r");
    EXPECT_EQ(list.GetItemText(1, 0), "typed");
    EXPECT_EQ(list.GetItemText(2, 0), "row 2");
    for (const UINT thrower : {LVN_BEGINLABELEDIT, LVN_ENDLABELEDIT}) {
        parent.answer = [=](const NMLISTVIEW& notice) -> LRESULT {
            return notice.hdr.code == thrower ? throw std::runtime_error("refused") : 0;
        };
        EXPECT_THROW((list.EditLabel(1), list.CancelEditLabel()), std::runtime_error);
        EXPECT_EQ(list.GetEditControl(), nullptr);
        EXPECT_EQ(GetNextSibling(GetFirstChild(list.m_hWnd)), nullptr) << "the header alone";
    }
}

TEST_F(ListLabelEdit, ASecondSlowClickBeginsIt) {
    list.ModifyStyle(0, LVS_EDITLABELS);
    for (const auto& [border, isDouble, begins] : Table<bool, bool>{{"the first click", false, false},
                                                                    {"a double click", true, false},
                                                                    {"a slow one", false, true}}) {
        Click(InRow(1));
        if (isDouble)
            input::Mouse(list.m_hWnd, WM_LBUTTONDBLCLK, MK_LBUTTON, InRow(1));
        display.Advance(std::chrono::seconds(1));
        EXPECT_EQ(list.GetEditControl() != nullptr, begins) << border;
    }
}

} // namespace
} // namespace korvel
