#include "korvel/grid/editable_grid.h"
#include "korvel/qt/convert.h"
#include "korvel/qt/embed.h"
#include "korvel/values/language.h"
#include "qt/users.h"
#include "support/fakes.h"

#include <QClipboard>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <gtest/gtest.h>

namespace korvel::test {

namespace {

struct GridOnDesktop : CEditableGrid {
    using CEditableGrid::CEditableGrid;
    using CEditableGrid::m_ComboList;
    using CEditableGrid::m_Edit;
};

// A host's window with a field and a button of its own above an embedded grid.
class CellEditOnDesktop : public testing::Test {
protected:
    CellEditOnDesktop() {
        SetLanguageForThisRun("English");
        root.With("v", Number(DT_Double, 12.5)).With("list", entries.ValueOf(",1,"));
        root.With("name", Words(DT_String, "axis")).With("share", Number(DT_RangeDouble, 50));
        for (int row = 0; row < 30; ++row)
            root.With("more " + std::to_string(row), Number(DT_Double, row));
        grid.CreateEx(0, "SysListView32", "", LVS_REPORT | LVS_SINGLESEL | WS_TABSTOP, {0, 0, 300, 220},
                      nullptr, 1);
        grid.Initialize(&root, "Name", "Value", 0);
        auto* layout = new QVBoxLayout(&host);
        layout->addWidget(&hostField);
        layout->addWidget(&hostButton);
        layout->addWidget(qt::Embed(grid.m_hWnd));
        host.resize(300, 320);
        host.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&host));
    }
    ~CellEditOnDesktop() override {
        grid.DestroyWindow();
        root.LetGo();
    }

    void ClickCell(int row) {
        const CRect cell = grid.GetSubItemRect(row, 1);
        user.Click(grid.m_hWnd, {cell.left + 4, cell.top + 5});
    }
    void Type(const char* text) {
        for (const char* key = text; *key; ++key)
            QTest::keyClick(QApplication::focusWidget(), *key);
    }
    // Answers every box of this test.
    void AnswerBoxes() {
        timer.callOnTimeout([this] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                ++boxes;
                box->button(QMessageBox::Ok)->click();
            }
        });
        timer.start(5);
    }
    double Value() { return root.Get("v").Value.Double; }
    QLineEdit& Field() { return *qobject_cast<QLineEdit*>(user.Widget(grid.m_Edit.m_hWnd)); }

    QtUser user;
    TestEnumeration entries{
        std::vector<std::string>{"a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k", "l", "m"}};
    HostObject root{"root"};
    RecordingObserver observer;
    GridOnDesktop grid{&observer, nullptr};
    QWidget host;
    QLineEdit& hostField = *new QLineEdit(&host);
    QPushButton& hostButton = *new QPushButton(&host);
    QTimer timer;
    int boxes = 0;
};

TEST_F(CellEditOnDesktop, APressOnAWidgetOfTheHostIsOneWayOut) {
    AnswerBoxes();
    ClickCell(0);
    Type("7+");
    QTest::mouseClick(&hostField, Qt::LeftButton);
    EXPECT_EQ(boxes, 1);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&host)) << "after the box";
    EXPECT_TRUE(grid.m_Edit.IsWindowVisible());
    EXPECT_EQ(grid.m_Edit.GetWindowTextA(), "7+");
    EXPECT_EQ(QApplication::focusWidget(), user.Widget(grid.m_Edit.m_hWnd));
    QTest::mouseClick(&hostField, Qt::LeftButton);
    EXPECT_EQ(boxes, 1);
    EXPECT_FALSE(grid.IsEditing());
    EXPECT_EQ(QApplication::focusWidget(), &hostField);
    EXPECT_EQ(Value(), 12.5);
}

TEST_F(CellEditOnDesktop, TheFieldWaitsWhileTheProgramIsLeft) {
    AnswerBoxes();
    ClickCell(0);
    Type("7+");
    QApplication::setActiveWindow(nullptr);
    EXPECT_EQ(GetFocus(), nullptr);
    EXPECT_TRUE(grid.m_Edit.IsWindowVisible());
    QApplication::setActiveWindow(&host);
    EXPECT_EQ(GetFocus(), grid.m_Edit.m_hWnd);
    EXPECT_EQ(grid.m_Edit.GetWindowTextA(), "7+");
    EXPECT_EQ(boxes, 0);
    Type("1");
    user.Key(VK_RETURN, "\r");
    EXPECT_EQ(Value(), 8);
}

TEST_F(CellEditOnDesktop, TheWheelOverADroppedListIsTheLists) {
    ClickCell(1);
    ASSERT_EQ(grid.GetDroppedState(), 1);
    QWidget* list = user.Widget(grid.m_ComboList.m_hWnd);
    ASSERT_TRUE(list && list->isVisible());
    EXPECT_EQ(QApplication::focusWidget(), user.Widget(grid.m_hWnd)) << "keys come to the grid";
    const QPointF inside(10, 30);
    QWheelEvent wheel(inside, list->mapToGlobal(inside), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(list, &wheel);
    EXPECT_GT(grid.m_ComboList.GetTopIndex(), 0);
    EXPECT_EQ(grid.GetTopIndex(), 0);
    user.Key(VK_DOWN, "");
    user.Key(VK_RETURN, "\r");
    EXPECT_EQ(grid.GetDroppedState(), 0);
    EXPECT_EQ(root.Get("list").Text, ",2,");
}

TEST_F(CellEditOnDesktop, TheKeysOfTheClipboardConcernTheWholeText) {
    ClickCell(2);
    EXPECT_EQ(Field().selectedText(), QStringLiteral("axis"));
    grid.m_Edit.SetSel(1, 2);
    QTest::keyClick(&Field(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("axis"));
    QTest::keyClick(&Field(), Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(grid.m_Edit.GetWindowTextA(), "");
    QTest::keyClick(&Field(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(grid.m_Edit.GetWindowTextA(), "axis") << "by the widget's own undo";
    grid.m_Edit.SetWindowTextA("");
    QApplication::clipboard()->setText(QStringLiteral("\u0141\u00f3d\u017a"));
    QTest::keyClick(&Field(), Qt::Key_X, Qt::ControlModifier); // nothing to cut
    Type("abc");
    grid.m_Edit.SetSel(1, 2);
    QTest::keyClick(&Field(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Field().text(), QStringLiteral("\u0141\u00f3d\u017a"));
    EXPECT_EQ(internal::ToQString(grid.m_Edit.GetWindowTextA()), Field().text());
    EXPECT_EQ(Field().cursorPosition(), 4);
    user.Key(VK_RETURN, "\r");
    EXPECT_EQ(internal::ToQString(root.Get("name").Text), QStringLiteral("\u0141\u00f3d\u017a"));
}

} // namespace

} // namespace korvel::test
