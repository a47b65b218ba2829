#include "korvel/editors/grid_ctrl_edit.h"
#include "korvel/editors/grid_ctrl_spin_button.h"
#include "korvel/values/language.h"
#include "korvel/window/base/control_messages.h"
#include "support/control_fixture.h"
#include "support/edited_object.h"
#include "support/make_value.h"

#include <cmath>
#include <stdexcept>

namespace korvel {
namespace {

using namespace std::chrono_literals;

class SpinTest : public ControlTest {
protected:
    void SetUp() override {
        ControlTest::SetUp();
        SetLanguageForThisRun("English");
        object.AddMember("share", true, MakeValue(DT_RangeDouble, 50.0));
        edit.Create(WS_CHILD | WS_VISIBLE, {0, 0, 80, 20}, &parent, 105);
        spin.Create(WS_CHILD, {80, 0, 100, 20}, &parent, 15046);
        spin.m_pEdit = &edit;
        edit.m_CompanionWindows = {spin.m_hWnd};
        edit.Start(&object, "share");
        edit.SetFocus();
        spin.ShowWindow(SW_SHOW);
        object.Take();
    }
    void Press(CPoint point) {
        display.PressKey(VK_LBUTTON, true);
        input::Mouse(spin.m_hWnd, WM_LBUTTONDOWN, MK_LBUTTON, point);
    }
    void Release(CPoint point) {
        display.PressKey(VK_LBUTTON, false);
        input::Mouse(spin.m_hWnd, WM_LBUTTONUP, 0, point);
    }
    double Shown() const { return std::stod(edit.GetWindowTextA()); }

