#include "korvel/platform/regional_settings.h"
#include "korvel/window/controls/edit.h"
#include "korvel/window/controls/progress_ctrl.h"
#include "korvel/window/controls/slider_ctrl.h"
#include "korvel/window/controls/spin_button_ctrl.h"
#include "korvel/window/display/window_view.h"
#include "support/control_fixture.h"

#include <climits>
#include <stdexcept>

namespace korvel {
namespace {

using namespace std::chrono_literals;

struct Range {
    int lower = 0;
    int upper = 100;
};

class ProgressTest : public ControlTest {
protected:
    void SetUp() override {
        ControlTest::SetUp();
        bar.Create(WS_CHILD | WS_VISIBLE, {0, 0, 100, 20}, &parent, 4);
    }

    CProgressCtrl bar;
};

TEST_F(ProgressTest, ThePositionStaysInTheRangeAndAStepBeginsAnew) {
    using Act = std::function<LRESULT(CProgressCtrl&)>;
    const Act narrowUnsigned = [](auto& b) {
        return b.SendMessageA(PBM_SETRANGE, 0, MAKELPARAM(39999, 40000));
    };
    const Act step = [](auto& b) { return b.StepIt(); };
    const auto set = [](int position) -> Act { return [=](auto& b) { return b.SetPos(position); }; };
    const auto narrow = [](int lower, int upper) -> Act {
        return [=](auto& b) { return b.SetRange32(lower, upper); };
    };
    for (const auto& [border, range, start, act, answer, position] : Table<Range, int, Act, LRESULT, int>{
             {"beyond", {}, 40, set(101), 40, 100},
             {"a step", {}, 90, step, 90, 100},
             {"a step beyond", {}, 95, step, 95, 5},
             {"a large step", {0, 7}, 6, step, 6, 2},
             {"a step nowhere", {5, 5}, 5, step, 5, 5},
             {"the widest range", {INT_MIN, INT_MAX}, INT_MAX, step, INT_MAX, INT_MIN + 10},
             {"by more than there is", {}, 40, [](auto& b) { return b.OffsetPos(INT_MAX); }, 40, 100},
             {"a range that cuts", {}, 40, narrow(0, 30), MAKELPARAM(0, 100), 30},
             {"the range in two halves", {-1, 70000}, 0, narrow(0, 1), MAKELPARAM(-1, 70000), 0},
             {"a reversed range", {}, 40, narrow(90, 30), MAKELPARAM(0, 100), 30},
             {"16 bits without a sign", {}, 40, narrowUnsigned, MAKELPARAM(0, 100), 39999}}) {
        bar.SetRange32(range.lower, range.upper);
        bar.SetPos(start);
        EXPECT_EQ(act(bar), answer) << border;
        EXPECT_EQ(bar.GetPos(), position) << border;
        EXPECT_TRUE(parent.codes.empty()) << border;
    }
}

TEST_F(ProgressTest, AReversedRangeHoldsItsLowerNumberAlone) {
    bar.SetRange32(90, 30);
    bar.SetPos(60);
    EXPECT_EQ(bar.GetPos(), 30);
    Range range;
    bar.GetRange(range.lower, range.upper);
    EXPECT_EQ(std::pair(range.lower, range.upper), std::pair(90, 30));
}

TEST_F(ProgressTest, AMarqueeRunsOnlyWithItsStyle) {
    bar.SetMarquee(true);
    EXPECT_FALSE(view::Range(bar.m_hWnd).isMarquee);
    bar.ModifyStyle(PBS_SMOOTH, PBS_MARQUEE);
    EXPECT_TRUE(view::Range(bar.m_hWnd).isMarquee);
    bar.SetMarquee(false);
    EXPECT_FALSE(view::Range(bar.m_hWnd).isMarquee);
}

// What the parent hears of a slider or of arrows.
class ScrollParent : public CWnd {
public:
    std::vector<WPARAM> heard;
    std::vector<int> deltas;
    int replacedDelta = 0;
    bool refuses = false;
    bool fails = false;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_HSCROLL || message == WM_VSCROLL) {
            heard.push_back(wParam);
            if (fails)
                throw std::runtime_error("full");
        }
        return CWnd::WindowProc(message, wParam, lParam);
    }
    bool OnNotify(WPARAM, LPARAM lParam, LRESULT* result) override {
        auto& notice = *reinterpret_cast<NMUPDOWN*>(lParam);
        deltas.push_back(notice.iDelta);
        if (replacedDelta != 0)
            notice.iDelta = replacedDelta;
        *result = refuses;
        return true;
    }
};

