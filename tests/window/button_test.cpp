#include "window/controls.h"
#include "window/headless_display.h"
#include "window/input.h"

#include <array>
#include <gtest/gtest.h>
#include <vector>

namespace korvel {
namespace {

class ButtonParent : public CWnd {
public:
    std::vector<unsigned> clicked; // control ids

protected:
    bool OnCommand(WPARAM wParam, LPARAM lParam) override {
        if (HIWORD(wParam) == BN_CLICKED)
            clicked.push_back(LOWORD(wParam));
        return CWnd::OnCommand(wParam, lParam);
    }
};

class ButtonTest : public testing::Test {
protected:
    void SetUp() override {
        SetDisplay(&display);
        parent.CreateEx(0, "KorvelFrame", "", WS_VISIBLE, {0, 0, 300, 300}, nullptr, 0);
    }
    void Make(CButton& button, UINT style, int id = 3) {
        button.Create("text", WS_CHILD | WS_VISIBLE | style, {0, 0, 80, 20}, &parent, id);
    }
    void Click(CButton& button, CPoint release = {10, 10}) {
        input::Mouse(button.m_hWnd, WM_LBUTTONDOWN, MK_LBUTTON, {10, 10});
        input::Mouse(button.m_hWnd, WM_LBUTTONUP, 0, release);
    }

    HeadlessDisplay display;
    ButtonParent parent;
};

TEST_F(ButtonTest, EachKindAnswersAClickInItsWay) {
    struct Case {
        const char* border;
        UINT style;
        std::size_t clicks;
        int firstCheck;
        int secondCheck;
    };
    for (const Case& row :
         {Case{"push button", BS_PUSHBUTTON, 2, 0, 0},
          Case{"check box that checks itself", BS_AUTOCHECKBOX, 2, 1, 0},
          Case{"check box that its parent checks", BS_CHECKBOX, 2, 0, 0},
          Case{"radio button", BS_AUTORADIOBUTTON, 2, 1, 1}, Case{"group box", BS_GROUPBOX, 0, 0, 0}}) {
        CButton button;
        Make(button, row.style);
        parent.clicked.clear();
        Click(button);
        EXPECT_EQ(button.GetCheck(), row.firstCheck) << row.border;
        Click(button);
        EXPECT_EQ(button.GetCheck(), row.secondCheck) << row.border;
        EXPECT_EQ(parent.clicked.size(), row.clicks) << row.border;
    }
}

TEST_F(ButtonTest, AReleaseOutsideOrALostCaptureIsNoClick) {
    CButton button;
    Make(button, BS_PUSHBUTTON);
    Click(button, {80, 10});
    input::Mouse(button.m_hWnd, WM_LBUTTONDOWN, MK_LBUTTON, {10, 10});
    ReleaseCapture();
    input::Mouse(button.m_hWnd, WM_LBUTTONUP, 0, {10, 10});
    EXPECT_TRUE(parent.clicked.empty());
    EXPECT_EQ(GetFocus(), button.m_hWnd);
}

TEST_F(ButtonTest, SpaceClicksWhenItIsReleased) {
    CButton button;
    Make(button, BS_PUSHBUTTON);
    input::Key(button.m_hWnd, WM_KEYUP, VK_SPACE, {}); // pressed elsewhere
    button.SetFocus();
    input::Key(button.m_hWnd, WM_KEYDOWN, VK_SPACE, " ");
    parent.SetFocus(); // the focus leaves before the key is released
    input::Key(button.m_hWnd, WM_KEYUP, VK_SPACE, {});
    input::Key(button.m_hWnd, WM_KEYDOWN, VK_SPACE, " ");
    EXPECT_TRUE(parent.clicked.empty());
    input::Key(button.m_hWnd, WM_KEYUP, VK_SPACE, {});
    EXPECT_EQ(parent.clicked, std::vector<unsigned>{3});
    EXPECT_FALSE(input::Key(button.m_hWnd, WM_KEYDOWN, VK_RETURN, "\r")); // a dialog's matter
}

TEST_F(ButtonTest, RadioButtonsExcludeEachOtherInsideTheirGroup) {
    std::array<CButton, 4> radio;
    for (int i = 0; i < 4; ++i)
        Make(radio[i], BS_AUTORADIOBUTTON | (i == 0 || i == 2 ? WS_GROUP : 0), i);
    radio[0].SetCheck(1);
    radio[3].SetCheck(1);
    Click(radio[1]);
    EXPECT_EQ(radio[0].GetCheck(), 0);
    EXPECT_EQ(radio[1].GetCheck(), 1);
    EXPECT_EQ(radio[3].GetCheck(), 1); // another group
    input::Value(radio[2].m_hWnd, 1);  // clicked in its native widget
    EXPECT_EQ(radio[3].GetCheck(), 0);
    EXPECT_EQ(parent.clicked, (std::vector<unsigned>{1, 2}));
}

TEST_F(ButtonTest, AnOwnerDrawnButtonShowsThatItIsPressed) {
    class Drawn : public CButton {
    public:
        UINT state = 0;
        void DrawItem(DRAWITEMSTRUCT* item) override { state = item->itemState; }
    };
    Drawn button;
    Make(button, BS_OWNERDRAW);
    input::Mouse(button.m_hWnd, WM_LBUTTONDOWN, MK_LBUTTON, {10, 10});
    display.PaintWindow(button.m_hWnd);
    EXPECT_EQ(button.state, ODS_SELECTED | ODS_FOCUS);
    input::Mouse(button.m_hWnd, WM_MOUSEMOVE, MK_LBUTTON, {90, 10});
    display.PaintWindow(button.m_hWnd);
    EXPECT_EQ(button.state, ODS_FOCUS);
    button.EnableWindow(false);
    display.PaintWindow(button.m_hWnd);
    EXPECT_EQ(button.state, ODS_DISABLED);
}

} // namespace
} // namespace korvel