    EditedObject object;
    CGridCtrlEdit edit{&object};
    CGridCtrlSpinButton spin;
};

TEST_F(SpinTest, APressStepsOnceAndIsWrittenAtItsRelease) {
    for (const auto& [border, style, step, point, shown] :
         Table<UINT, double, CPoint, double>{{"the upper half takes the step away", 0, 1.0, {5, 9}, 49},
                                             {"the lower half adds it", 0, 1.0, {5, 10}, 51},
                                             {"the upper half of a grid raises", 0, -1.0, {5, 9}, 51},
                                             {"the left half", UDS_HORZ, 2.5, {9, 15}, 47.5},
                                             {"the right half", UDS_HORZ, 2.5, {10, 5}, 52.5}}) {
        SCOPED_TRACE(border);
        object.SetMember("share", MakeValue(DT_RangeDouble, 50.0));
        edit.Start(&object, "share");
        object.Take();
        spin.ModifyStyle(UDS_HORZ, style);
        spin.m_Step = step;
        Press(point);
        EXPECT_EQ(Shown(), shown);
        EXPECT_EQ(GetFocus(), edit.m_hWnd);
        EXPECT_EQ(object.Take(), "get ") << "nothing is written while the button is down";
        Release(point);
        const std::string number = std::to_string(shown).substr(0, shown == static_cast<int>(shown) ? 2 : 4);
        EXPECT_EQ(object.Take(), "type get told " + number + " set " + number + " ");
        EXPECT_EQ(edit.m_pDisp, &object) << "the edit goes on";
    }
}

TEST_F(SpinTest, AHeldButtonStepsFasterAndFaster) {
    spin.m_Step = 0.01;
    edit.SetWindowTextA("0");
    Press({5, 15});
    std::vector<long> hundredths;
    for (int tick = 1; tick <= 28; ++tick) {
        const double before = Shown();
        display.Advance(100ms);
        hundredths.push_back(std::lround((Shown() - before) * 100));
    }
    const std::vector<long> expected = {0, 0, 1, 1, 1, 1, 1, 2, 2, 2, 2, 2, 2, 2,
                                        2, 2, 2, 3, 3, 3, 3, 3, 3, 3, 3, 3, 3, 4};
    EXPECT_EQ(hundredths, expected);
    object.Take();
    display.PressKey(VK_LBUTTON, false); // outside of the window: the timer sees it
    display.Advance(100ms);
    EXPECT_NE(object.Take().find("set"), std::string::npos);
    display.Advance(1s);
    EXPECT_EQ(object.Take(), "") << "written once";
    input::Mouse(spin.m_hWnd, WM_LBUTTONDBLCLK, MK_LBUTTON, {5, 15});
    EXPECT_NE(object.Take(), "") << "the second of two quick presses counts";
}

TEST_F(SpinTest, AFailureEndsThePressAndIsToldOnce) {
    int told = 0;
    spin.SetFailureHook([&](std::exception_ptr failure) {
        EXPECT_FALSE(spin.m_bPressed);
        EXPECT_THROW(std::rethrow_exception(failure), std::exception);
        ++told;
        display.Advance(1s); // a box is shown
    });
    edit.SetWindowTextA("abc");
    Press({5, 15});
    Release({5, 15});
    EXPECT_EQ(told, 1);
    EXPECT_EQ(edit.GetWindowTextA(), "abc");
    edit.SetWindowTextA("7");
    object.Misbehave("set", [] { return false; });
    Press({5, 15});
    Release({5, 15});
    EXPECT_EQ(told, 2);
    spin.SetFailureHook(nullptr);
    edit.SetWindowTextA("abc");
    EXPECT_THROW(Press({5, 15}), std::exception);
    EXPECT_FALSE(spin.m_bPressed);
    EXPECT_EQ(spin.m_DownState & CGridCtrlSpinButton::Pressed, 0u);
}

TEST_F(SpinTest, HidingEndsAPressWithoutAWrite) {
    for (const auto& [border, act] : Table<std::function<void()>>{
             {"hidden while it is held", [this] { spin.ShowWindow(SW_HIDE); }},
             {"hidden by the step", [this] {
                  object.Misbehave("get", [this] { return edit.Drop(), spin.ShowWindow(SW_HIDE), true; });
                  Press({5, 15});
              }}}) {
        edit.Start(&object, "share");
        spin.ShowWindow(SW_SHOW);
        if (border == std::string("hidden while it is held"))
            Press({5, 15});
        object.Take();
        act();
        EXPECT_FALSE(spin.m_bPressed) << border;
        EXPECT_EQ(spin.m_DownState, 0u) << border;
        EXPECT_FALSE(spin.KillTimer(15047)) << border;
        spin.ShowWindow(SW_SHOW);
        display.PressKey(VK_LBUTTON, false);
        display.Advance(300ms);
        EXPECT_EQ(object.Take().find("set"), std::string::npos) << border;
        spin.ShowWindow(SW_HIDE);
        Release({5, 15});
    }
    spin.ShowWindow(SW_SHOW);
    edit.Start(&object, "share");
    Press({5, 15});
    object.Misbehave("set", [this] { return parent.DestroyWindow(), false; });
    bool isTold = false;
    spin.SetFailureHook([&](std::exception_ptr) { isTold = true; });
    Release({5, 15});
    EXPECT_TRUE(isTold) << "also when the windows are gone";
}

TEST_F(SpinTest, WithoutAFieldOrAnObjectOnlyTheLookChanges) {
    edit.Drop();
    Press({5, 15});
    EXPECT_EQ(edit.GetWindowTextA(), "50.000000");
    Release({5, 15});
    spin.m_pEdit = nullptr;
    Press({5, 5});
    EXPECT_EQ(spin.m_UpState, CGridCtrlSpinButton::Pressed);
    spin.m_pEdit = &edit;
    edit.Start(&object, "share");
    Press({5, 15});
    EXPECT_EQ(Shown(), 50) << "a press is running";
    spin.m_pEdit = nullptr;
    display.Advance(1s);
    Release({5, 5});
    EXPECT_EQ(spin.m_UpState & CGridCtrlSpinButton::Pressed, 0u);
}

TEST_F(SpinTest, TheArrowUnderThePointerStandsOut) {
    const auto colors = [this] {
        std::vector<COLORREF> faces;
        for (const PaintCall& call : display.PaintWindow(spin.m_hWnd))
            if (call.kind == PaintCall::Kind::Fill)
                faces.push_back(call.color);
        return faces;
    };
    const std::vector<COLORREF> plain = colors();
    ASSERT_EQ(plain.size(), 2u);
    display.MovePointer(ClientToScreen(spin.m_hWnd, {5, 15}));
    display.Advance(100ms);
    EXPECT_TRUE(display.IsInvalid(spin.m_hWnd));
    const std::vector<COLORREF> hot = colors();
    EXPECT_EQ(hot[0], plain[0]);
    EXPECT_NE(hot[1], plain[1]);
    Press({5, 15});
    EXPECT_NE(colors()[1], hot[1]);
    Release({5, 15});
    EXPECT_TRUE(display.IsInvalid(spin.m_hWnd));
    display.MovePointer(ClientToScreen(spin.m_hWnd, {-5, 15}));
    display.Advance(100ms);
    EXPECT_EQ(colors(), plain);
    display.Advance(100ms);
    EXPECT_FALSE(display.IsInvalid(spin.m_hWnd)) << "nothing has changed";
    const auto lines = [this] {
        for (const PaintCall& call : display.PaintWindow(spin.m_hWnd))
            if (call.kind == PaintCall::Kind::Line)
                return call.color;
        return COLORREF{};
    };
    const COLORREF symbol = lines();
    spin.EnableWindow(false);
    EXPECT_TRUE(display.IsInvalid(spin.m_hWnd));
    EXPECT_NE(lines(), symbol);
}

} // namespace
} // namespace korvel
