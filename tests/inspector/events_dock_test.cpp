#include "inspector/edited_window.h"

#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>

namespace korvel::inspector {

namespace {

class EventsDockTest : public EditedWindowTest {
protected:
    EventsDockTest()
        : EditedWindowTest(
              "<LandXML>\n<Line name='a' length='x'/>\n<Curve name='b' radius='y'/>\n<New/></LandXML>") {}

    void DoubleClick(int x, int y) {
        QTest::mouseClick(m_display.WidgetOf(List().m_hWnd), Qt::LeftButton, {}, QPoint(x, y));
        QTest::mouseDClick(m_display.WidgetOf(List().m_hWnd), Qt::LeftButton, {}, QPoint(x, y));
    }
    void Choose(const std::string& event) {
        for (int row = 0; row < List().GetItemCount(); ++row)
            if (List().MessageAt(row)->m_strEvent == event) {
                CRect cell;
                EXPECT_TRUE(List().EnsureVisible(row, false) &&
                            List().GetSubItemRect(row, 4, LVIR_LABEL, &cell));
                return DoubleClick(cell.left + 20, (cell.top + cell.bottom) / 2);
            }
        ADD_FAILURE() << "there is no message " << event;
    }
    std::string Selected() const { return Grid().GetItemText(Grid().GetNextItem(-1, LVNI_SELECTED), 0); }
    std::string Message() const { return m_window->statusBar()->currentMessage().toStdString(); }
    void Click(const char* button) {
        for (auto* offered : Dock().findChildren<QPushButton*>())
            if (offered->text().remove(u'&') == QString::fromUtf8(button))
                return offered->click();
        ADD_FAILURE() << "no button " << button;
    }

