#include "korvel/editors/wnd_item.h"
#include "qt/users.h"
#include "support/make_value.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>

namespace korvel::test {

namespace {

using ItemOnDesktop = DesktopTest<>;

TEST_F(ItemOnDesktop, ATextIsTypedInItsNativeField) {
    struct : CWndItem {
        using CWndItem::m_Edit;
    } item;
    CEdit other;
    item.Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_BORDER, {10, 10, 210, 44}, &m_frame, 12);
    other.Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP, {10, 60, 210, 90}, &m_frame, 13);
    item.SetValue(MakeValue(DT_String, "old"));
    m_user.Click(item.m_hWnd, {5, 15});
    EXPECT_TRUE(WidgetOf<QLineEdit>(item.m_Edit).isVisible());
    EXPECT_EQ(WidgetOf<QLineEdit>(item.m_Edit).selectedText(), QStringLiteral("old"));
    m_user.Key('A', "a");
    m_user.Key('B', "b");
    m_user.Click(other.m_hWnd, {5, 15});
    EXPECT_EQ(item.GetValue().Text, "ab");
    EXPECT_FALSE(WidgetOf<QLineEdit>(item.m_Edit).isVisible());
    item.SetFocus();
    m_user.Key('X', "x");
    m_user.Key('Y', "y");
    EXPECT_EQ(WidgetOf<QLineEdit>(item.m_Edit).text(), QStringLiteral("xy")) << "typing begins the text";
    m_user.Key(VK_TAB, "\t");
    EXPECT_EQ(GetFocus(), other.m_hWnd);
    EXPECT_EQ(item.GetValue().Text, "xy");
    item.SetFocus();
    QInputMethodQueryEvent query(Qt::ImEnabled);
    QApplication::sendEvent(QApplication::focusWidget(), &query);
    EXPECT_TRUE(query.value(Qt::ImEnabled).toBool());
    QInputMethodEvent composed;
    composed.setCommitString(QStringLiteral("\u0141\u00f3"));
    QApplication::sendEvent(QApplication::focusWidget(), &composed);
    EXPECT_EQ(WidgetOf<QLineEdit>(item.m_Edit).text(), composed.commitString()) << "what is composed, too";
}

} // namespace
} // namespace korvel::test
