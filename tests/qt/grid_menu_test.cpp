#include "korvel/qt/convert.h"
#include "korvel/qt/embed.h"
#include "korvel/values/language.h"
#include "qt/users.h"
#include "support/fakes.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>

namespace korvel::test {

namespace {

QMenu* OpenMenu() {
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

QAction* ActionOf(const QMenu& menu, const QString& text) {
    for (QAction* action : menu.actions())
        if (action->text() == text)
            return action;
    return nullptr;
}

// A grid of a host's window, with its context menu.
class GridMenuOnDesktop : public testing::Test {
protected:
    GridMenuOnDesktop() {
        SetLanguageForThisRun("English");
        root.With("x", Number(DT_Double, 1)).With("y", Number(DT_Double, 2));
        root.memberFlags = MF_Delete | MF_WriteProtect | MF_Commands;
        root.memberExtraCommands = {{"&Further\tF7", 1}, {std::string(1'000'000, 'x'), 2}};
        root.calls = &calls;
        grid.CreateEx(0, "SysListView32", "", LVS_REPORT | WS_TABSTOP, {0, 0, 300, 220}, nullptr, 1);
        grid.Initialize(&root, "Name", "Value", 0);
        auto* layout = new QVBoxLayout(&host);
        layout->addWidget(qt::Embed(grid.m_hWnd));
        host.resize(300, 320);
        host.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&host));
    }

    // Once the menu is open.
    void Then(std::function<void(QMenu&)> step) {
        QTimer::singleShot(
            5, &host, [=, this] { OpenMenu() ? step(*OpenMenu()) : Then(step); });
    }
    void RightClick(int row) {
        const CRect cell = grid.GetSubItemRect(row, 0);
        QTest::mouseClick(user.Widget(grid.m_hWnd), Qt::RightButton, Qt::NoModifier,
                          {cell.left + 40, cell.top + 5});
        QApplication::processEvents();
    }

    QtUser user;
    QWidget host;
    std::string calls;
    HostObject root{"root"};
    CEditableGrid grid{nullptr, nullptr};
};

} // namespace

TEST_F(GridMenuOnDesktop, AnEntryIsChosenByItsKeyAlsoInAPopup) {
    QString shown;
    int width = 0;
    Then([&](QMenu& menu) {
        for (const QAction* action : menu.actions())
            shown += action->text() + (action->isChecked() ? "*;" : ";");
        calls.clear();
        menu.setActiveAction(ActionOf(menu, "Extras"));
        width = OpenMenu()->width();
        QTest::keyClick(OpenMenu(), Qt::Key_F);
    });
    root.SetMemberEditable("y", false);
    RightClick(1);
    EXPECT_EQ(shown.toStdString(), "Delete;;Write protected*;Extras;;Formats;");
    EXPECT_EQ(calls, "flags y commands of y extras of y command y 1 ");
    EXPECT_LT(width, host.screen()->size().width() * 3);
}

TEST_F(GridMenuOnDesktop, TheMenuClosesWithItsGrid) {
    bool isOpen = false;
    Then([&](QMenu&) {
        isOpen = true;
        calls.clear();
        grid.DestroyWindow();
    });
    RightClick(0);
    EXPECT_TRUE(isOpen);
    EXPECT_EQ(OpenMenu(), nullptr);
    EXPECT_EQ(calls, "");
}

TEST_F(GridMenuOnDesktop, TheMenuKeyOpensItAtTheSelectedRow) {
    grid.SetFocus();
    grid.SetItemState(1, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    CPoint corner;
    Then([&](QMenu& menu) {
        corner = internal::FromQPoint(menu.pos());
        calls.clear();
        menu.setActiveAction(ActionOf(menu, "Delete"));
        QTest::keyClick(&menu, Qt::Key_Return);
    });
    QWidget* widget = user.Widget(grid.m_hWnd);
    QContextMenuEvent asked(QContextMenuEvent::Keyboard, {5, 5}, widget->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(widget, &asked);
    EXPECT_TRUE(QTest::qWaitFor([this] { return calls.find("remove y") != std::string::npos; }));
    const CRect label = grid.GetSubItemRect(1, 0);
    EXPECT_EQ(corner.y, ClientToScreen(grid.m_hWnd, {0, label.bottom - 1}).y);
    EXPECT_EQ(calls, "flags y removing? y get y remove y ");
}

} // namespace korvel::test
