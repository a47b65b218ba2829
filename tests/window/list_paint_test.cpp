#include "korvel/window/display/window_view.h"
#include "support/list_fixture.h"

#include <algorithm>
#include <numeric>

namespace korvel {
namespace {

class ListPaint : public ListTest {
protected:
    std::vector<CString> Texts(const CRect* clip = nullptr) {
        std::vector<CString> texts;
        for (const auto& call : display.PaintWindow(list.m_hWnd, clip))
            if (call.kind == PaintCall::Kind::Text)
                texts.push_back(call.text);
        return texts;
    }
    bool Paints(PaintCall::Kind kind, const CRect& rect, COLORREF color) {
        return std::ranges::any_of(
            display.PaintWindow(list.m_hWnd),
            [&](const PaintCall& call) {
                return call.kind == kind && call.rect == rect && call.color == color;
            });
    }
};

TEST_F(ListPaint, AsksOnlyForTheTextsOfRowsInTheClipBox) {
    MakeList(0);
    std::vector<LPARAM> asked;
    list.SetTextSource([&](LPARAM data, int) {
        asked.push_back(data);
        return std::to_string(data);
    });
    std::vector<LPARAM> data(1000);
    std::iota(data.begin(), data.end(), 0);
    InsertRows(0, data);
    list.EnsureVisible(504, false);
    EXPECT_TRUE(asked.empty());
    const CRect clip{0, RowTop(1), 100, RowTop(2) + 1}; // the first pixel of a row counts
    EXPECT_EQ(Texts(&clip), (std::vector<CString>{"501", "502"}));
    EXPECT_EQ(asked, (std::vector<LPARAM>{501, 502})) << "column 1 lies outside the clip box";
}

TEST_F(ListPaint, SelectionShowsByFocusAndStyle) {
    using enum PaintCall::Kind;
    MakeList(3);
    Choose(1);
    const CRect label{0, RowTop(1), 100, RowTop(2)};
    const CRect row{0, RowTop(1), 150, RowTop(2)};
    const COLORREF mark = GetSysColor(COLOR_HIGHLIGHT);
    EXPECT_FALSE(Paints(Fill, label, mark)); // without the focus the selection is hidden
    for (CWnd* next : {static_cast<CWnd*>(&list), static_cast<CWnd*>(&parent), static_cast<CWnd*>(&list)}) {
        display.PaintWindow(list.m_hWnd);
        next->SetFocus();
        EXPECT_TRUE(display.IsInvalid(list.m_hWnd));
    }
    EXPECT_TRUE(Paints(Fill, label, mark));
    list.SetExtendedStyle(LVS_EX_FULLROWSELECT);
    EXPECT_TRUE(Paints(Fill, row, mark));
    parent.SetFocus();
    list.ModifyStyle(0, LVS_SHOWSELALWAYS);
    EXPECT_TRUE(Paints(Fill, row, GetSysColor(COLOR_BTNFACE)));
    parent.EnableWindow(false);
    EXPECT_TRUE(Paints(Fill, row, GetSysColor(COLOR_BTNFACE))) << "only the window around it is disabled";
    parent.EnableWindow(true);
    list.EnableWindow(false);
    EXPECT_FALSE(Paints(Fill, row, GetSysColor(COLOR_BTNFACE)));
    EXPECT_TRUE(Paints(Text, {4, RowTop(1), 96, RowTop(2)}, GetSysColor(COLOR_GRAYTEXT)));
}

TEST_F(ListPaint, ColumnsTooNarrowPaintNoTextAndNoneNoMark) {
    MakeList(1);
    list.SetColumnWidth(0, 8);
    EXPECT_EQ(Texts(), std::vector<CString>{""}) << "column 1 alone";
    list.SetFocus();
    Choose(0);
    list.DeleteColumn(0);
    list.DeleteColumn(0);
    EXPECT_TRUE(Paints(PaintCall::Kind::Fill, {0, RowTop(0), 0, RowTop(1)}, GetSysColor(COLOR_HIGHLIGHT)));
}

// A display that counts what it is told of a list.
class CountingDisplay : public HeadlessDisplay {
public:
    void Invalidate(HWND window, const CRect& rect) override {
        ++paints;
        HeadlessDisplay::Invalidate(window, rect);
    }

    int paints = 0;
};

TEST_F(ListPaint, NewRowsAskForOnePaintUntilItComes) {
    CountingDisplay counting;
    SetDisplay(&counting);
    struct PaintsItself : CListCtrl {
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            return message == WM_PAINT ? 0 : CListCtrl::WindowProc(message, wParam, lParam);
        }
    } own;
    MakeList(20);
    own.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, {0, 130, 200, 254}, &parent, 106);
    for (int row = 0; row < 20; ++row)
        own.InsertItem(row, "");
    for (CListCtrl* shown : {&list, static_cast<CListCtrl*>(&own)}) {
        const HWND window = shown->m_hWnd;
        counting.PaintWindow(window);
        EXPECT_TRUE(counting.TakeChanges(window) & Aspect::Scroll) << "the bar came";
        counting.paints = 0;
        for (int row : {0, 0, 21})
            shown->InsertItem(row, "new");
        EXPECT_EQ(counting.paints, 1);
        EXPECT_EQ(counting.InvalidArea(window), (CRect{0, 24, 183, 124}));
        EXPECT_EQ(counting.TakeChanges(window), Aspects(Aspect::Rows));
        EXPECT_EQ(view::Scroll(window).rowCount, 23);
        counting.PaintWindow(window);
        shown->InsertItem(2, "below the top");
        EXPECT_EQ(counting.InvalidArea(window).top, 24 + 2 * 20);
        shown->InsertItem(0, "at the top");
        EXPECT_EQ(counting.InvalidArea(window).top, 24);
        shown->DeleteItem(0);
        shown->DeleteItem(0);
        EXPECT_TRUE(counting.TakeChanges(window) & Aspect::Scroll) << "there are as many as before";
        shown->MoveWindow({0, 0, 200, 300});
        counting.PaintWindow(window);
        shown->InsertItem(0, "");
        shown->MoveWindow({0, 0, 200, 400});
        shown->InsertItem(0, "in more room");
        EXPECT_EQ(counting.InvalidArea(window).bottom, 400);
    }
    SetDisplay(&display);
}

} // namespace
} // namespace korvel