class ScrollTest : public ControlTestOf<ScrollParent> {
protected:
    std::vector<WPARAM> Take() { return std::exchange(parent.heard, {}); }
    static WPARAM At(UINT code, int position) { return MAKEWPARAM(code, static_cast<unsigned>(position)); }
};

class SliderTest : public ScrollTest {
protected:
    void Make(UINT style = 0) {
        slider.DestroyWindow();
        slider.Create(WS_CHILD | WS_VISIBLE | style, {0, 0, 110, 110}, &parent, 4); // a pixel a position
        slider.SetPos(50);
        slider.SetFocus();
    }
    void Mouse(UINT message, int x) {
        input::Mouse(slider.m_hWnd, message, message == WM_LBUTTONUP ? 0 : MK_LBUTTON, {x, x});
    }

    CSliderCtrl slider;
};

TEST_F(SliderTest, KeysMoveItAndTellTheirEnd) {
    for (const auto& [border, key, position, code] :
         Table<UINT, int, UINT>{{"left", VK_LEFT, 49, TB_LINEUP},
                                {"up", VK_UP, 49, TB_LINEUP},
                                {"right", VK_RIGHT, 51, TB_LINEDOWN},
                                {"page up", VK_PRIOR, 30, TB_PAGEUP},
                                {"page down", VK_NEXT, 70, TB_PAGEDOWN},
                                {"home", VK_HOME, 0, TB_TOP},
                                {"end", VK_END, 100, TB_BOTTOM}}) {
        Make();
        input::Key(slider.m_hWnd, WM_KEYDOWN, key, {});
        input::Key(slider.m_hWnd, WM_KEYUP, key, {});
        EXPECT_EQ(slider.GetPos(), position) << border;
        EXPECT_EQ(Take(), (std::vector<WPARAM>{code, TB_ENDTRACK})) << border;
    }
    input::Key(slider.m_hWnd, WM_KEYDOWN, VK_LEFT, {});
    parent.SetFocus();
    EXPECT_EQ(Take(), (std::vector<WPARAM>{TB_LINEUP, TB_ENDTRACK})) << "the key is released elsewhere";
}

TEST_F(SliderTest, TheMouseDragsTheThumbOrTurnsAPage) {
    for (const UINT style : {UINT{0}, TBS_VERT}) {
        Make(style);
        Mouse(WM_LBUTTONDOWN, 55);
        Mouse(WM_MOUSEMOVE, 65);
        Mouse(WM_MOUSEMOVE, 65);
        Mouse(WM_MOUSEMOVE, 500);
        Mouse(WM_LBUTTONUP, 500);
        EXPECT_EQ(Take(), (std::vector<WPARAM>{At(TB_THUMBTRACK, 60), At(TB_THUMBTRACK, 100),
                                               At(TB_THUMBPOSITION, 100), TB_ENDTRACK}));
        Mouse(WM_LBUTTONDOWN, 10);
        Mouse(WM_LBUTTONUP, 10);
        EXPECT_EQ(slider.GetPos(), 80);
        EXPECT_EQ(Take(), (std::vector<WPARAM>{TB_PAGEUP, TB_ENDTRACK}));
    }
}

TEST_F(SliderTest, ANativeThumbTellsTheSame) {
    Make();
    input::Value(slider.m_hWnd, 53); // the wheel
    EXPECT_EQ(Take(), (std::vector<WPARAM>{At(TB_THUMBTRACK, 53), At(TB_THUMBPOSITION, 53), TB_ENDTRACK}));
    input::Stepped(slider.m_hWnd, TB_LINEDOWN);
    EXPECT_EQ(Take(), (std::vector<WPARAM>{TB_LINEDOWN, TB_ENDTRACK}));
    Mouse(WM_LBUTTONDOWN, 59); // on the thumb: the press of a native widget may be beside it
    input::Stepped(slider.m_hWnd, TB_PAGEUP);
    input::Stepped(slider.m_hWnd, TB_PAGEUP);
    Mouse(WM_LBUTTONUP, 59);
    EXPECT_EQ(Take(), (std::vector<WPARAM>{TB_PAGEUP, TB_PAGEUP, TB_ENDTRACK}));
    EXPECT_EQ(slider.GetPos(), 14);
    for (const double value : {14.0, 1e300, std::numeric_limits<double>::quiet_NaN()})
        input::Value(slider.m_hWnd, value);
    EXPECT_EQ(Take(), std::vector<WPARAM>());
}

