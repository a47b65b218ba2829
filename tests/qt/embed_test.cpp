#include "korvel/platform/error.h"
#include "korvel/qt/embed.h"
#include "korvel/window/controls/edit.h"
#include "korvel/window/display/window_view.h"
#include "qt/users.h"

#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPointer>
#include <QVBoxLayout>
#include <gmock/gmock.h>
#include <memory>

namespace korvel::test {

namespace {

// A host's window with a field of its own above an embedded frame that holds an edit.
class Embedding : public testing::Test {
protected:
    Embedding() {
        m_pane.CreateEx(0, "KorvelFrame", "", 0, {0, 0, 220, 130}, nullptr, 0);
        m_edit.CreateEx(0, "EDIT", "", WS_CHILD | WS_VISIBLE | WS_TABSTOP, {0, 0, 100, 24}, &m_pane, 1);
        m_host = new QWidget;
        m_hostField = new QLineEdit;
        auto* layout = new QVBoxLayout(m_host);
        layout->addWidget(m_hostField);
        m_embedded = qt::Embed(m_pane.m_hWnd);
        layout->addWidget(m_embedded);
        m_host->resize(300, 250);
        m_host->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(m_host));
        m_site.SubclassWindow(GetParent(m_pane.m_hWnd));
        m_log.clear();
    }
    ~Embedding() override { delete m_host; }

    int CountOf(const char* line) const { return static_cast<int>(std::ranges::count(m_log, line)); }

    QtUser m_user;
    Log m_log;
    RecordedWindow m_pane{"pane", m_log};
    RecordedWindow m_edit{"edit", m_log};
    RecordedWindow m_site{"site", m_log};
    QPointer<QWidget> m_host;
    QLineEdit* m_hostField = nullptr;
    QWidget* m_embedded = nullptr;
};

TEST_F(Embedding, FollowsTheLayoutOfTheHost) {
    EXPECT_EQ(m_embedded->sizeHint(), QSize(220, 130));
    m_host->resize(500, 400);
    QApplication::processEvents();
    EXPECT_EQ(GetClientRect(m_pane.m_hWnd), (CRect{0, 0, m_embedded->width(), m_embedded->height()}));
    EXPECT_EQ(m_user.Widget(m_pane.m_hWnd)->size(), m_embedded->size());
    const QPoint corner = m_embedded->mapToGlobal(QPoint(0, 0));
    EXPECT_EQ(ClientToScreen(m_edit.m_hWnd, {0, 0}), (CPoint{corner.x(), corner.y()}));
    EXPECT_TRUE(IsWindowVisible(m_edit.m_hWnd));
}

TEST_F(Embedding, TheSiteHearsForTheWindowOfTheHost) {
    m_host->move(m_host->pos() + QPoint(40, 30));
    QApplication::processEvents();
    EXPECT_GE(CountOf("site move"), 1);
    m_log.clear();
    m_embedded->move(m_embedded->pos() + QPoint(3, 3));
    EXPECT_EQ(CountOf("site move"), 1) << "a layout moves it as well";
    QTest::mouseClick(new QLabel(QStringLiteral("label"), m_host), Qt::LeftButton);
    EXPECT_EQ(CountOf("site press outside"), 1) << "also when a parent hears it again";
    m_user.Click(m_edit.m_hWnd, {5, 5});
    EXPECT_EQ(CountOf("site press outside"), 1) << "a press inside is the window's own";
}

TEST_F(Embedding, TheFocusGoesInAndOutWithTheHostsOwn) {
    m_user.Click(m_edit.m_hWnd, {5, 5});
    EXPECT_EQ(GetFocus(), m_edit.m_hWnd);
    m_hostField->setFocus();
    EXPECT_EQ(GetFocus(), nullptr);
    EXPECT_EQ(CountOf("edit no focus"), 1);
    QTest::keyClick(m_hostField, Qt::Key_Tab);
    EXPECT_EQ(GetFocus(), m_pane.m_hWnd);
    SetFocus(m_edit.m_hWnd);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(QApplication::focusWidget(), m_hostField) << "the way back does not end at the frame";
    SetFocus(m_edit.m_hWnd);
    m_hostField->hide();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    m_user.Key('A', "a");
    EXPECT_EQ(m_edit.GetWindowTextA(), "a") << "where nothing else takes the focus, it stays";
}

TEST_F(Embedding, AMenuOfTheHostTakesNoFocus) {
    auto* bar = new QMenuBar(m_host);
    bar->addMenu(QStringLiteral("File"))->addAction(QStringLiteral("Open"));
    bar->show();
    m_user.Click(m_edit.m_hWnd, {5, 5});
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Alt);
    EXPECT_EQ(QApplication::focusWidget(), bar);
    EXPECT_EQ(GetFocus(), m_edit.m_hWnd);
    QTest::keyClick(bar, Qt::Key_Escape);
    EXPECT_EQ(QApplication::focusWidget(), m_user.Widget(m_edit.m_hWnd));
    EXPECT_EQ(CountOf("edit no focus"), 0);
}

TEST_F(Embedding, AnEditThatGoesWhileTheHostIsInactiveLeavesTheFocusToItsParent) {
    m_edit.on[WM_KILLFOCUS] = [this] { m_edit.ShowWindow(SW_HIDE); };
    SetFocus(m_edit.m_hWnd);
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_EQ(GetFocus(), nullptr);
    EXPECT_FALSE(IsWindowVisible(m_edit.m_hWnd));
    m_host->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(m_host));
    EXPECT_EQ(GetFocus(), m_pane.m_hWnd);
}

TEST_F(Embedding, TheWindowEndsBeforeItsWidgets) {
    QPointer<QWidget> widget = m_user.Widget(m_edit.m_hWnd);
    bool alive = false;
    m_edit.on[WM_DESTROY] = [&] { alive = widget && IsWindow(m_pane.m_hWnd); };
    SetFocus(m_edit.m_hWnd);
    delete m_host;
    EXPECT_TRUE(alive);
    EXPECT_EQ(m_pane.m_hWnd, nullptr);
    EXPECT_EQ(CountOf("edit no focus"), 1) << "an open edit ends as it does everywhere";
}

TEST_F(Embedding, TheHostMayDieInsideAHandler) {
    m_edit.on[WM_CHAR] = [this] { delete m_host; };
    SetFocus(m_edit.m_hWnd);
    m_user.Key('A', "a");
    EXPECT_EQ(m_edit.m_hWnd, nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

TEST_F(Embedding, AWindowThatEndsBeforeLeavesAnEmptyWidget) {
    m_pane.DestroyWindow();
    m_host->resize(320, 260);
    QApplication::processEvents();
    EXPECT_TRUE(IsWindow(m_site.m_hWnd));
}

TEST(Embed, RefusesWhatIsNoTopLevelWindow) {
    {
        const QtUser user;
        CWnd frame;
        frame.CreateEx(0, "KorvelFrame", "", 0, {0, 0, 100, 100}, nullptr, 0);
        CEdit edit;
        edit.Create(WS_CHILD, {0, 0, 50, 20}, &frame, 1);
        EXPECT_THROW(qt::Embed(edit.m_hWnd), Error);
        EXPECT_THROW(qt::Embed(nullptr), Error);
    }
    const HeadlessUser user;
    EXPECT_THROW(qt::Embed(nullptr), Error);
}

} // namespace

} // namespace korvel::test
