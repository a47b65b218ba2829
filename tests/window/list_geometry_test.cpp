#include "window/list_fixture.h"
#include "window/window_view.h"

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
    struct Case {
        const char* border;
        CPoint point;
        int row;
        int column;
        UINT flags;
    };
    for (const Case& row : {
             Case{"the header is no row", {30, 23}, -1, -1, LVHT_NOWHERE},
             Case{"last pixel of the first row", {60, 43}, 0, 0, LVHT_ONITEMLABEL},
             Case{"in front of an indented row", {0, 44}, 1, 0, LVHT_ONITEMLABEL},
             Case{"check box of an indented row", {16, 44}, 1, 0, LVHT_ONITEMSTATEICON},
             Case{"last pixel of the check box", {33, 44}, 1, 0, LVHT_ONITEMSTATEICON},
             Case{"icon", {34, 44}, 1, 0, LVHT_ONITEMICON},
             Case{"last pixel of column 0", {99, 44}, 1, 0, LVHT_ONITEMLABEL},
             Case{"column 1 is all label", {100, 44}, 1, 1, LVHT_ONITEMLABEL},
             Case{"right of the last column", {150, 44}, -1, -1, LVHT_NOWHERE},
             Case{"below the last row", {30, 84}, -1, -1, LVHT_NOWHERE},
             Case{"left of the window", {-1, 44}, -1, -1, LVHT_NOWHERE},
         }) {
        LVHITTESTINFO info;
        info.pt = row.point;
        EXPECT_EQ(list.SubItemHitTest(&info), row.row) << row.border;
        EXPECT_EQ(info.iSubItem, row.column) << row.border;
        EXPECT_EQ(info.flags, row.flags) << row.border;
        UINT flags = 0;
        EXPECT_EQ(list.HitTest(row.point, &flags), row.row) << row.border;
        EXPECT_EQ(flags, row.flags) << row.border;
    }
}

