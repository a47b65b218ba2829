#include "korvel/window/display/window_view.h"
#include "support/list_fixture.h"

#include <limits>

namespace korvel {

namespace {

class ListGeometry : public ListTest {
protected:
    // Column 0 then reads: indent of 16 a level, 18 for the check box, 16 for the icon, the label.
    void MakeListWithParts() {
        MakeList(3);
        list.SetImageList(&images);
        list.SetExtendedStyle(LVS_EX_CHECKBOXES);
        list.SetItemIndent(1, 1);
    }

    CImageList images{16, 16};
};

TEST_F(ListGeometry, EachPointOfACellBelongsToItsRow) {
    MakeListWithParts();
    for (const auto& [border, point, row, column, part] : Table<CPoint, int, int, UINT>{
             {"the header is no row", {30, 23}, -1, -1, LVHT_NOWHERE},
             {"last pixel of the first row", {60, 43}, 0, 0, LVHT_ONITEMLABEL},
             {"in front of an indented row", {0, 44}, 1, 0, LVHT_ONITEMLABEL},
             {"check box of an indented row", {16, 44}, 1, 0, LVHT_ONITEMSTATEICON},
             {"last pixel of the check box", {33, 44}, 1, 0, LVHT_ONITEMSTATEICON},
             {"icon", {34, 44}, 1, 0, LVHT_ONITEMICON},
             {"last pixel of column 0", {99, 44}, 1, 0, LVHT_ONITEMLABEL},
             {"column 1 is all label", {100, 44}, 1, 1, LVHT_ONITEMLABEL},
             {"right of the last column", {150, 44}, -1, -1, LVHT_NOWHERE},
             {"below the last row", {30, 84}, -1, -1, LVHT_NOWHERE},
             {"left of the window", {-1, 44}, -1, -1, LVHT_NOWHERE},
         }) {
        LVHITTESTINFO info;
        info.pt = point;
        EXPECT_EQ(list.SubItemHitTest(&info), row) << border;
        EXPECT_EQ(info.iSubItem, column) << border;
        EXPECT_EQ(info.flags, part) << border;
    }
}

TEST_F(ListGeometry, RectanglesFollowColumnsIndentAndScrolling) {
    MakeListWithParts();
    CRect rect;
    for (const auto& [border, column, part, expected] :
         Table<int, int, CRect>{{"column 0 bounds the whole row", 0, LVIR_BOUNDS, {0, 44, 150, 64}},
                                {"icon", 0, LVIR_ICON, {34, 44, 50, 64}},
                                {"label of column 0", 0, LVIR_LABEL, {50, 44, 100, 64}},
                                {"column 1 bounds its cell", 1, LVIR_BOUNDS, {100, 44, 150, 64}},
                                {"label of column 1", 1, LVIR_LABEL, {100, 44, 150, 64}}}) {
        EXPECT_TRUE(list.GetSubItemRect(1, column, part, &rect)) << border;
        EXPECT_EQ(rect, expected) << border;
    }
    EXPECT_FALSE(list.GetSubItemRect(1, 2, LVIR_BOUNDS, &rect));
    EXPECT_FALSE(list.GetItemRect(3, &rect));
    list.SetItemIndent(0, 2000000000); // deeper than the column is wide: the parts end with the column
    EXPECT_TRUE(list.GetItemRect(0, &rect, LVIR_LABEL));
    EXPECT_EQ(rect, (CRect{100, 24, 100, 44}));
    list.SetColumnWidth(1, 300);
    list.Scroll({30, 0});
    EXPECT_TRUE(list.GetSubItemRect(1, 1, LVIR_LABEL, &rect));
    EXPECT_EQ(rect, (CRect{70, 44, 370, 64}));
}

TEST_F(ListGeometry, OneScrollBarCanMakeTheOtherNecessary) {
    for (const auto& [border, rows, width, client] :
         Table<int, int, CRect>{{"all fits exactly", 5, 100, {0, 0, 200, 124}},
                                {"one row more", 6, 50, {0, 0, 183, 124}},
                                {"one pixel more", 4, 101, {0, 0, 200, 107}},
                                {"the vertical bar covers the last column", 6, 100, {0, 0, 183, 107}},
                                {"the horizontal bar covers the last row", 5, 101, {0, 0, 183, 107}}}) {
        MakeList(rows);
        list.SetColumnWidth(1, width);
        EXPECT_EQ(list.GetClientRect(), client) << border;
        list.DestroyWindow();
    }
}

TEST_F(ListGeometry, AScrollBarThatComesSendsTheNewSizeOnceRedrawIsOn) {
    struct Resized : CListCtrl {
        Rows widths;
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            if (message == WM_SIZE)
                widths.push_back(static_cast<int>(LOWORD(static_cast<WPARAM>(lParam))));
            return CListCtrl::WindowProc(message, wParam, lParam);
        }
    } resized;
    resized.Create(WS_CHILD | LVS_REPORT, {0, 0, 200, 124}, &parent, 1);
    resized.SetRedraw(false);
    for (int row = 0; row < 6; ++row)
        resized.InsertItem(row, "");
    EXPECT_EQ(resized.widths, (Rows{200}));
    resized.SetRedraw(true);
    EXPECT_EQ(resized.widths, (Rows{200, 183}));
    EXPECT_TRUE(display.TakeChanges(resized.m_hWnd) & Aspect::Scroll);
}

TEST_F(ListGeometry, AutomaticWidthsFitTextsTitleAndTheRest) {
    MakeList(0);
    list.InsertItem(0, "eight ch");
    list.SetItemText(0, 1, "12");
    for (const auto& [border, column, mode, width] :
         Table<int, int, int>{{"texts of column 0", 0, LVSCW_AUTOSIZE, 8 * 7 + 8},
                              {"texts alone, though the title is wider", 1, LVSCW_AUTOSIZE, 2 * 7 + 8},
                              {"the last column fills the rest", 1, LVSCW_AUTOSIZE_USEHEADER, 200 - 64},
                              {"no less than nothing", 1, -5, 0}}) {
        list.SetColumnWidth(column, mode);
        EXPECT_EQ(list.GetColumnWidth(column), width) << border;
    }
    list.SetExtendedStyle(LVS_EX_CHECKBOXES);
    list.SetColumnWidth(0, LVSCW_AUTOSIZE);
    EXPECT_EQ(list.GetColumnWidth(0), 18 + 8 * 7 + 8);
    list.SetItemText(0, 0, "");
    list.SetColumnWidth(0, LVSCW_AUTOSIZE_USEHEADER); // "Name" needs more than the check box
    EXPECT_EQ(list.GetColumnWidth(0), 4 * 7 + 8);
}

TEST_F(ListGeometry, NumbersFarOutsideAreHeldInRange) {
    constexpr int Most = std::numeric_limits<int>::max();
    MakeList(3);
    list.SetColumnWidth(0, Most);
    list.SetColumnWidth(1, Most);
    list.Scroll({Most, Most});
    CRect rect;
    EXPECT_TRUE(list.GetSubItemRect(2, 1, LVIR_LABEL, &rect));
    EXPECT_LE(rect.right, list.GetClientRect().right);
    EXPECT_EQ(list.HitTest({Most, Most}), -1);
    EXPECT_EQ(list.GetNextItem(Most, LVNI_SELECTED), -1);
    EXPECT_FALSE(list.DeleteItem(Most));
    EXPECT_FALSE(list.EnsureVisible(Most, false));
    list.RedrawItems(-Most, Most);
    display.PaintWindow(list.GetHeaderCtrl()->m_hWnd);
}

TEST_F(ListGeometry, WhoStandsOverACellHearsThatItHasMoved) {
    MakeList(6);
    const CImageList high{16, 30};
    int top = 0;
    list.SetCellsMovedHook([&] {
        CRect cell;
        top = list.GetItemRect(3, &cell) ? cell.top : -1;
    });
    for (const auto& [border, act, expected] : Table<std::function<void()>, int>{
             {"scrolled", [this] { list.EnsureVisible(5, false); }, RowTop(2)},
             {"scrolled back by a removal", [this] { list.DeleteItem(0); }, RowTop(3)},
             {"another height of rows", [&] { list.SetImageList(&high); }, 24 + 3 * 32},
             {"nobody any more", [this] { list.SetCellsMovedHook(nullptr), list.SetImageList(nullptr); },
              24 + 3 * 32},
         }) {
        act();
        EXPECT_EQ(top, expected) << border;
    }
}

class ListScrolling : public ListTest {};

TEST_F(ListScrolling, EnsureVisibleScrollsAsLittleAsItTakes) {
    MakeList(20);
    list.MoveWindow({0, 0, 200, 134}); // five rows and a half
    for (const auto& [border, row, partialOk, top] :
         Table<int, bool, int>{{"last whole row", 4, false, 0},
                               {"half a row is enough", 5, true, 0},
                               {"half a row is not enough", 5, false, 1},
                               {"far below", 19, false, 15},
                               {"above", 3, false, 3}}) {
        EXPECT_TRUE(list.EnsureVisible(row, partialOk)) << border;
        EXPECT_EQ(list.GetTopIndex(), top) << border;
    }
    EXPECT_FALSE(list.EnsureVisible(20, false));
    EXPECT_EQ(list.GetTopIndex(), 3);
    display.PaintWindow(list.m_hWnd);
    list.RedrawItems(9, 19);
    list.SetItemText(2, 0, "unseen");
    EXPECT_FALSE(display.IsInvalid(list.m_hWnd)) << "rows that are not on screen paint nothing";
    list.SetItemText(8, 0, "seen");
    EXPECT_TRUE(display.IsInvalid(list.m_hWnd));
}

TEST_F(ListScrolling, NoWayOfScrollingLeavesTheContent) {
    MakeList(12); // the last top row is 7
    const auto wheel = [this](int delta) {
        return [=, this] { input::Mouse(list.m_hWnd, WM_MOUSEWHEEL, 0, InRow(1), delta); };
    };
    const auto down = [this](int pixels) { return [=, this] { list.Scroll(CSize{0, pixels}); }; };
    const auto bar = [this](UINT command) { return [=, this] { list.SendMessageA(WM_VSCROLL, command); }; };
    const auto dragTo = [this](int row) { return [=, this] { input::Scrolled(list.m_hWnd, 0, row); }; };
    for (const auto& [border, scroll, top] :
         Table<std::function<void()>, int>{{"a notch is three rows", wheel(-120), 3},
                                           {"part of a notch waits", wheel(-30), 3},
                                           {"until it makes a row", wheel(-30), 4},
                                           {"beyond the end", wheel(-12000), 7},
                                           {"beyond the beginning", down(-100000), 0},
                                           {"whole rows count", down(59), 2},
                                           {"the scroll bar", dragTo(6), 6},
                                           {"the scroll bar of more rows", dragTo(1 << 30), 7},
                                           {"a page up", bar(SB_PAGEUP), 2},
                                           {"to the bottom", bar(SB_BOTTOM), 7},
                                           {"fewer rows", [this] { list.DeleteRows(0, 4); }, 3},
                                           {"a higher window",
                                            [this] {
                                                list.MoveWindow(CRect{0, 0, 200, 400});
                                            },
                                            0}}) {
        scroll();
        EXPECT_EQ(list.GetTopIndex(), top) << border;
        EXPECT_EQ(view::Scroll(list.m_hWnd).topRow, top) << border;
    }
}

} // namespace
} // namespace korvel
