#include "korvel/layout/base_item.h"
#include "korvel/layout/layout_manager.h"
#include "korvel/layout/pane_manager.h"
#include "korvel/window/controls/static.h"
#include "korvel/window/core/scroll_bar.h"
#include "korvel/window/display/window_view.h"
#include "support/recorded_window.h"

namespace korvel {
namespace {

constexpr UINT GrowBoth = ItemGrowX | ItemGrowY;
constexpr int Bar = 17; // pixels that a bar is wide without a screen
constexpr int ControlId = 5;

// A host window of 200 by 100 whose layout is one control that fills it.
class Host : public CWnd, public CLayoutManager<Host> {
public:
    LayoutForm form = LayoutForm::Page;
    bool failsBesideNewBar = false;
    using CLayoutManager::EraseLayout;
    using CLayoutManager::InitializeLayout;
    using CLayoutManager::LimitTrackSize;
    using CLayoutManager::ResizeLayout;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_ERASEBKGND && EraseLayout(reinterpret_cast<CDC*>(wParam)))
            return 1;
        if (message == WM_DESTROY)
            DestroyLayout();
        const LRESULT result = CWnd::WindowProc(message, wParam, lParam);
        if (message == WM_SIZE && inScrollUpdate && failsBesideNewBar)
            throw std::runtime_error("a handler of the new client area");
        if (message == WM_SIZE)
            ResizeLayout(form, static_cast<int>(LOWORD(lParam)), static_cast<int>(HIWORD(lParam)));
        if (message == WM_HSCROLL || message == WM_VSCROLL)
            ScrollLayout(message == WM_HSCROLL ? SB_HORZ : SB_VERT, LOWORD(wParam),
                         static_cast<int>(HIWORD(wParam)));
        return result;
    }
};

class LayoutManager : public WindowTest {
protected:
    LayoutManager() {
        host.CreateEx(0, "KorvelFrame", "", WS_VISIBLE, {0, 0, 200, 100}, nullptr, 0);
        control = CreateWindowExA(0, "KorvelFrame", "", WS_CHILD | WS_VISIBLE, {0, 0, 200, 100}, host.m_hWnd,
                                  ControlId);
    }
    void Build(IItem* item) {
        host.InitializeLayout();
        auto* pane = new CPaneManager(1, GrowBoth);
        pane->SetRect(host.clientRect);
        pane->Add(item);
        host.root = pane;
    }
    void Resize(int width, int height) { host.MoveWindow({0, 0, width, height}); }
    int Maximum(int bar) const { return view::ScrollBar(host.m_hWnd, bar).maximum; }

    Host host;
    HWND control = nullptr;
};

TEST_F(LayoutManager, FollowsTheWindowWithBarsBelowTheDesignSize) {
    Build(new CBaseItem(host.m_hWnd, ControlId, GrowBoth));
    struct Expected {
        RECT control;
        int across = 0; // the ends of the bars' ranges
        int down = 0;
    };
    const Table<bool, CSize, Expected> rows = {
        {"larger: no bars", true, {300, 150}, {{0, 0, 300, 150}}},
        {"narrower: a bar takes height, and the design width stays",
         true,
         {150, 150},
         {{0, 0, 200, 133}, 50}},
        {"larger again: what the bar took is given back", true, {300, 150}, {{0, 0, 300, 150}}},
        {"smaller in both", true, {150, 60}, {{0, 0, 200, 100}, 67, 57}},
        {"between bars: the room of both is given back", true, {151, 61}, {{0, 0, 200, 100}, 66, 56}},
        {"a bar below makes one at the right necessary", true, {190, 110}, {{0, 0, 200, 100}, 27, 7}},
        {"and the other way round", true, {200, 99}, {{0, 0, 200, 100}, 17, 18}},
        {"exactly the design size", true, {200, 100}, {{0, 0, 200, 100}}},
        {"without bars it shrinks on", false, {150, 60}, {{0, 0, 150, 60}}},
        {"no height: nothing moves", false, {120, 0}, {{0, 0, 150, 60}}},
    };
    for (const auto& [name, scrolls, size, expected] : rows) {
        SCOPED_TRACE(name);
        host.scrollEnabled = scrolls;
        Resize(size.cx, size.cy);
        EXPECT_EQ(view::Rectangle(control), expected.control);
        EXPECT_EQ(Maximum(SB_HORZ), expected.across);
        EXPECT_EQ(Maximum(SB_VERT), expected.down);
        EXPECT_EQ(host.hBarShown, expected.across > 0);
        EXPECT_EQ(GetClientRect(host.m_hWnd).Height(), size.cy - (expected.across > 0 ? Bar : 0));
        EXPECT_FALSE(host.inScrollUpdate);
    }
    host.ResizeLayout(LayoutForm::Page, -5, 300);
    EXPECT_EQ(view::Rectangle(control), (RECT{0, 0, 150, 60})) << "below 0";
}

