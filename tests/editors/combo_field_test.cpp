#include "combo_fixture.h"
#include "editors/combo_list_hook.h"
#include "editors/grid_ctrl_combo_box_button.h"
#include "editors/grid_ctrl_combo_box_edit.h"

namespace korvel {
namespace {

/// A field with a list as a host makes it.
class Field : public CWnd {
public:
    std::vector<std::string> log;
    int dropped = 0;

    const int& GetDroppedState() const { return dropped; }
    void SetDroppedState(int state) {
        dropped = state;
        log.push_back("drop " + std::to_string(state));
    }
    void OnArrowKey(bool down) { log.push_back(down ? "down" : "up"); }
    void OnOK() { log.push_back("ok"); }
    void OnCancel() { log.push_back("cancel"); }
    void SendParentComboMessage(UINT code) { log.push_back("code " + std::to_string(code)); }
    void CtrlEnd() {
        log.push_back("end");
        hook.HookWindow(nullptr);
    }
    Strings Take() { return std::exchange(log, {}); }

    CComboListHook<Field> hook{this, &Field::CtrlEnd};
    CComboBoxParentImp<Field> comboParent{this};
};

class ComboFieldTest : public ComboTest {
protected:
    void SetUp() override {
        ComboTest::SetUp();
        owner.CreateEx(0, "KorvelFrame", "", WS_CHILD | WS_VISIBLE, {0, 0, 300, 100}, &frame, 77);
        edit.Create(0x40010800 | WS_VISIBLE, {0, 0, 100, 20}, &owner, 108);
        button.Create("", 0x4001400B | WS_VISIBLE, {100, 0, 120, 20}, &owner, 107);
        edit.SetWindowTextA("asphalt");
        owner.Take();
    }
    std::vector<PaintCall> Paint() { return display.PaintWindow(edit.m_hWnd); }

