// Fields and buttons that paint themselves, for somebody who does not see them.

#include "korvel/editors/colored_button.h"
#include "korvel/editors/wnd_item.h"
#include "korvel/values/language.h"
#include "korvel/window/controls/static.h"
#include "qt/accessible_list.h"
#include "support/make_value.h"

#include <QLineEdit>
#include <gtest/gtest.h>

namespace korvel::test {
namespace {

class AccessibleFields : public DesktopTest<> {
protected:
    AccessibleFields() {
        SetLanguageForThisRun("English");
        label.CreateEx(0, "STATIC", "&Length:", WS_CHILD | WS_VISIBLE, {10, 10, 90, 34}, &m_frame, 11);
        item.Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_BORDER, {100, 10, 210, 44}, &m_frame, 12);
        QApplication::processEvents();
    }

    // Role, name, description and actions.
    std::string Of(const CWnd& window) const {
        QAccessibleInterface& field = blind.Of(window.m_hWnd);
        const std::string role = field.role() == QAccessible::ComboBox   ? "field"
                                 : field.role() == QAccessible::CheckBox ? "box"
                                 : field.role() == QAccessible::Button   ? "button"
                                                                         : "other";
        const QString texts = field.text(QAccessible::Name) + u'|' + field.text(QAccessible::Description) +
                              u'|' + field.actionInterface()->actionNames().join(u',');
        return role + " " + internal::FromQString(texts);
    }

    BlindUser blind{m_user};
    CWnd label;
    CWndItem item;
};

TEST_F(AccessibleFields, AValueIsReadAndEdited) {
    item.SetValue(MakeValue(DT_String, "long"));
    EXPECT_EQ(Of(item), "field long|Length:|Press,SetFocus");
    BlindUser::Do(&blind.Of(item.m_hWnd), "Press");
    auto* field = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_TRUE(field);
    EXPECT_EQ(field->accessibleName(), QStringLiteral("Length:"));
    m_user.Key('A', "a");
    item.End();
    EXPECT_EQ(Of(item), "field a|Length:|Press,SetFocus");
    item.EnableWindow(false);
    BlindUser::Do(&blind.Of(item.m_hWnd), "Press");
    EXPECT_EQ(Of(item), "field a|Length:|") << "nothing can be done";
    item.EnableWindow(true);
    item.SetValue({});
    EXPECT_EQ(Of(item), "field |Length:|SetFocus") << "nothing edits it";
    EXPECT_TRUE(blind.Of(item.m_hWnd).state().readOnly);
}

TEST_F(AccessibleFields, AFlagIsABoxWhoseChangesAreAnnounced) {
    item.SetValue(MakeValue(DT_Bool, false));
    EXPECT_EQ(Of(item), "box Length:||Toggle,SetFocus");
    item.SetFocus();
    Ear ear;
    item.Invalidate();
    EXPECT_EQ(ear.Take(), "") << "of its focus Qt has told";
    BlindUser::Do(&blind.Of(item.m_hWnd), "Toggle");
    EXPECT_TRUE(item.GetValue().Value.Bool);
    EXPECT_TRUE(blind.Of(item.m_hWnd).state().checked);
    EXPECT_EQ(ear.Take(), "state Length:");
    item.SetValue(MakeValue(DT_String, "new"));
    EXPECT_EQ(ear.Take(), "name new|description new|state new");
}

TEST_F(AccessibleFields, AColorIsOnAButton) {
    mfcSharedCtrls::CColoredButton button;
    button.Create("&Fill", WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_OWNERDRAW, {10, 60, 90, 84}, &m_frame, 13);
    EXPECT_EQ(Of(button), "button Fill||Press,SetFocus");
    EXPECT_EQ(blind.Of(m_frame.m_hWnd).role(), QAccessible::Window);
    BlindUser::Do(&blind.Of(button.m_hWnd), "Press");
    EXPECT_EQ(GetFocus(), button.m_hWnd);
}

} // namespace
} // namespace korvel::test