TEST_F(ListGeometry, RectanglesFollowColumnsIndentAndScrolling) {
    MakeListWithParts();
    struct Case {
        const char* border;
        int column;
        int part;
        CRect rect;
    };
    for (const Case& row : {Case{"column 0 bounds the whole row", 0, LVIR_BOUNDS, {0, 44, 150, 64}},
                            Case{"icon", 0, LVIR_ICON, {34, 44, 50, 64}},
                            Case{"label of column 0", 0, LVIR_LABEL, {50, 44, 100, 64}},
                            Case{"column 1 bounds its cell", 1, LVIR_BOUNDS, {100, 44, 150, 64}},
                            Case{"label of column 1", 1, LVIR_LABEL, {100, 44, 150, 64}}}) {
        CRect rect;
        EXPECT_TRUE(list.GetSubItemRect(1, row.column, row.part, &rect)) << row.border;
        EXPECT_EQ(rect, row.rect) << row.border;
    }
    CRect rect;
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
    struct Case {
        const char* border;
        int rows;
        int width; // of column 1; column 0 has 100
        CRect client;
    };
    for (const Case& row :
         {Case{"all fits exactly", 5, 100, {0, 0, 200, 124}}, Case{"one row more", 6, 50, {0, 0, 183, 124}},
          Case{"one pixel more", 4, 101, {0, 0, 200, 107}},
          Case{"the vertical bar covers the last column", 6, 100, {0, 0, 183, 107}},
          Case{"the horizontal bar covers the last row", 5, 101, {0, 0, 183, 107}}}) {
        MakeList(row.rows);
        list.SetColumnWidth(1, row.width);
        EXPECT_EQ(list.GetClientRect(), row.client) << row.border;
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
    display.TakeChanges(resized.m_hWnd);
    for (int row = 0; row < 6; ++row)
        resized.InsertItem(row, "");
    EXPECT_EQ(resized.widths, (Rows{200}));
    EXPECT_EQ(display.TakeChanges(resized.m_hWnd), 0u);
    resized.SetRedraw(true);
    EXPECT_EQ(resized.widths, (Rows{200, 183}));
    EXPECT_NE(display.TakeChanges(resized.m_hWnd) & static_cast<Aspects>(Aspect::Scroll), 0u);
}

TEST_F(ListGeometry, AutomaticWidthsFitTextsTitleAndTheRest) {
    MakeList(0);
    list.InsertItem(0, "eight ch");
    list.SetItemText(0, 1, "12");
    struct Case {
        const char* border;
        int column;
        int mode;
        int width;
    };
    for (const Case& row : {Case{"texts of column 0", 0, LVSCW_AUTOSIZE, 8 * 7 + 8},
                            Case{"texts alone, though the title is wider", 1, LVSCW_AUTOSIZE, 2 * 7 + 8},
                            Case{"the last column fills the rest", 1, LVSCW_AUTOSIZE_USEHEADER, 200 - 64},
                            Case{"no less than nothing", 1, -5, 0}}) {
        list.SetColumnWidth(row.column, row.mode);
        EXPECT_EQ(list.GetColumnWidth(row.column), row.width) << row.border;
    }
    list.SetExtendedStyle(LVS_EX_CHECKBOXES);
    list.SetColumnWidth(0, LVSCW_AUTOSIZE);
    EXPECT_EQ(list.GetColumnWidth(0), 18 + 8 * 7 + 8);
    list.SetItemText(0, 0, "");
    list.SetColumnWidth(0, LVSCW_AUTOSIZE_USEHEADER); // "Name" needs more than the check box
    EXPECT_EQ(list.GetColumnWidth(0), 4 * 7 + 8);
}

TEST_F(ListGeometry, NumbersFarOutsideAreHeldInRange) {
    constexpr int most = std::numeric_limits<int>::max();
    MakeList(3);
    list.SetColumnWidth(0, most);
    list.SetColumnWidth(1, most);
    list.Scroll({most, most});
    CRect rect;
    EXPECT_TRUE(list.GetSubItemRect(2, 1, LVIR_LABEL, &rect));
    EXPECT_LE(rect.right, list.GetClientRect().right);
    EXPECT_EQ(list.HitTest({most, most}), -1);
    EXPECT_EQ(list.GetNextItem(most, LVNI_SELECTED), -1);
    EXPECT_FALSE(list.DeleteItem(most));
    EXPECT_FALSE(list.EnsureVisible(most, false));
    list.RedrawItems(-most, most);
    display.PaintWindow(list.GetHeaderCtrl()->m_hWnd);
}

class ListScrolling : public ListTest {};

TEST_F(ListScrolling, EnsureVisibleScrollsAsLittleAsItTakes) {
    MakeList(20);
    list.MoveWindow({0, 0, 200, 134}); // five rows and a half
    struct Case {
        const char* border;
        int row;
        bool partialOk;
        int top;
    };
    for (const Case& step : {Case{"last whole row", 4, false, 0}, Case{"half a row is enough", 5, true, 0},
                             Case{"half a row is not enough", 5, false, 1}, Case{"far below", 19, false, 15},
                             Case{"above", 3, false, 3}}) {
        EXPECT_TRUE(list.EnsureVisible(step.row, step.partialOk)) << step.border;
        EXPECT_EQ(list.GetTopIndex(), step.top) << step.border;
    }
    EXPECT_FALSE(list.EnsureVisible(20, false));
    EXPECT_EQ(list.GetTopIndex(), 3);
}

TEST_F(ListScrolling, NoWayOfScrollingLeavesTheContent) {
    MakeList(12); // the last top row is 7
    const auto wheel = [this](int delta) {
        return [=, this] { input::Mouse(list.m_hWnd, WM_MOUSEWHEEL, 0, InRow(1), delta); };
    };
    const auto down = [this](int pixels) { return [=, this] { list.Scroll(CSize{0, pixels}); }; };
    const auto bar = [this](UINT command) { return [=, this] { list.SendMessageA(WM_VSCROLL, command); }; };
    const auto dragTo = [this](int row) { return [=, this] { input::Scrolled(list.m_hWnd, 0, row); }; };
    struct Case {
        const char* border;
        std::function<void()> scroll;
        int top;
    };
    for (const Case& step :
         {Case{"a notch is three rows", wheel(-120), 3}, Case{"part of a notch waits", wheel(-30), 3},
          Case{"until it makes a row", wheel(-30), 4}, Case{"beyond the end", wheel(-12000), 7},
          Case{"beyond the beginning", down(-100000), 0}, Case{"whole rows count", down(59), 2},
          Case{"the scroll bar", dragTo(6), 6}, Case{"the scroll bar of more rows", dragTo(1 << 30), 7},
          Case{"a page up", bar(SB_PAGEUP), 2}, Case{"to the bottom", bar(SB_BOTTOM), 7},
          Case{"fewer rows", [this] { list.DeleteRows(0, 4); }, 3},
          Case{"a higher window",
               [this] {
                   list.MoveWindow(CRect{0, 0, 200, 400});
               },
               0}}) {
        step.scroll();
        EXPECT_EQ(list.GetTopIndex(), step.top) << step.border;
        EXPECT_EQ(view::Scroll(list.m_hWnd).topRow, step.top) << step.border;
    }
}

TEST_F(ListScrolling, RowsThatAreNotOnScreenPaintNothing) {
    MakeList(20);
    display.PaintWindow(list.m_hWnd);
    list.RedrawItems(5, 19);
    list.SetItemText(12, 0, "unseen");
    EXPECT_FALSE(display.IsInvalid(list.m_hWnd));
    list.SetItemText(4, 0, "seen");
    EXPECT_TRUE(display.IsInvalid(list.m_hWnd));
}

} // namespace
} // namespace korvel