TEST_F(SliderTest, AParentThatFailsHearsTheEndOfEachMove) {
    using Act = std::function<void()>;
    const auto value = [&] { input::Value(slider.m_hWnd, 53); };
    const auto dragged = [&] {
        Mouse(WM_LBUTTONDOWN, 55);
        EXPECT_THROW(value(), std::runtime_error);
        Mouse(WM_LBUTTONUP, 55);
    };
    const std::vector<WPARAM> moved{At(TB_THUMBTRACK, 53), At(TB_THUMBPOSITION, 53), TB_ENDTRACK};
    for (const auto& [border, act, told] : Table<Act, std::vector<WPARAM>>{
             {"the wheel of a widget", value, moved},
             {"a step", [&] { input::Stepped(slider.m_hWnd, TB_PAGEUP); }, {TB_PAGEUP, TB_ENDTRACK}},
             {"the mouse", dragged, moved}}) {
        Make();
        parent.fails = true;
        EXPECT_THROW(act(), std::runtime_error) << border;
        parent.fails = false;
        EXPECT_EQ(Take(), told) << border;
        Mouse(WM_LBUTTONDOWN, slider.GetPos() + 5); // on the thumb
        Mouse(WM_LBUTTONUP, slider.GetPos() + 5);
        EXPECT_EQ(Take(), std::vector<WPARAM>{TB_ENDTRACK}) << border << ": it is dragged no more";
    }
}

TEST_F(SliderTest, ProgramsKeepItInItsRangeSilently) {
    for (const auto& [border, range, position, expected, page] :
         Table<Range, int, int, int>{{"below", {-10, 10}, -11, -10, 4},
                                     {"reversed", {10, 0}, 5, 5, 2},
                                     {"narrow", {3, 4}, 9, 4, 1},
                                     {"widest", {INT_MIN, INT_MAX}, INT_MAX, INT_MAX, 858993459}}) {
        Make();
        slider.SetRange(range.lower, range.upper);
        slider.SetPos(position);
        EXPECT_EQ(slider.GetPos(), expected) << border;
        EXPECT_EQ(slider.SetPageSize(7), page) << border;
        EXPECT_EQ(slider.SetPageSize(0), 7) << border;
        EXPECT_EQ(Take(), std::vector<WPARAM>()) << border;
    }
    input::Key(slider.m_hWnd, WM_KEYDOWN, VK_NEXT, {});
    EXPECT_EQ(slider.GetPos(), INT_MAX);
}

class SpinTest : public ScrollTest {
protected:
    void Make(UINT style = 0) {
        spin.DestroyWindow();
        edit.DestroyWindow();
        edit.Create(WS_CHILD | WS_VISIBLE, {0, 0, 60, 20}, &parent, 1);
        spin.Create(WS_CHILD | WS_VISIBLE | UDS_AUTOBUDDY | UDS_SETBUDDYINT | UDS_ALIGNRIGHT | style,
                    {0, 0, 10, 10}, &parent, 2);
    }
    CString Shown() const { return edit.GetWindowTextA(); }
    void Press(UINT key) {
        input::Key(edit.m_hWnd, WM_KEYDOWN, key, {});
        input::Key(edit.m_hWnd, WM_KEYUP, key, {});
    }

    CEdit edit;
    CSpinButtonCtrl spin;
};

TEST_F(SpinTest, AFreshOneCountsDownWithItsUpperArrow) {
    Make();
    Range range;
    spin.GetRange32(range.lower, range.upper);
    EXPECT_EQ(std::pair(range.lower, range.upper), std::pair(100, 0));
    EXPECT_EQ(spin.SendMessageA(UDM_GETRANGE), MAKELPARAM(0, 100));
    EXPECT_EQ(view::Rectangle(edit.m_hWnd).right, 43);
    EXPECT_EQ(view::Rectangle(spin.m_hWnd), (CRect{43, 0, 60, 20}));
    spin.SetPos32(7);
    input::Mouse(spin.m_hWnd, WM_LBUTTONDOWN, MK_LBUTTON, {5, 2});
    EXPECT_EQ(Shown(), "6");
    display.Advance(600ms); // held down: after half a second, then each 50 ms
    EXPECT_EQ(Shown(), "3");
    input::Mouse(spin.m_hWnd, WM_LBUTTONUP, 0, {5, 2});
    display.Advance(600ms);
    EXPECT_EQ(Shown(), "3");
    EXPECT_EQ(GetFocus(), edit.m_hWnd);
    EXPECT_EQ(Take().back(), At(SB_ENDSCROLL, 3));
    for (const auto& [border, window, color] : Table<CWnd*, int>{
             {"in a disabled window", &parent, COLOR_BTNTEXT}, {"disabled", &spin, COLOR_GRAYTEXT}}) {
        window->EnableWindow(false);
        EXPECT_EQ(display.PaintWindow(spin.m_hWnd).back().color, GetSysColor(color)) << border;
    }
}

