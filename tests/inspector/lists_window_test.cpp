#include "desktop/lists_window.h"
#include "korvel/qt/qt_display.h"
#include "korvel/values/language.h"
#include "landxml/landxml_document.h"
#include "support/scratch.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QTest>
#include <QTimer>
#include <fstream>
#include <gmock/gmock.h>
#include <regex>

namespace korvel::inspector {

namespace {

constexpr int TitleId = 201;
constexpr int TreeId = 202;
constexpr int ListId = 203;
constexpr int ValueId = 204;
constexpr int FieldId = 108;

// The window "Lists" of a document that uses three of them, on a desktop.
class ListsWindowTest : public testing::Test {
protected:
    ListsWindowTest() {
        SetDisplay(&m_display);
        m_owner.CreateEx(0, "KorvelFrame", "", WS_OVERLAPPEDWINDOW | WS_VISIBLE, {20, 20, 220, 120}, nullptr,
                         0);
    }
    void Open(const char* language) {
        SetLanguageForThisRun(language);
        const std::string path = m_folder.Path() / "lists.xml";
        std::ofstream(path) << "<LandXML><Curve rot='cw' crvType='arc'/><Curve rot='cw'/>"
                               "<Parcel state='existing'/></LandXML>";
        const LandXmlDocument document(path, {});
        m_lists = std::make_unique<ListsWindow>(document, m_owner, m_room);
        m_lists->Show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(Widget(m_lists->m_hWnd)));
    }
    QWidget* Widget(HWND window) const { return m_display.WidgetOf(window); }
    HWND Child(int id) const { return GetDlgItem(m_lists->m_hWnd, id); }
    HWND Field(int id) const { return GetDlgItem(Child(id), FieldId); }
    std::string Text(int id) const { return korvel::GetWindowTextA(Field(id)); }
    // Of the window: its label follows with the next frame.
    std::string Use() const {
        static const std::regex pattern("^(not )?used.*");
        for (HWND child = GetFirstChild(m_lists->m_hWnd); child; child = GetNextSibling(child))
            if (CString text = korvel::GetWindowTextA(child); std::regex_match(text, pattern))
                return text;
        return "";
    }
    void Press(Qt::Key key) const { QTest::keyClick(QApplication::focusWidget(), key); }
    // Chooses the entry that begins with a letter.
    void Choose(int id, Qt::Key letter) const {
        SetFocus(Child(id));
        Press(letter);
        Press(Qt::Key_Return);
    }
    // The list that has dropped, or null.
    static QWidget* Dropped() {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->windowType() == Qt::ToolTip && window->isVisible())
                return window;
        return nullptr;
    }
    CComboList& List() { return dynamic_cast<CComboList&>(*CWnd::FromHandlePermanent(Child(ListId))); }
    std::string Rows() {
        std::string rows;
        for (int row = 0; row < List().GetItemCount(); ++row) {
            const CComboList::CTreeItem& item = *List().GetTreeItem(row);
            rows += (item.GetChecked() > 0 ? "+" : "-") + item.GetLabel() + ";";
        }
        return rows;
    }

    // The entries of the menu that the key for menus opens over the list.
    std::string MenuByKey() {
        std::string entries;
        SetFocus(List().m_hWnd);
        QTimer::singleShot(0, [&] {
            QWidget* menu = QApplication::activePopupWidget();
            for (const QAction* entry : menu->actions())
                entries += entry->text().toStdString() + ";";
            menu->close();
        });
        m_lists->SendMessageA(WM_CONTEXTMENU, 0, MAKELPARAM(-1, -1));
        Widget(m_lists->m_hWnd)->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(Widget(m_lists->m_hWnd)));
        SetFocus(List().m_hWnd);
        return entries;
    }

    platform::ScratchFolder m_folder;
    qt::QtDisplay m_display;
    CRect m_room = {0, 0, 800, 800};
    CWnd m_owner;
    std::unique_ptr<ListsWindow> m_lists;
};

TEST_F(ListsWindowTest, ADroppedListEndsWithWhateverTheUserDoesElsewhere) {
    Open("English");
    const int bottom = GetSystemMetrics(SM_CYSCREEN);
    m_lists->MoveWindow({40, bottom - 60, 640, bottom + 400}); // the list has no room below
    QTest::qWait(50);                                          // a window manager follows later
    struct Case {
        const char* name;
        std::function<void()> act;
        bool taken;
    };
    const Case cases[] = {
        {"Return", [&] { Press(Qt::Key_Return); }, true},
        {"Escape", [&] { Press(Qt::Key_Escape); }, false},
        {"F4", [&] { Press(Qt::Key_F4); }, true},
        {"a press elsewhere in the window",
         [&] {
             QTest::mouseClick(Widget(m_lists->m_hWnd), Qt::LeftButton, {}, {2, 2});
         },
         true},
        {"a press on the arrow",
         [&] { QTest::mouseClick(Widget(GetDlgItem(Child(TitleId), 107)), Qt::LeftButton); }, true},
        {"the window moves",
         [&] { Widget(m_lists->m_hWnd)->move(Widget(m_lists->m_hWnd)->pos() + QPoint(5, 0)); }, true},
        {"the focus goes", [&] { Press(Qt::Key_Tab); }, true},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        Choose(TitleId, Qt::Key_C);
        ASSERT_EQ(Text(TitleId), "Curve crvType");
        Press(Qt::Key_Down); // drops the list
        Press(Qt::Key_Down);
        ASSERT_EQ(Text(TitleId), "Parcel state");
        ASSERT_NE(Dropped(), nullptr);
        const QWidget* combo = Widget(Child(TitleId))->parentWidget(); // with its border
        EXPECT_EQ(Dropped()->geometry().y(), combo->mapToGlobal(QPoint(0, combo->height())).y());
        EXPECT_EQ(GetFocus(), Field(TitleId));
        row.act();
        QApplication::processEvents();
        EXPECT_EQ(Dropped(), nullptr);
        EXPECT_EQ(Text(TitleId), row.taken ? "Parcel state" : "Curve crvType");
    }
}