    static constexpr const char* Length = "line 2: 'x' is no valid value of 'length'";
    static constexpr const char* Radius = "line 3: 'y' is no valid value of 'radius'";
    static constexpr const char* Unknown = "line 4: LandXML has no element 'New'";
};

TEST_F(EventsDockTest, TellsWhatIsWrongAndLeadsToIt) {
    EXPECT_TRUE(Dock().isVisible());
    EXPECT_EQ(Messages(), std::string("0 loaded, with 4 elements\n1 ") + Length + "\n1 " + Radius + "\n0 " +
                              Unknown + "\n");
    Choose(Length);
    EXPECT_EQ(Selected(), "length [invalid]");
    EXPECT_EQ(GetFocus(), Grid().m_hWnd);
    Choose(Unknown);
    EXPECT_EQ(Selected(), "New");
    Edit("length [invalid]", "2");
    Choose(Length);
    EXPECT_EQ(Selected().substr(0, 6), "length") << "it is valid now";
    EXPECT_TRUE(m_window->Pane().Expand("Curve b/radius [invalid]"));
    EditAction("Delete").trigger();
    Choose(Radius);
    EXPECT_THAT(Message(), testing::HasSubstr("not there any more"));
    Answer("Don’t Save");
    EXPECT_TRUE(m_window->OpenOrWarn(m_path));
    EXPECT_EQ(List().GetItemCount(), 4) << "the messages of both wait";
    QApplication::processEvents();
    Click("Clear");
    FileAction("Save").trigger();
    EXPECT_EQ(Messages(), "0 saved\n");
}

TEST_F(EventsDockTest, MessagesOfAFormerDocumentLeadNowhere) {
    Messages();
    const std::string other = m_folder.Path() / "other.xml";
    std::ofstream(other) << "<LandXML><Line name='a' length='1'/></LandXML>";
    EXPECT_TRUE(m_window->OpenOrWarn(other));
    Messages();
    Choose(Length);
    EXPECT_THAT(Message(), testing::HasSubstr("closed or read again"));
    EXPECT_TRUE(Grid().GetItemCount() > 0);
}

TEST_F(EventsDockTest, TellsFailuresWithoutTheNameOfTheirFile) {
    Messages();
    Click("Clear");
    const std::string broken = m_folder.Path() / "broken.xml";
    std::ofstream(broken) << "<LandXML>";
    Answer("OK");
    EXPECT_FALSE(m_window->OpenOrWarn(broken));
    const std::string messages = Messages();
    EXPECT_THAT(messages, testing::StartsWith("2 line 1, position "));
    EXPECT_EQ(List().MessageAt(0)->m_strSource, "broken.xml");
}

TEST_F(EventsDockTest, SaysHowManyFindingsAreNotListed) {
    Messages();
    std::string source = "<LandXML>";
    for (int i = 0; i < 1001; ++i)
        source += "<Line length='x'/>";
    for (const char* said : {"1 1 more is not listed\n", "1 2 more are not listed\n"}) {
        Write(source + "</LandXML>");
        EXPECT_TRUE(m_window->OpenOrWarn(m_path));
        EXPECT_TRUE(QTest::qWaitFor([&] { return Messages().find(said) != std::string::npos; })) << said;
        source += "<Line length='x'/>";
    }
}

TEST_F(EventsDockTest, ColumnsKeepTheWidthsThatTheUserGaveThem) {
    const auto width = [&](int column) { return List().GetColumnWidth(column); };
    m_window->resize(800, 400);
    QApplication::processEvents();
    const auto place = [&] { return List().GetClientRect().Width(); };
    const int rest = width(4) - place();
    List().SetColumnWidth(3, width(3) - 40);
    m_window->resize(900, 400);
    QApplication::processEvents();
    EXPECT_EQ(width(4), rest + place() + 40) << "it takes the rest";
    EXPECT_EQ(width(3), 110);
    List().SetColumnWidth(4, 900);
    m_window->resize(700, 400);
    QApplication::processEvents();
    EXPECT_EQ(width(4), 900);
}

TEST_F(EventsDockTest, FiltersCopiesAndSavesWhatIsShown) {
    Messages();
    auto* kinds = Dock().findChild<QComboBox*>();
    auto* text = Dock().findChild<QLineEdit*>();
    kinds->setCurrentIndex(1);
    EXPECT_EQ(Messages(), std::string("1 ") + Length + "\n1 " + Radius + "\n");
    text->setText("RADIUS");
    EXPECT_EQ(Messages(), std::string("1 ") + Radius + "\n");
    List().SetItemState(0, LVIS_FOCUSED, LVIS_FOCUSED);
    DoubleClick(20, List().GetClientRect().bottom - 2);
    EXPECT_EQ(GetFocus(), List().m_hWnd) << "below the messages there is nothing to go to";
    QMenu* edit = m_window->menuBar()->actions().at(1)->menu();
    edit->popup({});
    EXPECT_TRUE(EditAction("Copy").isEnabled());
    EXPECT_FALSE(EditAction("Paste").isEnabled());
    edit->close();
    EditAction("Copy").trigger();
    EXPECT_THAT(QApplication::clipboard()->text().toStdString(), testing::EndsWith(Radius));
    EXPECT_THAT(Message(), testing::HasSubstr("Copied"));
    const std::string path = m_folder.Path() / "messages.txt";
    QTimer::singleShot(0, m_window.get(), [&] {
        auto* chooser = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(chooser, nullptr);
        chooser->findChild<QLineEdit*>()->setText(QString::fromStdString(path));
        QMetaObject::invokeMethod(chooser, "accept");
    });
    Click("Save…");
    EXPECT_THAT(platform::ContentOf(path), testing::EndsWith(std::string(Radius) + "\n"));
    EXPECT_THAT(Message(), testing::HasSubstr("have been saved"));
    kinds->setCurrentIndex(2);
    EXPECT_EQ(Messages(), "");
    text->clear();
    kinds->setCurrentIndex(0);
    EXPECT_EQ(List().GetItemCount(), 4);
}

} // namespace

} // namespace korvel::inspector