TEST_F(SpinTest, TheBuddyShowsAndGivesTheNumber) {
    platform::UseLocale("de-DE");
    for (const auto& [border, style, typed, position, failed] : Table<UINT, const char*, int, bool>{
             {"a number", 0, "12", 12, false},
             {"with separators", 0, "1.234", 1234, false},
             {"of the range only", 0, "5001", 77, true},
             {"nothing", 0, "", 77, true},
             {"too many digits", 0, "99999999999", 77, true},
             {"separators are not meant", UDS_NOTHOUSANDS, "1.234", 77, true}}) {
        Make(style);
        spin.SetRange32(-5000, 5000);
        spin.SetPos32(77);
        edit.SetWindowTextA(typed);
        bool error = false;
        EXPECT_EQ(spin.GetPos32(&error), position) << border;
        EXPECT_EQ(error, failed) << border;
    }
    Make();
    spin.SetRange32(INT_MIN, INT_MAX);
    for (const auto& [border, position, text] :
         Table<int, const char*>{{"three digits", -123, "-123"},
                                 {"four digits", 1234, "1.234"},
                                 {"the smallest", INT_MIN, "-2.147.483.648"}}) {
        spin.SetPos32(position);
        EXPECT_EQ(Shown(), text) << border;
    }
    spin.SetRange32(0, 10);
    EXPECT_EQ(spin.SetPos32(99), 0);
    EXPECT_EQ(Shown(), "10") << "the nearest number of the range";
    EXPECT_EQ(spin.SendMessageA(UDM_GETPOS), 10);
    platform::UseLocale({});
}

TEST_F(SpinTest, AnArrowKeyOfTheBuddyAsksFirst) {
    using Deltas = std::vector<int>;
    for (const auto& [border, style, start, key, replaced, refuses, text, deltas] :
         Table<UINT, int, UINT, int, bool, const char*, Deltas>{
             {"up", UDS_ARROWKEYS, 5, VK_UP, 0, false, "6", {1}},
             {"down", UDS_ARROWKEYS, 5, VK_DOWN, 0, false, "4", {-1}},
             {"refused", UDS_ARROWKEYS, 5, VK_UP, 0, true, "5", {1}},
             {"another step", UDS_ARROWKEYS, 5, VK_UP, 3, false, "8", {1}},
             {"a step too large", UDS_ARROWKEYS, 5, VK_UP, INT_MAX, false, "10", {1}},
             {"at the end", UDS_ARROWKEYS, 10, VK_UP, 0, false, "10", {1}},
             {"round the end", UDS_ARROWKEYS | UDS_WRAP, 10, VK_UP, 0, false, "0", {1}},
             {"round the beginning", UDS_ARROWKEYS | UDS_WRAP, 0, VK_DOWN, 0, false, "10", {-1}},
             {"sideways", UDS_ARROWKEYS | UDS_HORZ, 5, VK_LEFT, 0, false, "4", {-1}},
             {"not across", UDS_ARROWKEYS | UDS_HORZ, 5, VK_UP, 0, false, "5", {}},
             {"keys are the field's", 0, 5, VK_UP, 0, false, "5", {}}}) {
        Make(style);
        spin.SetRange32(0, 10);
        spin.SetPos32(start);
        parent.replacedDelta = replaced;
        parent.refuses = refuses;
        parent.deltas.clear();
        Press(key);
        EXPECT_EQ(Shown(), text) << border;
        EXPECT_EQ(parent.deltas, deltas) << border;
    }
}

TEST_F(SpinTest, ABuddyOutlivesItsArrowsAndTheyOutliveIt) {
    Make(UDS_ARROWKEYS);
    spin.DestroyWindow();
    Press(VK_UP);
    edit.SetWindowTextA("x");
    EXPECT_EQ(Shown(), "x");
    Make(UDS_ARROWKEYS);
    edit.DestroyWindow();
    spin.SetPos32(5);
    input::Mouse(spin.m_hWnd, WM_LBUTTONDOWN, MK_LBUTTON, {5, 2});
    EXPECT_EQ(spin.GetPos32(), 4);
}

} // namespace
} // namespace korvel
