#include "korvel/window/display/window_view.h"
#include "support/list_fixture.h"

namespace korvel {
namespace {

// A list that hears its header, as the grid does.
class TrackedList : public CListCtrl {
public:
    std::vector<std::string> notices; // "name column width"
    bool refusesTracking = false;

protected:
    bool OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override {
        const auto& notice = *reinterpret_cast<const NMHEADER*>(lParam);
        for (const auto& [code, name] : {std::pair(HDN_BEGINTRACK, "begin "), std::pair(HDN_ENDTRACK, "end "),
                                         std::pair(HDN_ITEMCHANGED, "changed ")})
            if (notice.hdr.code == code)
                notices.push_back(name + std::to_string(notice.iItem) + " " + std::to_string(notice.cxy));
        *result = refusesTracking;
        return notice.hdr.code == HDN_BEGINTRACK || CListCtrl::OnNotify(wParam, lParam, result);
    }
};

class HeaderTest : public ListTest {
protected:
    void SetUp() override {
        ListTest::SetUp();
        tracked.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, {0, 0, 200, 124}, &parent, 105);
        tracked.InsertColumn(0, "Name", 100);
        tracked.InsertColumn(1, "Value", 50);
        tracked.InsertItem(0, "eight ch");
        header = tracked.GetHeaderCtrl()->m_hWnd;
    }

    void Mouse(UINT message, int x) {
        input::Mouse(header, message, message == WM_LBUTTONUP ? 0 : MK_LBUTTON, {x, 10});
    }

    Notices Take() { return std::exchange(tracked.notices, {}); }

    TrackedList tracked;
    HWND header = nullptr;
};

TEST_F(HeaderTest, ADividerIsDraggedWithTheMouse) {
    Mouse(WM_LBUTTONDOWN, 102);
    for (const int x : {112, 112, -500}) // a step, none and one far out
        Mouse(WM_MOUSEMOVE, x);
    Mouse(WM_LBUTTONUP, -500);
    Mouse(WM_MOUSEMOVE, 60);
    EXPECT_EQ(Take(), (Notices{"begin 0 100", "changed 0 110", "changed 0 0", "end 0 0"}));
    Mouse(WM_LBUTTONDOWN, 1); // the hidden column is drawn open again
    Mouse(WM_MOUSEMOVE, 31);
    ReleaseCapture(); // taken away: the drag ends there
    Mouse(WM_MOUSEMOVE, 60);
    EXPECT_EQ(Take(), (Notices{"begin 0 0", "changed 0 30", "end 0 30"}));
    Mouse(WM_LBUTTONDBLCLK, 29); // fits the column to its content
    EXPECT_EQ(Take(), (Notices{"changed 0 64", "end 0 64"}));
}

TEST_F(HeaderTest, AClickOnATitleTellsItsColumnAndDividersChangeTheCursor) {
    int clicked = -1;
    parent.on[LVN_COLUMNCLICK] = [&](const NMLISTVIEW& notice) { return clicked = notice.iSubItem, 0; };
    for (const auto& [border, release, told] :
         Table<int, int>{{"released over another one", 60, -1}, {"over the same", 125, 1}}) {
        Mouse(WM_LBUTTONDOWN, 120);
        Mouse(WM_LBUTTONUP, release);
        EXPECT_EQ(clicked, told) << border;
    }
    for (const auto& [x, cursor] : {std::pair(95, IDC_ARROW), std::pair(96, IDC_SIZEWE),
                                    std::pair(104, IDC_SIZEWE), std::pair(105, IDC_ARROW)}) {
        input::Mouse(header, WM_MOUSEMOVE, 0, {x, 10});
        EXPECT_EQ(display.CursorShown(), cursor) << x;
    }
}

TEST_F(HeaderTest, ScrollsWithTheListAndHidesByItsStyle) {
    EXPECT_EQ(view::Rectangle(header), (CRect{0, 0, 200, 24}));
    tracked.SetColumnWidth(1, 300);
    tracked.Scroll({70, 0});
    EXPECT_EQ(view::Rectangle(header), (CRect{-70, 0, 330, 24}));
    tracked.ModifyStyle(0, LVS_NOCOLUMNHEADER);
    EXPECT_FALSE(IsWindowVisible(header));
    CRect row;
    tracked.GetItemRect(0, &row);
    EXPECT_EQ(row.top, 0);
}

TEST_F(HeaderTest, PaintsItsTitlesOnItsGround) {
    Notices titles;
    bool hasGround = false;
    for (const PaintCall& call : display.PaintWindow(header)) {
        if (call.kind == PaintCall::Kind::Text)
            titles.push_back(call.text);
        hasGround |= call.kind == PaintCall::Kind::Fill && call.rect == CRect(0, 0, 200, 24);
    }
    EXPECT_EQ(titles, (Notices{"Name", "Value"}));
    EXPECT_TRUE(hasGround);
}

TEST_F(HeaderTest, AHostMayAttachItsOwnObject) {
    CHeaderCtrl own;
    CListCtrl other;
    other.Create(WS_CHILD | LVS_REPORT, {0, 0, 10, 10}, &parent, 1);
    ASSERT_TRUE(own.SubclassWindow(GetFirstChild(other.m_hWnd)));
    EXPECT_EQ(other.GetHeaderCtrl(), &own);
    other.InsertColumn(0, "", 10);
    EXPECT_EQ(own.GetItemCount(), 1);
}

} // namespace
} // namespace korvel
