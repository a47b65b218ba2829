#include "korvel/editors/combo_list_hook.h"
#include "korvel/editors/grid_ctrl_combo_box_button.h"
#include "korvel/editors/grid_ctrl_combo_box_edit.h"
#include "support/combo_fixture.h"
#include "support/table.h"

namespace korvel {
namespace {

// A field with a list as a host makes it.
class Field : public CWnd {
public:
    const int& GetDroppedState() const { return dropped; }
    void SetDroppedState(int state) {
        dropped = state;
        log += "drop " + std::to_string(state) + " ";
    }
    void OnArrowKey(bool down) { log += down ? "down " : "up "; }
    void OnOK() { log += "ok "; }
    void OnCancel() { log += "cancel "; }
    void SendParentComboMessage(UINT code) {
        log += std::to_string(code) + " ";
        if (onCode)
            onCode(code);
    }
    void CtrlEnd() {
        log += "end ";
        hook.HookWindow(nullptr);
    }
    std::string Take() { return std::exchange(log, {}); }

    std::string log;
    std::function<void(UINT)> onCode;
    int dropped = 0;
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

    Field owner;
    CGridCtrlComboBoxEdit edit{&owner.comboParent};
    CGridCtrlComboBoxButton button;
};

TEST_F(ComboFieldTest, PressesAndKeys) {
    CEdit& field = edit; // to those who hold it, it is a text field
    for (const UINT message : {WM_LBUTTONDOWN, WM_LBUTTONDOWN, WM_LBUTTONDBLCLK})
        input::Mouse(field.m_hWnd, message, MK_LBUTTON, {5, 5});
    EXPECT_EQ(GetFocus(), field.m_hWnd);
    for (const UINT key : {VK_UP, VK_DOWN})
        input::Key(field.m_hWnd, WM_KEYDOWN, key, {});
    EXPECT_EQ(owner.Take(), "drop 1 drop 0 up down ");
    input::Key(field.m_hWnd, WM_KEYDOWN, 'A', "a");
    field.ReplaceSel("b");
    for (const UINT message : {WM_PASTE, WM_CUT, WM_CLEAR, WM_CONTEXTMENU})
        EXPECT_EQ(field.SendMessageA(message), 0);
    EXPECT_EQ(field.GetWindowTextA(), "asphalt");
    input::Mouse(field.m_hWnd, WM_MOUSEMOVE, 0, {5, 5});
    EXPECT_EQ(display.CursorShown(), IDC_ARROW);
    EXPECT_EQ(field.SendMessageA(WM_GETDLGCODE), 13);
    EXPECT_EQ(field.SendMessageA(WM_MOUSEACTIVATE), 3);
    EXPECT_EQ(button.SendMessageA(WM_GETDLGCODE) & 133, 133);
}

TEST_F(ComboFieldTest, TheFocusEndsTheChoiceAndSwitchesTheFieldOff) {
    edit.SetFocus();
    EXPECT_TRUE(edit.IsWindowEnabled());
    SetFocus(frame.m_hWnd);
    EXPECT_EQ(owner.Take(), "ok ");
    EXPECT_FALSE(edit.IsWindowEnabled());
    const auto gained = MAKEWPARAM(108, EN_SETFOCUS);
    SendMessageA(owner.m_hWnd, WM_COMMAND, gained, reinterpret_cast<LPARAM>(edit.m_hWnd));
    EXPECT_TRUE(edit.IsWindowEnabled());
    edit.SetFocus();
    edit.MoveWindow({0, 20, 100, 40});
    EXPECT_EQ(GetFocus(), owner.m_hWnd);
}

TEST_F(ComboFieldTest, HowTheFieldLooks) {
    const Table<bool, bool, bool, int, int, bool> rows = {
        // focus, dropped, enabled; background, text, focus rectangle
        {"plain", false, false, true, COLOR_WINDOW, COLOR_WINDOWTEXT, false},
        {"focus", true, false, true, COLOR_HIGHLIGHT, COLOR_HIGHLIGHTTEXT, true},
        {"focus with the list open", true, true, true, COLOR_WINDOW, COLOR_WINDOWTEXT, false},
        {"disabled", false, false, false, COLOR_BTNFACE, COLOR_GRAYTEXT, false},
    };
    for (const auto& [name, focus, dropped, enabled, background, text, hasFrame] : rows) {
        SCOPED_TRACE(name);
        edit.EnableWindow(true);
        SetFocus(focus ? edit.m_hWnd : frame.m_hWnd);
        edit.EnableWindow(enabled);
        owner.dropped = dropped;
        const auto calls = display.PaintWindow(edit.m_hWnd);
        EXPECT_EQ(calls.front().color, GetSysColor(background));
        EXPECT_EQ(calls.back().text, "asphalt");
        EXPECT_EQ(calls.back().rect, (CRect{2, 0, 100, 20}));
        EXPECT_EQ(calls.back().color, GetSysColor(text));
        EXPECT_EQ(calls.size() == 3, hasFrame);
    }
    edit.EnableWindow(true);
    frame.EnableWindow(false);
    EXPECT_EQ(display.PaintWindow(edit.m_hWnd).front().color, GetSysColor(COLOR_WINDOW))
        << "only the window around it is disabled";
}

TEST_F(ComboFieldTest, HowTheButtonLooks) {
    const auto face = [&] { return display.PaintWindow(button.m_hWnd)[1].color; }; // after the background
    const auto arrow = [&] { return display.PaintWindow(button.m_hWnd).back().color; };
    EXPECT_EQ(face(), GetSysColor(COLOR_BTNFACE));
    EXPECT_EQ(arrow(), GetSysColor(COLOR_BTNTEXT));
    input::Mouse(button.m_hWnd, WM_LBUTTONDOWN, MK_LBUTTON, {5, 5});
    EXPECT_NE(face(), GetSysColor(COLOR_BTNFACE));
    button.EnableWindow(false);
    EXPECT_EQ(arrow(), GetSysColor(COLOR_GRAYTEXT));
}

TEST_F(ComboFieldTest, WhatClosesTheList) {
    const auto heardOf = [&](UINT message, WPARAM wParam, bool isFromControl) {
        owner.hook.HookWindow(frame.m_hWnd);
        owner.Take();
        SendMessageA(frame.m_hWnd, message, wParam,
                     isFromControl ? reinterpret_cast<LPARAM>(owner.m_hWnd) : 0);
        owner.hook.HookWindow(nullptr);
        return owner.Take();
    };
    for (const UINT message : {70, 71, 161, 164, 167, 260, 274, 513, 516, 519})
        EXPECT_EQ(heardOf(message, 0, false), "4 9 end ") << message;
    for (const UINT message : {WM_LBUTTONUP, WM_KEYDOWN, WM_MOUSEMOVE})
        EXPECT_EQ(heardOf(message, 0, false), "") << message;
    EXPECT_EQ(heardOf(WM_COMMAND, 77, false), "4 9 end "); // of the menu
    EXPECT_EQ(heardOf(WM_COMMAND, 78, true), "4 9 end ");
    EXPECT_EQ(heardOf(WM_COMMAND, MAKEWPARAM(77, 9), true), ""); // of the owner itself
    EXPECT_TRUE(EndsComboList(nullptr, WM_COMMAND, 77, 1));      // without an owner
}

TEST_F(ComboFieldTest, AnOwnerThatIsDestroyedByWhatItIsToldIsToldNoMore) {
    for (const auto& [last, expected] : {std::pair{4u, "4 "}, std::pair{9u, "4 9 "}}) {
        std::string heard;
        auto* mortal = new Field;
        mortal->CreateEx(0, "KorvelFrame", "", WS_CHILD, {0, 0, 9, 9}, &frame, 78);
        mortal->onCode = [&, last = last](UINT code) {
            heard = mortal->log;
            if (code == last)
                mortal->DestroyWindow(), delete mortal;
        };
        mortal->hook.HookWindow(frame.m_hWnd);
        SendMessageA(frame.m_hWnd, WM_LBUTTONDOWN, 0, 0);
        EXPECT_EQ(heard, expected);
    }
}

TEST_F(ComboFieldTest, TheMessageGoesItsWayFirstAndMayCloseTheListItself) {
    struct Older : CSubclassWnd {
        std::function<void()> onPress;
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            return message == WM_LBUTTONDOWN ? onPress(),
                   5                         : CSubclassWnd::WindowProc(message, wParam, lParam);
        }
    } older;
    older.HookWindow(frame.m_hWnd);
    older.onPress = [&] { owner.log += "pressed "; };
    owner.hook.HookWindow(frame.m_hWnd);
    EXPECT_EQ(frame.SendMessageA(WM_LBUTTONDOWN), 5);
    EXPECT_EQ(owner.Take(), "pressed 4 9 end ");
    older.onPress = [&] { owner.CtrlEnd(); };
    owner.hook.HookWindow(frame.m_hWnd);
    frame.SendMessageA(WM_LBUTTONDOWN);
    EXPECT_EQ(owner.Take(), "end ");
}

} // namespace
} // namespace korvel
