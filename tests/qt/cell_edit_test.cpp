#include "korvel/editors/grid_ctrl_edit.h"
#include "korvel/editors/grid_ctrl_spin_button.h"
#include "korvel/qt/convert.h"
#include "qt/users.h"
#include "support/edited_object.h"
#include "support/make_value.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>
#include <set>

namespace korvel::test {

namespace {

// Writes down the characters that reach it.
class HeardEdit : public CGridCtrlEdit {
public:
    using CGridCtrlEdit::CGridCtrlEdit;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_CHAR)
            characters += static_cast<char>(wParam);
        return CGridCtrlEdit::WindowProc(message, wParam, lParam);
    }
    CString characters;
};

// A text field with its spin button on a desktop.
class CellEdit : public testing::Test {
protected:
    CellEdit() {
        m_object.AddMember("name", true, MakeValue(DT_String, "axis"));
        m_object.AddMember("share", true, MakeValue(DT_RangeDouble, 50.0));
        m_frame.CreateEx(0, "KorvelFrame", "Cell", WS_OVERLAPPEDWINDOW | WS_VISIBLE, {40, 40, 340, 240},
                         nullptr, 0);
        m_cell.CreateEx(0, "KorvelFrame", "", WS_CHILD | WS_VISIBLE, {10, 10, 210, 40}, &m_frame, 1);
        m_edit.Create(WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL, {0, 0, 120, 30}, &m_cell, 105);
        m_spin.Create(WS_CHILD | WS_VISIBLE, {120, 0, 150, 30}, &m_cell, 15046);
        m_spin.m_pEdit = &m_edit;
        m_edit.m_CompanionWindows = {m_spin.m_hWnd};
        EXPECT_TRUE(QTest::qWaitForWindowActive(m_user.Widget(m_frame.m_hWnd)));
    }
    void Start(const std::string& name) {
        m_edit.Start(&m_object, name);
        m_edit.SetFocus();
        m_object.Take();
        m_edit.characters.clear();
    }
    QLineEdit& Widget() { return *qobject_cast<QLineEdit*>(m_user.Widget(m_edit.m_hWnd)); }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&Widget(), key, modifiers);
    }

    QtUser m_user;
    EditedObject m_object;
    CWnd m_frame;
    CWnd m_cell;
    HeardEdit m_edit{&m_object};
    CGridCtrlSpinButton m_spin;
};

TEST_F(CellEdit, TypedTextReplacesTheSelectedOneAndEachByteIsHeard) {
    Start("name");
    EXPECT_EQ(Widget().selectedText(), QStringLiteral("axis"));
    for (const char16_t letter : {u'a', u'\u00e4', u'\u0141'})
        QTest::sendKeyEvent(QTest::Click, &Widget(), Qt::Key_unknown, QString(QChar(letter)), Qt::NoModifier);
    const CString typed = "a\xE4\x81\xE2\xE1";
    EXPECT_EQ(m_edit.characters, typed);
    EXPECT_EQ(m_edit.GetWindowTextA(), typed);
    EXPECT_TRUE(m_edit.m_bChanged);
    m_user.Key(VK_RETURN, "\r");
    EXPECT_EQ(GetFocus(), m_cell.m_hWnd);
    m_edit.End(true);
    EXPECT_EQ(m_object.Get("name").Text, typed);
}

TEST_F(CellEdit, TheKeysOfTheClipboardConcernTheWholeText) {
    Start("name");
    m_edit.SetSel(1, 2);
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("axis"));
    Press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(m_edit.GetWindowTextA(), "");
    QApplication::clipboard()->setText(QStringLiteral("\u0141\u00f3d\u017a"));
    Press(Qt::Key_X, Qt::ControlModifier); // nothing to cut
    QTest::keyClicks(&Widget(), QStringLiteral("abc"));
    m_edit.SetSel(1, 2);
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Widget().text(), QStringLiteral("\u0141\u00f3d\u017a"));
    EXPECT_EQ(internal::ToQString(m_edit.GetWindowTextA()), Widget().text());
    EXPECT_EQ(Widget().cursorPosition(), 4);
    QTest::keyClicks(&Widget(), QStringLiteral("!"));
    EXPECT_EQ(Widget().text(), QStringLiteral("\u0141\u00f3d\u017a!"));
}

TEST_F(CellEdit, UndoAndRedoAreTheWidgets) {
    Start("name");
    QTest::keyClicks(&Widget(), QStringLiteral("b"));
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(m_edit.GetWindowTextA(), "axis");
    Press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(m_edit.GetWindowTextA(), "b");
}

TEST_F(CellEdit, TheSpinButtonStepsWithoutTakingTheFocus) {
    Start("share");
    QWidget* spin = m_user.Widget(m_spin.m_hWnd);
    QTest::mousePress(spin, Qt::LeftButton, Qt::NoModifier, {5, 25});
    EXPECT_EQ(Widget().text(), QStringLiteral("51.000000"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return m_spin.m_nTicks > 1; }, 2000));
    QTest::mouseRelease(spin, Qt::LeftButton, Qt::NoModifier, {5, 25});
    EXPECT_FALSE(m_spin.m_bPressed);
    EXPECT_EQ(GetFocus(), m_edit.m_hWnd);
    EXPECT_GE(m_object.Get("share").Value.Double, 51.0);
    EXPECT_EQ(m_edit.m_pDisp, &m_object);
    const QImage picture = spin->grab().toImage();
    std::set<QRgb> colors;
    for (int y = 0; y < picture.height() / 2; ++y)
        for (int x = 0; x < picture.width(); ++x)
            colors.insert(picture.pixel(x, y));
    EXPECT_GE(colors.size(), 3u) << "face, border and arrow";
}

} // namespace

} // namespace korvel::test