    Field owner;
    CGridCtrlComboBoxEdit edit{&owner.comboParent};
    CGridCtrlComboBoxButton button;
};

TEST_F(ComboFieldTest, PressesAndKeys) {
    input::Mouse(edit.m_hWnd, WM_LBUTTONDOWN, MK_LBUTTON, {5, 5});
    EXPECT_EQ(GetFocus(), edit.m_hWnd);
    input::Mouse(edit.m_hWnd, WM_LBUTTONDOWN, MK_LBUTTON, {5, 5});
    input::Mouse(edit.m_hWnd, WM_LBUTTONDBLCLK, MK_LBUTTON, {5, 5});
    input::Key(edit.m_hWnd, WM_KEYDOWN, VK_UP, {});
    input::Key(edit.m_hWnd, WM_KEYDOWN, VK_DOWN, {});
    input::Key(edit.m_hWnd, WM_KEYDOWN, 'A', "a");
    EXPECT_EQ(owner.Take(), (Strings{"drop 1", "drop 0", "up", "down"}));
    EXPECT_EQ(edit.GetWindowTextA(), "asphalt");
    for (const UINT message : {WM_PASTE, WM_CUT, WM_CLEAR, WM_CONTEXTMENU})
        EXPECT_EQ(edit.SendMessageA(message), 0);
    EXPECT_EQ(edit.SendMessageA(WM_GETDLGCODE), 13);
    EXPECT_EQ(edit.SendMessageA(WM_MOUSEACTIVATE), 3);
    EXPECT_EQ(button.SendMessageA(WM_GETDLGCODE) & 133, 133);
}

TEST_F(ComboFieldTest, TheFocusEndsTheChoiceAndSwitchesTheFieldOff) {
    edit.SetFocus();
    EXPECT_TRUE(edit.IsWindowEnabled());
    SetFocus(frame.m_hWnd);
    EXPECT_EQ(owner.Take(), Strings{"ok"});
    EXPECT_FALSE(edit.IsWindowEnabled());
    SendMessageA(owner.m_hWnd, WM_COMMAND, MAKEWPARAM(108, EN_SETFOCUS),
                 reinterpret_cast<LPARAM>(edit.m_hWnd));
    EXPECT_TRUE(edit.IsWindowEnabled());
    edit.SetFocus();
    edit.MoveWindow({0, 20, 100, 40});
    EXPECT_EQ(GetFocus(), owner.m_hWnd);
}

TEST_F(ComboFieldTest, Colours) {
    struct Case {
        const char* name;
        bool focus, dropped, enabled;
        int background, text;
        bool frame;
    };
    const Case cases[] = {
        {"plain", false, false, true, COLOR_WINDOW, COLOR_WINDOWTEXT, false},
        {"focus", true, false, true, COLOR_HIGHLIGHT, COLOR_HIGHLIGHTTEXT, true},
        {"focus with the list open", true, true, true, COLOR_WINDOW, COLOR_WINDOWTEXT, false},
        {"disabled", false, false, false, COLOR_BTNFACE, COLOR_GRAYTEXT, false},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        edit.EnableWindow(true);
        SetFocus(row.focus ? edit.m_hWnd : frame.m_hWnd);
        edit.EnableWindow(row.enabled);
        owner.dropped = row.dropped;
        const auto calls = Paint();
        EXPECT_EQ(calls.front().color, GetSysColor(row.background));
        EXPECT_EQ(calls.back().kind, PaintCall::Kind::Text);
        EXPECT_EQ(calls.back().text, "asphalt");
        EXPECT_EQ(calls.back().rect, (CRect{2, 0, 100, 20}));
        EXPECT_EQ(calls.back().color, GetSysColor(row.text));
        EXPECT_EQ(calls.size() == 3, row.frame);
    }
}

TEST_F(ComboFieldTest, WhatClosesTheList) {
    struct Case {
        const char* name;
        UINT message;
        WPARAM wParam;
        bool isFromControl;
        bool ends;
    };
    const Case cases[] = {
        {"moving", WM_WINDOWPOSCHANGING, 0, false, true},
        {"moved", WM_WINDOWPOSCHANGED, 0, false, true},
        {"caption pressed", WM_NCLBUTTONDOWN, 0, false, true},
        {"caption, right", WM_NCRBUTTONDOWN, 0, false, true},
        {"caption, middle", WM_NCMBUTTONDOWN, 0, false, true},
        {"Alt and a key", WM_SYSKEYDOWN, VK_UP, false, true},
        {"system menu", WM_SYSCOMMAND, 0, false, true},
        {"pressed", WM_LBUTTONDOWN, 0, false, true},
        {"right", WM_RBUTTONDOWN, 0, false, true},
        {"middle", WM_MBUTTONDOWN, 0, false, true},
        {"released", WM_LBUTTONUP, 0, false, false},
        {"a key", WM_KEYDOWN, VK_DOWN, false, false},
        {"a command of the menu", WM_COMMAND, 77, false, true},
        {"of another control", WM_COMMAND, 78, true, true},
        {"of the owner itself", WM_COMMAND, MAKEWPARAM(77, 9), true, false},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        owner.hook.HookWindow(frame.m_hWnd);
        owner.Take();
        SendMessageA(frame.m_hWnd, row.message, row.wParam,
                     row.isFromControl ? reinterpret_cast<LPARAM>(owner.m_hWnd) : 0);
        EXPECT_EQ(owner.Take(), row.ends ? (Strings{"code 4", "code 9", "end"}) : Strings{});
        owner.hook.HookWindow(nullptr);
    }
    EXPECT_TRUE(EndsComboList(nullptr, WM_COMMAND, 77, 1)); // without an owner
}

TEST_F(ComboFieldTest, TheMessageGoesItsWayFirstAndMayCloseTheListItself) {
    struct Target : CWnd {
        std::function<void()> onPress;
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            if (message != WM_LBUTTONDOWN)
                return CWnd::WindowProc(message, wParam, lParam);
            onPress();
            return 5;
        }
    } target;
    target.CreateEx(0, "KorvelFrame", "", 0, {0, 0, 9, 9}, nullptr, 0);
    target.onPress = [&] { owner.log.push_back("pressed"); };
    owner.hook.HookWindow(target.m_hWnd);
    EXPECT_EQ(target.SendMessageA(WM_LBUTTONDOWN), 5);
    EXPECT_EQ(owner.Take(), (Strings{"pressed", "code 4", "code 9", "end"}));
    target.onPress = [&] { owner.CtrlEnd(); };
    owner.hook.HookWindow(target.m_hWnd);
    target.SendMessageA(WM_LBUTTONDOWN);
    EXPECT_EQ(owner.Take(), Strings{"end"});
}

TEST_F(ComboFieldTest, AnOwnerThatIsDestroyedByWhatItTellsHearsNoMore) {
    struct Owner : CWnd {
        Owner(UINT code, Strings& heard) : last(code), log(heard) {}
        void SendParentComboMessage(UINT code) {
            log.push_back(std::to_string(code));
            if (code == last) {
                DestroyWindow();
                delete this;
            }
        }
        void CtrlEnd() { log.push_back("end"); }
        UINT last;
        Strings& log;
        CComboListHook<Owner> hook{this, &Owner::CtrlEnd};
    };
    const std::pair<UINT, Strings> cases[] = {{4, {"4"}}, {9, {"4", "9"}}};
    for (const auto& [last, expected] : cases) {
        Strings heard;
        auto* const mortal = new Owner(last, heard);
        mortal->CreateEx(0, "KorvelFrame", "", WS_CHILD, {0, 0, 9, 9}, &frame, 78);
        mortal->hook.HookWindow(frame.m_hWnd);
        SendMessageA(frame.m_hWnd, WM_LBUTTONDOWN, 0, 0);
        EXPECT_EQ(heard, expected);
    }
}

} // namespace
} // namespace korvel
