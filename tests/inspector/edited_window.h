#pragma once

#include "desktop/inspector_window.h"
#include "korvel/qt/qt_display.h"
#include "korvel/values/language.h"
#include "support/scratch.h"

#include <QApplication>
#include <QClipboard>
#include <QDockWidget>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QStatusBar>
#include <QTest>
#include <QTimer>
#include <fstream>
#include <gmock/gmock.h>

namespace korvel::inspector {

/// Somebody who edits a small document in the inspector's window.
class EditedWindowTest : public testing::Test {
protected:
    explicit EditedWindowTest(const std::string& source) {
        SetLanguageForThisRun("English");
        SetDisplay(&m_display);
        m_window = std::make_unique<InspectorWindow>(ReadingOptions{});
        m_window->resize(600, 400);
        m_window->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
        Write(source);
        EXPECT_TRUE(m_window->OpenOrWarn(m_path));
    }

    void Write(const std::string& text) const { std::ofstream(m_path, std::ios::binary) << text; }
    std::string Content() const { return platform::ContentOf(m_path); }
    CEditableGrid& Grid() const {
        return dynamic_cast<CEditableGrid&>(
            *CWnd::FromHandlePermanent(GetFirstChild(m_window->Pane().m_hWnd)));
    }
    int RowOf(const std::string& name) const {
        for (int row = 0; row < Grid().GetItemCount(); ++row)
            if (Grid().GetItemText(row, 0) == name)
                return row;
        ADD_FAILURE() << "there is no row " << name;
        return 0;
    }
    std::string ValueOf(const std::string& name) const { return Grid().GetItemText(RowOf(name), 1); }
    void ClickValue(const std::string& name) {
        m_window->activateWindow(); // after a box
        EXPECT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
        const CRect cell = Grid().GetSubItemRect(RowOf(name), 1);
        QTest::mouseClick(m_display.WidgetOf(Grid().m_hWnd), Qt::LeftButton, {},
                          QPoint(cell.left + 20, (cell.top + cell.bottom) / 2));
        QApplication::processEvents();
    }
    void Type(const char* text) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(QApplication::focusWidget(), QString::fromUtf8(text));
    }
    void Edit(const std::string& name, const char* text) {
        ClickValue(name);
        Type(text);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    }
    QString Status() const { return m_window->statusBar()->findChild<QLabel*>()->text(); }
    QAction& Action(int menu, const char* text) const {
        for (QAction* action : m_window->menuBar()->actions().at(menu)->menu()->actions())
            if (action->text().remove(u'&').startsWith(QLatin1String(text)))
                return *action;
        throw std::out_of_range(text);
    }
    QAction& FileAction(const char* text) const { return Action(0, text); }
    QAction& EditAction(const char* text) const { return Action(1, text); }
    EventsDock& Dock() const { return dynamic_cast<EventsDock&>(*m_window->findChild<QDockWidget*>()); }
    CGridEvents& List() const { return Dock().Pane().List(); }
    // Type and event of each message, the newest first.
    std::string Messages() const {
        QApplication::processEvents(); // hands them over
        std::string messages;
        for (int row = 0; row < List().GetItemCount(); ++row)
            messages += std::to_string(List().MessageAt(row)->m_Type) + ' ' +
                        List().MessageAt(row)->m_strEvent + '\n';
        return messages;
    }
    // Presses a button of the next box.
    void Answer(const char* button) {
        QTimer::singleShot(
            0, m_window.get(),
            [this, button] {
                auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                ASSERT_NE(box, nullptr);
                ++m_boxes;
                for (QAbstractButton* offered : box->buttons())
                    if (offered->text().remove(u'&') == QString::fromUtf8(button))
                        return offered->click();
                ADD_FAILURE() << "no button " << button;
                box->close();
            });
    }

    platform::ScratchStore m_folder;
    const std::string m_path = m_folder.Path() / "a.xml";
    qt::QtDisplay m_display;
    std::unique_ptr<InspectorWindow> m_window;
    int m_boxes = 0;
};

} // namespace korvel::inspector
