#include "korvel/window/core/scroll_bar.h"
#include "qt/users.h"

#include <QScrollBar>
#include <gmock/gmock.h>

namespace korvel::test {

namespace {

class ScrolledWindow : public testing::Test {
protected:
    ScrolledWindow() {
        m_page.Create(WS_VISIBLE | WS_POPUP, nullptr, 0, {50, 50, 250, 200});
        SetScrollRange(m_page.m_hWnd, SB_VERT, 0, 90);
        m_page.on[WM_VSCROLL] = [this] {
            const WPARAM wParam = CWnd::GetCurrentMessage().wParam;
            m_codes.push_back(LOWORD(wParam));
            if (LOWORD(wParam) == SB_THUMBTRACK && m_follows)
                SetScrollPos(m_page.m_hWnd, SB_VERT, static_cast<int>(HIWORD(wParam)));
        };
    }
    QScrollBar* Bar() const {
        const auto bars = m_user.Widget(m_page.m_hWnd)->findChildren<QScrollBar*>();
        return bars.size() == 1 ? bars[0] : nullptr;
    }

    QtUser m_user;
    Log m_log;
    RecordedWindow m_page{"page", m_log};
    std::vector<UINT> m_codes;
    bool m_follows = true;
};

TEST_F(ScrolledWindow, HasABarBesideItsClientArea) {
    QScrollBar* bar = Bar();
    ASSERT_TRUE(bar);
    const CRect client = GetClientRect(m_page.m_hWnd);
    EXPECT_TRUE(bar->isVisible());
    EXPECT_EQ(bar->geometry(), QRect(client.right, 0, 200 - client.right, 150));
    EXPECT_EQ(bar->maximum(), 90);
    SetScrollPos(m_page.m_hWnd, SB_VERT, 33);
    EXPECT_EQ(bar->value(), 33);
    EXPECT_THAT(m_codes, testing::IsEmpty()) << "what the program sets is no news";

    CWnd child;
    child.CreateEx(0, "KorvelFrame", "", WS_CHILD | WS_VISIBLE, {0, 0, 500, 500}, &m_page, 1);
    EXPECT_EQ(m_user.Widget(m_page.m_hWnd)->childAt(bar->geometry().center()), bar)
        << "a child that reaches beyond the client area lies below it";
    m_page.MoveWindow({50, 50, 350, 250});
    EXPECT_EQ(bar->geometry().bottomRight(), QPoint(299, 199));
    SetScrollRange(m_page.m_hWnd, SB_VERT, 0, 0);
    EXPECT_FALSE(bar->isVisible());
}

TEST_F(ScrolledWindow, SaysWhatTheUserDoesWithTheBar) {
    QScrollBar* bar = Bar();
    ASSERT_TRUE(bar);
    const Table<QAbstractSlider::SliderAction, UINT> rows = {
        {"arrow down", QAbstractSlider::SliderSingleStepAdd, SB_LINEDOWN},
        {"arrow up", QAbstractSlider::SliderSingleStepSub, SB_LINEUP},
        {"below the thumb", QAbstractSlider::SliderPageStepAdd, SB_PAGEDOWN},
        {"above the thumb", QAbstractSlider::SliderPageStepSub, SB_PAGEUP},
        {"to the top", QAbstractSlider::SliderToMinimum, SB_TOP},
        {"to the bottom", QAbstractSlider::SliderToMaximum, SB_BOTTOM},
    };
    for (const auto& [name, action, code] : rows) {
        SCOPED_TRACE(name);
        m_codes.clear();
        bar->triggerAction(action);
        EXPECT_THAT(m_codes, testing::ElementsAre(code));
        EXPECT_EQ(bar->value(), 0) << "the window did not move it";
    }
}

TEST_F(ScrolledWindow, FollowsTheWindowWhileTheUserDrags) {
    QScrollBar* bar = Bar();
    ASSERT_TRUE(bar);
    bar->setSliderDown(true);
    bar->setSliderPosition(40);
    EXPECT_EQ(GetScrollPos(m_page.m_hWnd, SB_VERT), 40);
    m_follows = false;
    bar->setSliderPosition(70);
    EXPECT_EQ(bar->value(), 40);
    bar->setSliderDown(false);
    EXPECT_THAT(m_codes, testing::ElementsAre(SB_THUMBTRACK, SB_THUMBTRACK, SB_THUMBPOSITION, SB_ENDSCROLL));
}

TEST_F(ScrolledWindow, MayEndWhileItsBarIsUsed) {
    QScrollBar* bar = Bar();
    ASSERT_TRUE(bar);
    m_page.on[WM_VSCROLL] = [this] { m_page.DestroyWindow(); };
    bar->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_FALSE(m_page.m_hWnd);
}

} // namespace
} // namespace korvel::test
