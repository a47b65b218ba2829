#include "desktop/inspector_window.h"
#include "korvel/qt/qt_display.h"
#include "korvel/values/language.h"
#include "program/recent_files.h"
#include "source/document_error.h"
#include "support/scratch.h"
#include "support/table.h"

#include <QApplication>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QStatusBar>
#include <QTest>
#include <QTimer>
#include <QUrl>
#include <fstream>
#include <gmock/gmock.h>

namespace korvel::inspector {

namespace {

// The inspector's window with a small document.
class InspectorWindowTest : public testing::Test {
protected:
    InspectorWindowTest() {
        SetLanguageForThisRun("English");
        SetDisplay(&m_display);
        m_window = std::make_unique<InspectorWindow>(ReadingOptions{});
        m_window->resize(600, 400);
        m_window->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
    }

    std::string Write(const char* name, const char* text) {
        std::string path = m_folder.Path() / name;
        std::ofstream(path) << text;
        return path;
    }
    void OpenSample() {
        m_window->Open(Write("sample.xml", "<LandXML a='1'><Group name='one'><Leaf name='deep/name' b='2'/>"
                                           "</Group><Other c='3'/></LandXML>"));
    }
    CEditableGrid& Grid() {
        return dynamic_cast<CEditableGrid&>(
            *CWnd::FromHandlePermanent(GetFirstChild(m_window->Pane().m_hWnd)));
    }
    std::string Rows() {
        std::string rows;
        for (int row = 0; row < Grid().GetItemCount(); ++row)
            rows += Grid().GetItemText(row, 0) + ";";
        return rows;
    }
    void DragDivider(int nameWidth) {
        Grid().SetColumnWidth(0, nameWidth);
        NMHEADER end{};
        end.iItem = 0;
        end.hdr.code = static_cast<UINT>(HDN_ENDTRACK);
        end.cxy = nameWidth;
        Grid().SendMessageA(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&end));
    }
    int Selected() { return Grid().GetNextItem(-1, LVNI_SELECTED | LVNI_FOCUSED); }
    QString Status() const { return m_window->statusBar()->findChild<QLabel*>()->text(); }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }

    platform::ScratchFolder m_folder;
    qt::QtDisplay m_display;
    std::unique_ptr<InspectorWindow> m_window;
};

TEST_F(InspectorWindowTest, StartsReadyForTheKeyboard) {
    const InspectorWindow another(ReadingOptions{});
    const QRect room = another.screen()->availableGeometry().adjusted(1, 30, -1, -1);
    EXPECT_TRUE(room.contains(another.geometry())) << "its frame and title would not be on the screen";
    OpenSample();
    EXPECT_EQ(GetFocus(), Grid().m_hWnd);
    EXPECT_EQ(Selected(), 0);
    EXPECT_THAT(m_window->windowTitle().toStdString(), testing::StartsWith("sample.xml"));
    EXPECT_EQ(Status(), QStringLiteral("3 objects, 5 members"));
    EXPECT_EQ(Rows(), "a;Group one;Other;");
    Press(Qt::Key_Down);
    Press(Qt::Key_Asterisk, Qt::KeypadModifier);
    EXPECT_EQ(Rows(), "a;Group one;name;Leaf deep/name;name;b;Other;");
    Press(Qt::Key_Minus, Qt::KeypadModifier);
    Press(Qt::Key_End);
    EXPECT_EQ(Selected(), 2);
    m_window->Open(Write("one.xml", "<LandXML><Group b='2'/></LandXML>"));
    EXPECT_EQ(Status(), QStringLiteral("1 object, 1 member"));
}

TEST_F(InspectorWindowTest, FindsPathsWhoseNamesHoldTheSeparator) {
    OpenSample();
    EXPECT_TRUE(m_window->Pane().Expand("Group one/Leaf deep/name"));
    EXPECT_EQ(Rows(), "a;Group one;name;Leaf deep/name;name;b;Other;");
    EXPECT_EQ(Selected(), 3);
    EXPECT_FALSE(m_window->Pane().Expand("Group one/Leaf"));
    EXPECT_FALSE(m_window->Pane().Expand("Group"));
}

TEST_F(InspectorWindowTest, AFileThatCannotBeReadLeavesTheOpenOneAlone) {
    OpenSample();
    const std::string rows = Rows();
    const std::string bad = Write("bad.xml", "<LandXML><a></LandXML>");
    EXPECT_THROW(m_window->Open(bad), DocumentError);
    QTimer::singleShot(0, [] { QApplication::activeModalWidget()->close(); });
    EXPECT_FALSE(m_window->OpenOrWarn(bad));
    EXPECT_THAT(m_window->windowTitle().toStdString(), testing::StartsWith("sample.xml"));
    EXPECT_EQ(Rows(), rows);
}