// Wide arrows, and bars that are not as wide as they are high.
class UnevenBars : public HeadlessDisplay {
public:
    int Metric(int index) override {
        switch (index) {
        case SM_CXHSCROLL:
            return 11;
        case SM_CXVSCROLL:
            return 17;
        case SM_CYHSCROLL:
            return 23;
        default:
            return HeadlessDisplay::Metric(index);
        }
    }
};

TEST_F(LayoutManager, FollowsAWindowThatIsLongerThanItsMessageCanSay) {
    Build(new CBaseItem(host.m_hWnd, ControlId, GrowBoth));
    for (const int width : {0xFFFF, 0x10000, 70000}) {
        Resize(width, 100);
        EXPECT_EQ(view::Rectangle(control).Width(), 0xFFFF);
    }
}

TEST(LayoutManagerOfUnevenBars, TakesAndGivesBackTheirRoomAsEver) {
    UnevenBars display;
    SetDisplay(&display);
    Host host;
    host.CreateEx(0, "KorvelFrame", "", WS_VISIBLE, {0, 0, 200, 100}, nullptr, 0);
    const HWND control =
        CreateWindowExA(0, "KorvelFrame", "", WS_CHILD, {0, 0, 200, 100}, host.m_hWnd, ControlId);
    host.InitializeLayout();
    host.root = new CBaseItem(host.m_hWnd, ControlId, GrowBoth);
    host.root->CaptureRect();
    host.scrollEnabled = true;
    const Table<CSize, RECT> rows = {
        {"kept: a bar across takes the width of its arrows", {150, 150}, {0, 0, 200, 139}},
        {"and gives back its height", {300, 150}, {0, 0, 300, 150}},
        {"one at the right takes its width", {300, 60}, {0, 0, 283, 100}},
        {"kept: and gives back the height of the other", {300, 150}, {0, 0, 306, 150}},
    };
    for (const auto& [name, size, expected] : rows) {
        host.MoveWindow({0, 0, size.cx, size.cy});
        EXPECT_EQ(view::Rectangle(control), expected) << name;
    }
}

TEST_F(LayoutManager, KnowsItsBarsAlsoWhenAHandlerThrows) {
    Build(new CBaseItem(host.m_hWnd, ControlId, GrowBoth));
    host.scrollEnabled = true;
    host.failsBesideNewBar = true;
    EXPECT_THROW(Resize(150, 150), std::runtime_error);
    host.failsBesideNewBar = false;
    Resize(300, 110);
    EXPECT_EQ(view::Rectangle(control), (RECT{0, 0, 300, 110})) << "what the bar took is given back";
}

TEST_F(LayoutManager, ScrollsWhatItHas) {
    Build(new CBaseItem(host.m_hWnd, ControlId, GrowBoth));
    host.scrollEnabled = true;
    Resize(150, 60);
    host.SendMessageA(WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, 30));
    host.SendMessageA(WM_HSCROLL, MAKEWPARAM(SB_THUMBTRACK, 65));
    EXPECT_EQ(view::Rectangle(control).TopLeft(), (CPoint{-65, -30}));
    host.SendMessageA(WM_HSCROLL, SB_ENDSCROLL);
    EXPECT_EQ(view::Rectangle(control).TopLeft(), (CPoint{-65, -30}));
    host.SendMessageA(WM_HSCROLL, SB_LINEUP);
    EXPECT_EQ(GetScrollPos(host.m_hWnd, SB_HORZ), 53) << "a line is the tenth of 133 less 10 pixels";
    host.SendMessageA(WM_HSCROLL, MAKEWPARAM(SB_THUMBTRACK, 65));
    const HWND other = CreateWindowExA(0, "KorvelFrame", "", WS_CHILD, {0, 0, 9, 9}, host.m_hWnd, 6);
    Resize(160, 60);
    EXPECT_EQ(view::Rectangle(other).left, 8) << "what the layout does not place scrolls with the bar";
    EXPECT_EQ(GetScrollPos(host.m_hWnd, SB_HORZ), 57) << "no farther than the new end";
    EXPECT_EQ(view::Rectangle(control), (RECT{0, 0, 200, 100})) << "kept: a resize places unscrolled";
}

