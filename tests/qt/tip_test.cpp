#include "korvel/qt/convert.h"
#include "korvel/window/controls/button.h"
#include "korvel/window/controls/edit.h"
#include "korvel/window/controls/tool_tip_ctrl.h"
#include "korvel/window/list/list_ctrl.h"
#include "qt/users.h"

#include <QHelpEvent>
#include <QToolTip>

namespace korvel::test {

namespace {

class Page : public CWnd {
public:
    CToolTipCtrl tip;
    bool PreTranslateMessage(MSG& message) override {
        tip.RelayEvent(&message);
        return CWnd::PreTranslateMessage(message);
    }
};

class Tips : public DesktopTest<Page> {
protected:
    ~Tips() override { QApplication::setPalette(m_palette); }

    const QPalette m_palette = QApplication::palette();
};

TEST_F(Tips, AToolTipIsAWindowThatTakesNothingAndFollowsTheTheme) {
    CEdit edit;
    CButton button;
    edit.Create(WS_CHILD | WS_VISIBLE, {0, 50, 100, 74}, &m_frame, 1);
    button.Create("Add", WS_CHILD | WS_VISIBLE, {0, 0, 100, 30}, &m_frame, 2);
    m_frame.tip.Create(&m_frame);
    m_frame.tip.AddTool(&button, "Adds an entry");
    m_frame.tip.SetDelayTime(TTDT_INITIAL, 1);
    edit.SetFocus();
    QTest::mouseMove(m_user.Widget(button.m_hWnd), {5, 5});
    ASSERT_TRUE(QTest::qWaitFor([&] { return m_frame.tip.IsWindowVisible(); }));
    QWidget* shown = m_user.Widget(m_frame.tip.m_hWnd);
    EXPECT_TRUE(shown->isVisible());
    EXPECT_EQ(shown->windowType(), Qt::ToolTip);
    EXPECT_EQ(shown->geometry(), internal::ToQRect(m_frame.tip.GetWindowRect()));
    EXPECT_EQ(QApplication::focusWidget(), m_user.Widget(edit.m_hWnd));
    EXPECT_TRUE(m_user.Widget(m_frame.m_hWnd)->isActiveWindow());
    for (const QColor ground : {QColor(255, 255, 220), QColor(40, 40, 40)}) {
        QPalette palette = m_palette;
        palette.setColor(QPalette::ToolTipBase, ground);
        QApplication::setPalette(palette);
        EXPECT_EQ(shown->grab().toImage().pixelColor(3, 3), ground);
    }
    QTest::mouseMove(m_user.Widget(edit.m_hWnd), {5, 5});
    EXPECT_FALSE(shown->isVisible());
}

TEST_F(Tips, ALabelThatIsCutOffIsShownWhole) {
    CListCtrl list;
    list.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, {0, 0, 300, 200}, &m_frame, 3);
    list.SetExtendedStyle(LVS_EX_LABELTIP);
    list.InsertColumn(0, "Name", 60);
    list.InsertItem(0, "longer than its <b>column</b>");
    list.InsertItem(1, "short");
    QWidget* widget = m_user.Widget(list.m_hWnd);
    for (const auto& [border, row, text] : Table<int, QString>{
             {"cut off", 0, "longer than its &lt;b&gt;column&lt;/b&gt;"}, {"it fits", 1, ""}}) {
        CRect cell;
        list.GetSubItemRect(row, 0, LVIR_LABEL, &cell);
        const QPoint point(cell.left + 5, cell.top + 5);
        QHelpEvent event(QEvent::ToolTip, point, widget->mapToGlobal(point));
        QApplication::sendEvent(widget, &event);
        EXPECT_EQ(QToolTip::isVisible(), !text.isEmpty()) << border;
        EXPECT_TRUE(QToolTip::text().contains(text)) << border;
        QToolTip::hideText();
        EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
    }
}

} // namespace

} // namespace korvel::test
