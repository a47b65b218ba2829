#include "korvel/editors/wnd_item.h"
#include "qt/users.h"
#include "support/make_value.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QDateTimeEdit>
#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>

namespace korvel::test {

namespace {

class OpenItem : public CWndItem {
public:
    using CWndItem::m_DateTime;
    using CWndItem::m_Edit;
};

// An item window and a text field on a desktop.
class ItemOnDesktop : public DesktopTest<> {
protected:
    ItemOnDesktop() {
        m_item.Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_BORDER, {10, 10, 210, 44}, &m_frame, 12);
        m_other.Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP, {10, 60, 210, 90}, &m_frame, 13);
    }
    void ClickItem() { m_user.Click(m_item.m_hWnd, {5, 15}); }
    void ClickOther() { m_user.Click(m_other.m_hWnd, {5, 15}); }

    CEdit m_other;
    OpenItem m_item;
};

TEST_F(ItemOnDesktop, ATextIsTypedInItsNativeField) {
    m_item.SetValue(MakeValue(DT_String, "old"));
    ClickItem();
    EXPECT_TRUE(WidgetOf<QLineEdit>(m_item.m_Edit).isVisible());
    EXPECT_EQ(WidgetOf<QLineEdit>(m_item.m_Edit).selectedText(), QStringLiteral("old"));
    m_user.Key('A', "a");
    m_user.Key('B', "b");
    ClickOther();
    EXPECT_EQ(m_item.GetValue().Text, "ab");
    EXPECT_FALSE(WidgetOf<QLineEdit>(m_item.m_Edit).isVisible());
    m_item.SetFocus();
    m_user.Key('X', "x");
    m_user.Key('Y', "y");
    EXPECT_EQ(WidgetOf<QLineEdit>(m_item.m_Edit).text(), QStringLiteral("xy")) << "typing begins the text";
    m_user.Key(VK_TAB, "\t");
    EXPECT_EQ(GetFocus(), m_other.m_hWnd);
    EXPECT_EQ(m_item.GetValue().Text, "xy");
}

TEST_F(ItemOnDesktop, ADateIsChosenInItsCalendar) {
    m_item.SetValue(MakeDate("GDT_VALID", 44000.25));
    auto& picker = WidgetOf<QDateTimeEdit>(m_item.m_DateTime);
    EXPECT_TRUE(picker.isVisible());
    EXPECT_EQ(picker.width(), m_item.GetClientRect().Width());
    m_item.SetFocus();
    m_user.Key(VK_F4, "");
    QCalendarWidget& calendar = *picker.calendarWidget();
    EXPECT_TRUE(QTest::qWaitFor([&] { return calendar.isVisible(); }));
    EXPECT_TRUE(picker.isVisible()) << "the calendar has not taken the focus";
    QTest::keyClick(calendar.focusWidget() ? calendar.focusWidget() : &calendar, Qt::Key_Right);
    QTest::keyClick(calendar.focusWidget() ? calendar.focusWidget() : &calendar, Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !calendar.isVisible(); }));
    EXPECT_EQ(m_item.GetValue(), MakeDate("GDT_VALID", 44001.25));
    EXPECT_TRUE(picker.isVisible()) << "it has the focus still";
    Activate();
    ClickOther();
    EXPECT_FALSE(picker.isVisible());
    EXPECT_EQ(m_item.GetValue(), MakeDate("GDT_VALID", 44001.25));
}

} // namespace
} // namespace korvel::test
