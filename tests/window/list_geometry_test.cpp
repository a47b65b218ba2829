#include "korvel/window/display/window_view.h"
#include "support/list_fixture.h"

#include <limits>

namespace korvel {
namespace {

class ListGeometry : public ListTest {};

TEST_F(ListGeometry, EachPointOfACellBelongsToItsRow) {
    MakeList(3);
    static const CImageList images{16, 16};
    list.SetImageList(&images);
    list.SetExtendedStyle(LVS_EX_CHECKBOXES);
    list.SetItemIndent(1,
                       1); // column 0 reads: 16 of indent, 18 for the check box, 16 for the icon, the label
    CRect rect;
    LVHITTESTINFO info;
    for (const auto& [border, column, part, expected, hit] : Table<int, int, CRect, UINT>{
             {"icon", 0, LVIR_ICON, {34, 44, 50, 64}, LVHT_ONITEMICON},
             {"label of column 0", 0, LVIR_LABEL, {50, 44, 100, 64}, LVHT_ONITEMLABEL},
             {"column 1 is all label", 1, LVIR_LABEL, {100, 44, 150, 64}, LVHT_ONITEMLABEL},
             {"column 1 bounds its cell", 1, LVIR_BOUNDS, {100, 44, 150, 64}, LVHT_ONITEMLABEL}}) {
        EXPECT_TRUE(list.GetSubItemRect(1, column, part, &rect)) << border;
        EXPECT_EQ(rect, expected) << border;
        for (const CPoint corner : {CPoint{rect.left, rect.top}, CPoint{rect.right - 1, rect.bottom - 1}}) {
            info.pt = corner;
            EXPECT_EQ(list.SubItemHitTest(&info), 1) << border;
            EXPECT_EQ(info.iSubItem, column) << border;
            EXPECT_EQ(info.flags, hit) << border;
        }
    }
    for (const auto& [border, point, row, hit] :
         Table<CPoint, int, UINT>{{"in front of an indented row", {15, 44}, 1, LVHT_ONITEMLABEL},
                                  {"its check box", {16, 44}, 1, LVHT_ONITEMSTATEICON},
                                  {"last pixel of the check box", {33, 44}, 1, LVHT_ONITEMSTATEICON},
                                  {"the header is no row", {30, 23}, -1, LVHT_NOWHERE},
                                  {"right of the last column", {150, 44}, -1, LVHT_NOWHERE}}) {
        info.pt = point;
        EXPECT_EQ(list.SubItemHitTest(&info), row) << border;
        EXPECT_EQ(info.flags, hit) << border;
    }
    EXPECT_TRUE(list.GetItemRect(1, &rect));
    EXPECT_EQ(rect, (CRect{0, 44, 150, 64})) << "column 0 bounds the whole row";
    EXPECT_FALSE(list.GetSubItemRect(1, 2, LVIR_BOUNDS, &rect));
    EXPECT_FALSE(list.GetItemRect(3, &rect));
    list.SetColumnWidth(1, 400);
    info.pt = {200, 44};
    EXPECT_EQ(list.SubItemHitTest(&info), -1) << "beyond the window, though within a column";
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
    resized.InsertItem(6, "");
    EXPECT_TRUE(display.TakeChanges(resized.m_hWnd) & Aspect::Rows);
    resized.DeleteItem(6);
    EXPECT_TRUE(display.TakeChanges(resized.m_hWnd) & Aspect::Scroll);
    resized.DeleteAllItems();
    for (int row = 0; row < 6; ++row)
        resized.InsertItem(row, ""); // the last one brings the bar back
    EXPECT_EQ(resized.widths, (Rows{200, 183, 200, 183}));
}

TEST_F(ListGeometry, AutomaticWidthsFitTextsTitleAndTheRest) {
    MakeList(1);
    list.SetItemText(0, 1, "12");
    const auto label = [this](const char* text, UINT style) {
        return [=, this] { list.SetItemText(0, 0, text), list.SetExtendedStyle(style); };
    };
    for (const auto& [border, act, column, mode, width] : Table<std::function<void()>, int, int, int>{
             {"texts of column 0", label("eight ch", 0), 0, LVSCW_AUTOSIZE, 8 * 7 + 8},
             {"texts alone, though the title is wider", [] {}, 1, LVSCW_AUTOSIZE, 2 * 7 + 8},
             {"the last column fills the rest", [] {}, 1, LVSCW_AUTOSIZE_USEHEADER, 200 - 64},
             {"no less than nothing", [] {}, 1, -5, 0},
             {"with check boxes", label("eight ch", LVS_EX_CHECKBOXES), 0, LVSCW_AUTOSIZE, 18 + 8 * 7 + 8},
             {"a title", label("", LVS_EX_CHECKBOXES), 0, LVSCW_AUTOSIZE_USEHEADER, 4 * 7 + 8}}) {
        act();
        list.SetColumnWidth(column, mode);
        EXPECT_EQ(list.GetColumnWidth(column), width) << border;
    }
    list.InsertColumn(1, "", -1);
    EXPECT_EQ(list.GetColumnWidth(1), 10) << "without a width";
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

TEST_F(ListGeometry, TheHookHearsThatCellsHaveMoved) {
    MakeList(6);
    static const CImageList high{16, 30};
    int top = 0;
    list.SetCellsMovedHook([&] {
        CRect cell;
        top = list.GetItemRect(3, &cell) ? cell.top : -1;
    });
    for (const auto& [border, act, expected] : Table<std::function<void()>, int>{
             {"scrolled", [this] { list.EnsureVisible(5, false); }, RowTop(2)},
             {"scrolled back by a removal", [this] { list.DeleteItem(0); }, RowTop(3)},
             {"another height of rows", [this] { list.SetImageList(&high); }, 24 + 3 * 32}}) {
        act();
        EXPECT_EQ(top, expected) << border;
    }
}

TEST_F(ListGeometry, EnsureVisibleScrollsAsLittleAsItTakes) {
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
    EXPECT_FALSE(list.EnsureVisible(-1, false));
    display.PaintWindow(list.m_hWnd);
    list.RedrawItems(9, 19);
    list.SetItemText(2, 0, "unseen");
    EXPECT_FALSE(display.IsInvalid(list.m_hWnd)) << "rows that are not on screen paint nothing";
    list.SetItemText(8, 0, "seen");
    EXPECT_TRUE(display.IsInvalid(list.m_hWnd));
}

TEST_F(ListGeometry, NoWayOfScrollingLeavesTheContent) {
    MakeList(12); // the last top row is 7
    const auto wheel = [this](int delta) {
        return [=, this] { input::Mouse(list.m_hWnd, WM_MOUSEWHEEL, 0, InRow(1), delta); };
    };
    const auto down = [this](int pixels) { return [=, this] { list.Scroll(CSize{0, pixels}); }; };
    const auto bar = [this](UINT command) { return [=, this] { list.SendMessageA(WM_VSCROLL, command); }; };
    const auto dragTo = [this](int row) { return [=, this] { input::Scrolled(list.m_hWnd, 0, row); }; };
    const CRect higher{0, 0, 200, 400};
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
                                           {"a higher window", [&] { list.MoveWindow(higher); }, 0}}) {
        scroll();
        EXPECT_EQ(list.GetTopIndex(), top) << border;
        EXPECT_EQ(view::Scroll(list.m_hWnd).topRow, top) << border;
    }
    list.SetColumnWidth(1, 300);
    Key(VK_RIGHT);
    EXPECT_GT(view::Scroll(list.m_hWnd).x, 0);
    Key(VK_LEFT);
    EXPECT_EQ(view::Scroll(list.m_hWnd).x, 0);
}

} // namespace
} // namespace korvel