TEST_F(LayoutManager, ScrollsNothingWithoutATree) {
    SetScrollRange(host.m_hWnd, SB_VERT, 0, 50);
    host.SendMessageA(WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, 30));
    EXPECT_EQ(view::Rectangle(control).TopLeft(), CPoint());
    EXPECT_EQ(GetScrollPos(host.m_hWnd, SB_VERT), 0);
}

TEST_F(LayoutManager, LimitsTheSizeThatTheUserMayGive) {
    MINMAXINFO limits;
    EXPECT_FALSE(host.LimitTrackSize(limits)) << "there is no tree yet";
    Build(new CBaseItem(host.m_hWnd, ControlId, GrowBoth));
    Resize(500, 500);
    EXPECT_TRUE(host.LimitTrackSize(limits));
    EXPECT_EQ(limits.ptMinTrackSize, (CPoint{200, 100}));
}

TEST_F(LayoutManager, ADialogIsPaintedAgainWithoutATreeToo) {
    for (const LayoutForm form : {LayoutForm::Page, LayoutForm::Dialog}) {
        host.form = form;
        display.PaintWindow(host.m_hWnd);
        host.SendMessageA(WM_SIZE, 0, MAKELPARAM(0, 0));
        EXPECT_EQ(display.IsInvalid(host.m_hWnd), form == LayoutForm::Dialog);
    }
}

TEST_F(LayoutManager, MayLoseItsWindowWhileItIsPlaced) {
    Log gone;
    struct Last : CBaseItem {
        Last(HWND parent, Log& log) : CBaseItem(parent, ControlId, GrowBoth), m_log(log) {}
        ~Last() override { m_log.push_back("item"); }
        void MoveTo(const RECT& target) override {
            DestroyWindow(hParent);
            m_log.push_back("window");
            CBaseItem::MoveTo(target);
        }
        Log& m_log;
    };
    Build(new Last(host.m_hWnd, gone));
    Resize(300, 300);
    EXPECT_FALSE(host.m_hWnd);
    EXPECT_FALSE(host.root);
    EXPECT_THAT(gone, ElementsAre("window", "item")) << "the tree lives until its placement is over";
}

TEST_F(LayoutManager, FillsWhatItsChildrenLeave) {
    DestroyWindow(control);
    RecordedWindow silent("silent", log), over("over", log);
    CStatic text, frame, hidden;
    const UINT shown = WS_CHILD | WS_VISIBLE;
    text.Create("", shown, {10, 0, 20, 100}, &host, 1);
    frame.Create("", shown | 7, {30, 0, 40, 100}, &host, 2);
    hidden.Create("", WS_CHILD, {50, 0, 60, 100}, &host, 3);
    silent.Create(shown, &host, 4, {70, 0, 80, 100});
    silent.answer[WM_ERASEBKGND] = 0;
    over.Create(shown, &host, 5, {15, 0, 300, 50});
    const std::vector<PaintCall> calls = display.PaintWindow(host.m_hWnd);
    ASSERT_EQ(calls.size(), 3u) << "the children that were asked painted nothing";
    EXPECT_EQ(calls[1].kind, PaintCall::Kind::Fill);
    EXPECT_EQ(calls[1].rect, (CRect{0, 0, 200, 100}));
    EXPECT_EQ(calls[1].color, GetSysColor(COLOR_3DFACE));
    std::vector<CRect> filled; // inside the window
    for (const CRect& rect : calls[0].region)
        if (const CRect inside = rect.Intersected(calls[1].rect); !inside.IsRectEmpty())
            filled.push_back(inside);
    EXPECT_THAT(filled, ElementsAre(CRect{0, 0, 10, 50}, CRect{15, 0, 20, 50}, CRect{0, 50, 10, 100},
                                    CRect{20, 50, 200, 100}));
    EXPECT_TRUE(calls[2].region.empty()) << "the clip is lifted";
    EXPECT_FALSE(host.EraseLayout(nullptr));
}

} // namespace
} // namespace korvel
