#include "korvel/window/core/input.h"
#include "korvel/window/core/scroll_bar.h"
#include "korvel/window/display/window_view.h"
#include "support/recorded_window.h"

#include <limits>

namespace korvel {
namespace {

constexpr int Bar = 17; // pixels that a bar is wide without a screen
constexpr int Lowest = std::numeric_limits<int>::min();
constexpr int Highest = std::numeric_limits<int>::max();

class ScrollBars : public WindowTest {
protected:
    ScrollBars() {
        page.Create(WS_VISIBLE, nullptr);
        Heard();
    }
    CSize Client() const { return {GetClientRect(page.m_hWnd).right, GetClientRect(page.m_hWnd).bottom}; }
    std::pair<int, int> Range(int bar) const {
        std::pair<int, int> range{-1, -1};
        GetScrollRange(page.m_hWnd, bar, range.first, range.second);
        return range;
    }

    RecordedWindow page{"page", log};
};

TEST_F(ScrollBars, AppearAndDisappearWithTheirRange) {
    const Table<int, int, int, bool, CSize, Log> rows = {
        {"an empty range shows nothing", SB_VERT, 0, 0, true, {100, 50}, {}},
        {"a bar at the right takes width", SB_VERT, 0, 30, true, {100 - Bar, 50}, {"page size"}},
        {"another range of a shown bar changes no size", SB_VERT, 10, 11, true, {100 - Bar, 50}, {}},
        {"a bar below takes height", SB_HORZ, -5, 5, true, {100 - Bar, 50 - Bar}, {"page size"}},
        {"a range of more than 31 bits is refused", SB_VERT, -1, Highest, false, {100 - Bar, 50 - Bar}, {}},
        {"the largest range is none too large", SB_VERT, Lowest, -1, true, {100 - Bar, 50 - Bar}, {}},
        {"a reversed range is empty", SB_VERT, 9, 3, true, {100, 50 - Bar}, {"page size"}},
        {"there is no third bar", 2, 0, 9, false, {100, 50 - Bar}, {}},
    };
    for (const auto& [name, bar, minimum, maximum, done, client, heard] : rows) {
        SCOPED_TRACE(name);
        EXPECT_EQ(SetScrollRange(page.m_hWnd, bar, minimum, maximum), done);
        EXPECT_EQ(Client(), client);
        EXPECT_EQ(Heard(), heard);
        EXPECT_EQ((page.GetStyle() & WS_VSCROLL) != 0, client.cx < 100);
        EXPECT_EQ((page.GetStyle() & WS_HSCROLL) != 0, client.cy < 50);
        EXPECT_EQ(view::ScrollBar(page.m_hWnd, SB_VERT).shown, client.cx < 100);
    }
    EXPECT_EQ(Range(SB_VERT), std::pair(9, 9));
    EXPECT_EQ(Range(SB_HORZ), std::pair(-5, 5));
}

TEST_F(ScrollBars, APositionStaysInItsRange) {
    SetScrollRange(page.m_hWnd, SB_HORZ, -10, 20);
    EXPECT_EQ(GetScrollPos(page.m_hWnd, SB_HORZ), 0);
    EXPECT_EQ(SetScrollPos(page.m_hWnd, SB_HORZ, 50), 0);
    EXPECT_EQ(SetScrollPos(page.m_hWnd, SB_HORZ, Lowest), 20);
    EXPECT_EQ(GetScrollPos(page.m_hWnd, SB_HORZ), -10);
    EXPECT_EQ(GetScrollPos(page.m_hWnd, SB_VERT), 0) << "each bar has its own";
    SetScrollRange(page.m_hWnd, SB_HORZ, 5, 7);
    EXPECT_EQ(GetScrollPos(page.m_hWnd, SB_HORZ), 5);
    EXPECT_EQ(SetScrollPos(nullptr, SB_HORZ, 5), 0);
    EXPECT_EQ(SetScrollPos(page.m_hWnd, 7, 5), 0);
}

TEST_F(ScrollBars, AWindowMadeWithABarHasARange) {
    RecordedWindow other("other", log);
    other.Create(WS_VSCROLL, nullptr);
    EXPECT_EQ(GetClientRect(other.m_hWnd).right, 100 - Bar);
    int minimum = -1, maximum = -1;
    EXPECT_TRUE(GetScrollRange(other.m_hWnd, SB_VERT, minimum, maximum));
    EXPECT_EQ(std::pair(minimum, maximum), std::pair(0, 100));
    SetScrollPos(other.m_hWnd, SB_VERT, 70);
    EXPECT_EQ(GetScrollPos(other.m_hWnd, SB_VERT), 70);
}

TEST_F(ScrollBars, AControlThatScrollsItselfHasNone) {
    for (const char* className : {"EDIT", "SysListView32"}) {
        SCOPED_TRACE(className);
        const HWND control = CreateWindowExA(0, className, "", WS_CHILD, {0, 0, 60, 40}, page.m_hWnd, 1);
        int minimum = -1, maximum = -1;
        EXPECT_FALSE(SetScrollRange(control, SB_VERT, 0, 9));
        EXPECT_FALSE(GetScrollRange(control, SB_VERT, minimum, maximum));
        EXPECT_EQ(minimum, -1);
        EXPECT_EQ(GetClientRect(control).right, 60);
    }
}

TEST_F(ScrollBars, TheWindowIsToldWhatTheUserDoes) {
    page.answer[WM_HSCROLL] = page.answer[WM_VSCROLL] = 0;
    MSG heard;
    page.on[WM_HSCROLL] = page.on[WM_VSCROLL] = [&] { heard = CWnd::GetCurrentMessage(); };
    SetScrollRange(page.m_hWnd, SB_VERT, 0, 90);
    input::ScrollBarUsed(page.m_hWnd, SB_VERT, SB_THUMBTRACK, 44);
    EXPECT_EQ(heard.message, WM_VSCROLL);
    EXPECT_EQ(heard.wParam, MAKEWPARAM(SB_THUMBTRACK, 44));
    EXPECT_EQ(GetScrollPos(page.m_hWnd, SB_VERT), 0) << "nothing moves by itself";
    input::ScrollBarUsed(page.m_hWnd, SB_HORZ, SB_LINEDOWN, 0);
    EXPECT_EQ(heard.message, WM_HSCROLL);
    page.EnableWindow(false);
    heard = {};
    input::ScrollBarUsed(page.m_hWnd, SB_HORZ, SB_LINEDOWN, 0);
    EXPECT_EQ(heard.message, 0u) << "a disabled window hears nothing";
}

TEST_F(ScrollBars, ScrollWindowMovesTheChildren) {
    RecordedWindow a("a", log), b("b", log), inner("inner", log);
    a.Create(WS_CHILD, &page, 1, {0, 0, 10, 10});
    inner.Create(WS_CHILD, &a, 1, {1, 1, 2, 2});
    b.Create(WS_CHILD, &page, 2, {20, 20, 30, 40});
    Heard();
    display.PaintWindow(page.m_hWnd);
    a.on[WM_MOVE] = [&] { b.DestroyWindow(); };
    EXPECT_TRUE(ScrollWindow(page.m_hWnd, -5, 7));
    EXPECT_EQ(view::Rectangle(a.m_hWnd), (CRect{-5, 7, 5, 17}));
    EXPECT_EQ(view::Rectangle(inner.m_hWnd), (CRect{1, 1, 2, 2}));
    EXPECT_THAT(Heard(), ElementsAre("a placed", "a move", "b destroy", "b end"));
    EXPECT_TRUE(display.IsInvalid(page.m_hWnd));
    ScrollWindow(page.m_hWnd, Lowest, Highest); // as far as windows lie
    EXPECT_TRUE(ScrollWindow(page.m_hWnd, Highest, Lowest));
    EXPECT_FALSE(ScrollWindow(nullptr, 1, 1));
}

} // namespace
} // namespace korvel