TEST_F(ListsWindowTest, ChangesStayWhileOtherListsAreShown) {
    Open("English");
    Choose(TitleId, Qt::Key_R);
    EXPECT_EQ(Rows(), "+cw;-ccw;");
    EXPECT_EQ(Text(ValueId), "cw");
    EXPECT_EQ(Use(), "used 2 times");
    SetFocus(List().m_hWnd);
    Press(Qt::Key_Space);
    QApplication::processEvents();
    EXPECT_EQ(Rows(), "+cw;-ccw;") << "a mark of use stays";
    Press(Qt::Key_Down);
    Press(Qt::Key_Space);
    List().SendMessageA(WM_COMMAND, ComboCommandAddRootItem);
    QTest::mouseClick(Widget(Child(TreeId)), Qt::LeftButton, {}, {8, 8});
    Choose(TitleId, Qt::Key_P);
    EXPECT_EQ(Text(TitleId), "Parcel state") << "letters typed for a list that is closed begin no search";
    Choose(TitleId, Qt::Key_R);
    EXPECT_EQ(Rows(), "+cw;+ccw;-new value;");
    EXPECT_TRUE(List().HasTree());
    Choose(ValueId, Qt::Key_N);
    EXPECT_EQ(Text(ValueId), "new value");
    EXPECT_EQ(Use(), "not used");
    SetFocus(List().m_hWnd);
    List().SetCurrentRow(2);
    List().SendMessageA(WM_COMMAND, ComboCommandDelete);
    QApplication::processEvents();
    EXPECT_EQ(Text(ValueId), "") << "the chosen value is gone";
    EXPECT_EQ(Use(), "");
    EXPECT_EQ(MenuByKey(), "new value;insert group;insert new value at '';insert new group at '';"
                           "erase 'ccw';rename 'ccw';")
        << "the new last row is meant";
    List().SetCurrentRow(0);
    EXPECT_EQ(MenuByKey(), "new value;insert group;insert new value at '';insert new group at '';"
                           "erase 'cw';rename 'cw';");
    Press(Qt::Key_Escape);
    EXPECT_FALSE(m_lists->IsWindowVisible());
}

TEST_F(ListsWindowTest, OpensInItsRoom) {
    m_room = {1000, 100, 1700, 500}; // of another screen
    Open("English");
    const CRect place = m_lists->GetWindowRect();
    EXPECT_EQ(place.left, m_room.left);
    EXPECT_EQ(place.top, m_room.top);
    EXPECT_LE(place.right, m_room.right);
    EXPECT_LE(place.bottom, m_room.bottom);
    Widget(m_lists->m_hWnd)->resize(50, 50);
    EXPECT_GT(Widget(m_lists->m_hWnd)->width(), 300) << "its texts can be read at any size";
}

TEST_F(ListsWindowTest, ItsCombosGrowWithIt) {
    Open("English");
    const auto field = [&] { return GetClientRect(Field(ValueId)).Width(); };
    const int before = field();
    const CRect place = m_lists->GetWindowRect();
    m_lists->MoveWindow({place.left, place.top, place.right + 100, place.bottom});
    QTest::qWait(50);
    EXPECT_EQ(field(), before + 100);
}

TEST_F(ListsWindowTest, ItsTextsFitInEachLanguageAndFont) {
    const QFont font = QApplication::font();
    for (const char* language : {"English", "German"}) {
        for (const int size : {9, 13}) { // the larger one still fits on the 800 pixels of this screen
            QApplication::setFont(QFont(font.family(), size));
            Open(language);
            for (const QLabel* label : Widget(m_lists->m_hWnd)->findChildren<QLabel*>()) {
                const QSize needed = label->fontMetrics().size(0, label->text());
                EXPECT_LE(needed.width(), label->width()) << label->text().toStdString();
                EXPECT_LE(needed.height(), label->height()) << label->text().toStdString();
            }
            const auto* tree = Widget(m_lists->m_hWnd)->findChild<QCheckBox*>();
            EXPECT_LE(tree->sizeHint().width(), tree->width());
        }
    }
    QApplication::setFont(font);
}

} // namespace

} // namespace korvel::inspector