TEST_F(InspectorWindowTest, ValuesTakeTheWidthThatNamesLeave) {
    OpenSample();
    const auto share = [this](int width) {
        m_window->resize(width, 400);
        QApplication::processEvents();
        EXPECT_EQ(Grid().GetColumnWidth(0) + Grid().GetColumnWidth(1), Grid().GetClientRect().Width());
        return 100 * Grid().GetColumnWidth(0) / Grid().GetClientRect().Width();
    };
    EXPECT_NEAR(share(900), 40, 1);
    DragDivider(Grid().GetClientRect().Width() * 7 / 10);
    EXPECT_NEAR(share(500), 70, 1);
    OpenSample();
    EXPECT_NEAR(share(900), 70, 1) << "as the user has divided them";
    DragDivider(2000);
    EXPECT_NEAR(share(510), 90, 1) << "a wide name column does not take the values away";

    m_window->resize(510, 80);
    OpenSample();
    EXPECT_GT(Grid().GetItemCount(), Grid().GetCountPerPage());
    EXPECT_EQ(Grid().GetColumnWidth(0) + Grid().GetColumnWidth(1), Grid().GetClientRect().Width())
        << "beside the scroll bar that the rows have brought";
}

TEST_F(InspectorWindowTest, ItsDocumentMenuOpensWhatItSays) {
    const platform::ScratchStore store;
    QMenu& menu = *m_window->menuBar()->actions().at(2)->menu();
    EXPECT_FALSE(menu.isEnabled()) << "there is no document";
    OpenSample();
    ASSERT_TRUE(menu.isEnabled());
    for (const auto& [border, item, caption] : Table<int, const char*>{
             {"codes", 0, "Codes of the file"}, {"description", 1, "Description of the file"}}) {
        QString shown;
        QTimer::singleShot(0, m_window.get(), [&shown] {
            if (QWidget* dialog = QApplication::activeModalWidget()) {
                shown = dialog->windowTitle();
                dialog->close();
            }
        });
        menu.actions().at(item)->trigger();
        EXPECT_TRUE(shown.startsWith(QLatin1String(caption))) << border << ": " << shown.toStdString();
    }
}

TEST_F(InspectorWindowTest, OpensWhatIsChosenAndKeepsItAmongTheRecentFiles) {
    const platform::ScratchStore store;
    OpenSample(); // the folder to begin in
    const std::string other = Write("other.LANDXML.GZ", "<LandXML z='1'/>");
    QTimer::singleShot(0, m_window.get(), [] {
        QWidget* dialog = QApplication::activeModalWidget();
        ASSERT_NE(dialog, nullptr);
        dialog->findChild<QLineEdit*>()->setText(QStringLiteral("other.LANDXML.GZ"));
        QMetaObject::invokeMethod(dialog, "accept");
    });
    m_window->menuBar()->actions().at(0)->menu()->actions().at(0)->trigger();
    EXPECT_EQ(Rows(), "z;");
    EXPECT_TRUE(QTest::qWaitFor([] { return !RecentFiles().empty(); }, 2000));
    EXPECT_EQ(RecentFiles(), std::vector{other});
}

TEST_F(InspectorWindowTest, OpensADocumentAsItWasLeft) {
    const platform::ScratchStore store;
    OpenSample();
    const std::string path = m_folder.Path() / "sample.xml";
    EXPECT_TRUE(m_window->OpenOrWarn(path));
    EXPECT_EQ(Rows(), "a;Group one;Other;");
    EXPECT_TRUE(m_window->Pane().Expand("Group one/Leaf deep/name"));
    Grid().CollapseNode(Grid().NodeAtRow(3));
    EXPECT_TRUE(m_window->OpenOrWarn(Write("other.xml", "<LandXML><Group name='one' b='2'/></LandXML>")));
    EXPECT_EQ(Rows(), "Group one;") << "another document";
    EXPECT_TRUE(m_window->OpenOrWarn(path));
    EXPECT_EQ(Rows(), "a;Group one;name;Leaf deep/name;Other;");
    EXPECT_TRUE(m_window->Pane().Expand("Other"));
    DragDivider(Grid().GetClientRect().Width() * 7 / 10);
    EXPECT_TRUE(m_window->close());
    m_window = std::make_unique<InspectorWindow>(ReadingOptions{});
    EXPECT_TRUE(m_window->OpenOrWarn(path));
    EXPECT_EQ(Rows(), "a;Group one;name;Leaf deep/name;Other;c;") << "the next run";
    EXPECT_NEAR(100.0 * Grid().GetColumnWidth(0) / Grid().GetClientRect().Width(), 70, 1);
}

TEST_F(InspectorWindowTest, OpensWhatIsDroppedOnIt) {
    OpenSample();
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(Write("dropped.xml", "<LandXML z='1'/>")))});
    QDragEnterEvent enter({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window.get(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window.get(), &drop);
    EXPECT_EQ(Rows(), "a;Group one;Other;") << "the source of the drag does not wait for the reading";
    EXPECT_TRUE(QTest::qWaitFor([this] { return Rows() == "z;"; }, 2000)) << Rows();
}

TEST_F(InspectorWindowTest, ManyFilesOneAfterTheOther) {
    for (int i = 0; i < 5; ++i)
        OpenSample();
    EXPECT_EQ(Rows(), "a;Group one;Other;");
    m_window.reset();
    EXPECT_EQ(GetFocus(), nullptr);
}

} // namespace

} // namespace korvel::inspector
