#include "korvel/window/app/app.h"
#include "korvel/window/app/find_resource.h"
#include "korvel/window/controls/mfc_button.h"
#include "korvel/window/display/window_view.h"
#include "support/control_fixture.h"

#include <array>
#include <functional>

namespace korvel {
namespace {

class ButtonTest : public ControlTest {
protected:
    void Make(CButton& button, UINT style, int id = 3) {
        button.Create("text", WS_CHILD | WS_VISIBLE | style, {0, 0, 80, 20}, &parent, id);
    }
    void Mouse(CButton& button, UINT message, CPoint point = {10, 10}) {
        input::Mouse(button.m_hWnd, message, message == WM_LBUTTONUP ? 0 : MK_LBUTTON, point);
    }
    void Click(CButton& button, CPoint release = {10, 10}) {
        Mouse(button, WM_LBUTTONDOWN);
        Mouse(button, WM_LBUTTONUP, release);
    }
    void Space(CButton& button, UINT message) { input::Key(button.m_hWnd, message, VK_SPACE, {}); }
};

TEST_F(ButtonTest, EachKindAnswersAClickInItsWay) {
    for (const auto& [border, style, clicks, firstCheck, secondCheck] :
         Table<UINT, std::size_t, int, int>{{"push button", BS_PUSHBUTTON, 2, 0, 0},
                                            {"check box that checks itself", BS_AUTOCHECKBOX, 2, 1, 0},
                                            {"check box that its parent checks", BS_CHECKBOX, 2, 0, 0},
                                            {"radio button", BS_AUTORADIOBUTTON, 2, 1, 1},
                                            {"group box", BS_GROUPBOX, 0, 0, 0}}) {
        CButton button;
        Make(button, style);
        parent.senders.clear();
        Click(button);
        EXPECT_EQ(button.GetCheck(), firstCheck) << border;
        Click(button);
        EXPECT_EQ(button.GetCheck(), secondCheck) << border;
        EXPECT_EQ(parent.senders.size(), clicks) << border;
    }
}

TEST_F(ButtonTest, WhatIsNotReleasedOverItIsNoClick) {
    CButton button;
    Make(button, BS_PUSHBUTTON);
    Click(button, {80, 10});
    Mouse(button, WM_LBUTTONDOWN);
    ReleaseCapture();
    Mouse(button, WM_LBUTTONUP);
    EXPECT_EQ(GetFocus(), button.m_hWnd);
    Space(button, WM_KEYUP); // pressed elsewhere
    Space(button, WM_KEYDOWN);
    parent.SetFocus();
    Space(button, WM_KEYUP); // the focus was away
    Space(button, WM_KEYDOWN);
    EXPECT_TRUE(parent.senders.empty());
    Space(button, WM_KEYUP);
    EXPECT_EQ(parent.senders.size(), 1u);
    EXPECT_FALSE(input::Key(button.m_hWnd, WM_KEYDOWN, VK_RETURN, "\r")); // a dialog's matter
}

TEST_F(ButtonTest, ShowsAPictureOfTheResources) {
    static constexpr std::uint32_t Pixels[] = {1, 2, 3, 4, 5, 6};
    static constexpr PictureResource Pictures[] = {{15016, 3, 2, Pixels}};
    const ResourceModule module{{}, Pictures};
    CWinApp host;
    host.m_pResources = &module;
    SetHostApp(&host);
    CMFCButton button;
    Make(button, BS_PUSHBUTTON);
    EXPECT_TRUE(button.SetImage(15016));
    ASSERT_NE(view::Button(button.m_hWnd).picture, nullptr);
    EXPECT_EQ(view::Button(button.m_hWnd).picture->pixels.back(), 6u);
    EXPECT_FALSE(button.SetImage(1));
    EXPECT_EQ(view::Button(button.m_hWnd).picture, nullptr);
    SetHostApp(nullptr);
}

TEST_F(ButtonTest, RadioButtonsExcludeEachOtherInsideTheirGroup) {
    std::array<CButton, 4> radio;
    for (int i = 0; i < 4; ++i)
        Make(radio[i], BS_AUTORADIOBUTTON | WS_TABSTOP | (i == 0 || i == 2 ? WS_GROUP : 0), i);
    radio[0].SetCheck(1);
    radio[3].SetCheck(1);
    Click(radio[1]);
    EXPECT_EQ(radio[0].GetCheck(), 0);
    EXPECT_EQ(radio[1].GetCheck(), 1);
    EXPECT_FALSE(radio[0].GetStyle() & WS_TABSTOP);
    EXPECT_TRUE(radio[1].GetStyle() & WS_TABSTOP);
    EXPECT_EQ(radio[3].GetCheck(), 1); // another group
    input::Value(radio[2].m_hWnd, 1);  // clicked in its native widget
    EXPECT_EQ(radio[3].GetCheck(), 0);
    radio[0].EnableWindow(false);
    radio[0].SendMessageA(BM_CLICK);
    EXPECT_EQ(radio[0].GetCheck(), 0);
    EXPECT_EQ(parent.senders, (std::vector<unsigned>{1, 2}));
}

TEST_F(ButtonTest, TheFrameOfAGroupBoxOpensAtItsText) {
    using Kind = PaintCall::Kind;
    parent.EnableWindow(false); // a box shows its own state
    for (const auto& [border, text, enabled, color, gap] :
         Table<const char*, bool, COLORREF, std::vector<int>>{
             {"text", "&Axis", true, 0x0A0B0C, {7, 39}}, // 7 pixels a character
             {"no text", "", true, 0x0A0B0C, {}},
             {"disabled", "Axis", false, 0x0D0E0F, {7, 39}},
             {"text that is too long", "as long as a sentence", true, 0x0A0B0C, {7, 72}}}) {
        display.SetColor(COLOR_BTNTEXT, 0x0A0B0C);
        display.SetColor(COLOR_GRAYTEXT, 0x0D0E0F);
        display.SetColor(COLOR_BTNSHADOW, 0x010203);
        CButton box;
        Make(box, BS_GROUPBOX);
        display.PaintWindow(box.m_hWnd);
        box.SetWindowTextA(text);
        box.EnableWindow(enabled);
        EXPECT_TRUE(display.IsInvalid(box.m_hWnd)) << border;
        std::vector<int> ends; // of the lines at the height of the text
        CString painted;
        for (const PaintCall& call : display.PaintWindow(box.m_hWnd)) {
            EXPECT_NE(call.kind, Kind::Fill) << border << ": it covers nothing";
            EXPECT_EQ(call.color, call.kind == Kind::Text ? color : 0x010203u) << border;
            if (call.kind == Kind::Line && call.rect.top == 8 && call.rect.bottom == 8)
                ends.insert(ends.end(), {call.rect.left, call.rect.right});
            painted += call.text;
        }
        EXPECT_EQ(painted, text == CString("&Axis") ? "Axis" : text) << border;
        std::vector<int> whole{0, 79};
        whole.insert(whole.begin() + 1, gap.begin(), gap.end());
        EXPECT_EQ(ends, whole) << border;
    }
}

TEST_F(ButtonTest, AnOwnerDrawnButtonShowsThatItIsPressed) {
    struct Drawn : CButton {
        UINT state = ~0u; // none drawn
        void DrawItem(DRAWITEMSTRUCT* item) override { state = item->itemState; }
    } button;
    Make(button, BS_OWNERDRAW);
    const CPoint outside{90, 10};
    for (const auto& [border, act, state] : Table<std::function<void()>, UINT>{
             {"at first", [] {}, 0},
             {"pressed", [&] { Mouse(button, WM_LBUTTONDOWN); }, ODS_SELECTED | ODS_FOCUS},
             {"left", [&] { Mouse(button, WM_MOUSEMOVE, outside); }, ODS_FOCUS},
             {"entered again", [&] { Mouse(button, WM_MOUSEMOVE); }, ODS_SELECTED | ODS_FOCUS},
             {"in a disabled window", [&] { parent.EnableWindow(false); }, 0},
             {"disabled", [&] { button.EnableWindow(false); }, ODS_DISABLED}}) {
        act();
        display.PaintWindow(button.m_hWnd);
        EXPECT_EQ(button.state, state) << border;
    }
    DRAWITEMSTRUCT item{};
    item.hwndItem = button.m_hWnd;
    EXPECT_EQ(parent.SendMessageA(WM_DRAWITEM, 3, reinterpret_cast<LPARAM>(&item)), 1)
        << "nothing is left to draw";
}

} // namespace
} // namespace korvel
