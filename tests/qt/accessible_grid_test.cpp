// The attribute grid and its drop-down list for somebody who sees neither.

#include "korvel/grid/editable_grid.h"
#include "korvel/values/language.h"
#include "qt/accessible_list.h"
#include "support/fakes.h"

#include <QLineEdit>
#include <gtest/gtest.h>

namespace korvel::test {
namespace {

struct OpenGrid : CEditableGrid {
    using CEditableGrid::CEditableGrid;
    using CEditableGrid::m_ComboList;
};

class AccessibleGrid : public DesktopTest<> {
protected:
    AccessibleGrid() {
        SetLanguageForThisRun("English");
        entries.flags = ENF_Tree;
        point.With("height", Words(DT_String, "high"));
        root.With("name", Words(DT_String, "axis")).With("on", Flag(false)).With("point", Group(&point));
        root.With("list", entries.ValueOf(",1,"));
        grid.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SINGLESEL, {0, 0, 300, 220}, &m_frame, 1);
        grid.SetGridOption(EGridOption::KeyboardEditing, true);
        grid.Initialize(&root, "Name", "Value", 0);
        grid.SetFocus();
        QApplication::processEvents();
    }
    ~AccessibleGrid() override {
        grid.DestroyWindow();
        root.LetGo();
    }

    QAccessibleInterface* Cell(const std::string& name, int column) const {
        for (int row = 0; row < grid.GetItemCount(); ++row)
            if (grid.GetItemText(row, 0) == name)
                return blind.Cell(grid.m_hWnd, row, column);
        return nullptr;
    }

    BlindUser blind{m_user};
    TestEnumeration entries{std::vector<std::string>{"sand", "fills/gravel", "fills/clay"}};
    HostObject root{"root"};
    HostObject point{"point"};
    RecordingObserver observer;
    OpenGrid grid{&observer, nullptr};
};

TEST_F(AccessibleGrid, AGroupIsOpenedAndClosedByActions) {
    Ear ear;
    QAccessibleInterface* group = Cell("point", 0);
    EXPECT_TRUE(group->state().collapsed && group->state().expandable);
    BlindUser::Do(group, "Expand");
    EXPECT_EQ(ear.Take(), "focus point|selected point");
    EXPECT_TRUE(group->state().expanded);
    EXPECT_EQ(Cell("height", 0)->text(QAccessible::Description), QStringLiteral("high, level 2"));
    BlindUser::Do(group, "Collapse");
    EXPECT_EQ(ear.Take(), "description point|state point");
    EXPECT_EQ(Cell("height", 0), nullptr);
}

TEST_F(AccessibleGrid, AValueIsEditedInAFieldThatIsCalledLikeItsRow) {
    Ear ear;
    BlindUser::Do(Cell("name", 1), "Press");
    ear.Take();
    auto* field = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_TRUE(field);
    EXPECT_EQ(field->accessibleName(), QStringLiteral("name"));
    EXPECT_EQ(blind.Of(grid.m_hWnd).child(0)->object(), field);
    QTest::keyClicks(field, QStringLiteral("new"));
    m_user.Key(VK_RETURN, "\r");
    EXPECT_EQ(root.Get("name").Text, "new");
    EXPECT_EQ(ear.Take(), "focus axis|selected axis") << "until the host says otherwise";
    grid.OnChange(&root, "name", root.Get("name"));
    EXPECT_EQ(ear.Take(), "name new");
    BlindUser::Do(Cell("on", 1), "Toggle");
    EXPECT_TRUE(Cell("on", 1)->state().checked);
    EXPECT_TRUE(root.Get("on").Value.Bool);
}

TEST_F(AccessibleGrid, TheEntriesOfADroppedListAreAnnouncedAndChosen) {
    Ear ear;
    BlindUser::Do(Cell("list", 1), "Press");
    const HWND list = grid.m_ComboList.m_hWnd;
    ASSERT_TRUE(IsWindowVisible(list));
    EXPECT_EQ(ear.Take(), "focus sand|selected sand");
    EXPECT_EQ(BlindUser::Name(&blind.Of(list)), QStringLiteral("list"));
    EXPECT_FALSE(blind.Of(list).state().focusable);
    m_user.Key(VK_DOWN, "");
    EXPECT_EQ(ear.Take(), "focus fills|selected fills");
    BlindUser::Do(blind.Cell(list, 1, 0), "Expand");
    EXPECT_EQ(ear.Take(), "description fills|state fills");
    BlindUser::Do(blind.Cell(list, 3, 0), "Press");
    EXPECT_FALSE(IsWindowVisible(list));
    EXPECT_EQ(root.Get("list").Text, ",3,");
    EXPECT_EQ(ear.Take(), "focus sand|selected sand") << "the row again";
}

} // namespace
} // namespace korvel::test
