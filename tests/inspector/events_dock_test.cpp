#include "inspector/edited_window.h"

#include <QComboBox>
#include <QLineEdit>

namespace korvel::inspector {

namespace {

class EventsDockTest : public EditedWindowTest {
protected:
    EventsDockTest()
        : EditedWindowTest(
              "<LandXML>\n<Line name='a' length='x'/>\n<Curve name='b' radius='y'/>\n<New/></LandXML>") {}

    void Choose(const std::string& event) {
        for (int row = 0; row < List().GetItemCount(); ++row)
            if (List().MessageAt(row)->m_strEvent == event) {
                CRect cell;
                EXPECT_TRUE(List().EnsureVisible(row, false) &&
                            List().GetSubItemRect(row, 4, LVIR_LABEL, &cell));
                QTest::mouseDClick(m_display.WidgetOf(List().m_hWnd), Qt::LeftButton, {},
                                   QPoint(cell.left + 20, (cell.top + cell.bottom) / 2));
                return;
            }
        ADD_FAILURE() << "there is no message " << event;
    }
    std::string Selected() const { return Grid().GetItemText(Grid().GetNextItem(-1, LVNI_SELECTED), 0); }
    std::string Message() const { return m_window->statusBar()->currentMessage().toStdString(); }
    void Clear() { Dock().findChildren<QPushButton*>().back()->click(); }

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
    Clear();
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
    EXPECT_THAT(Message(), testing::HasSubstr("not open any more"));
    EXPECT_TRUE(Grid().GetItemCount() > 0);
}

TEST_F(EventsDockTest, TellsFailuresWithoutTheNameOfTheirFile) {
    Messages();
    Clear();
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
    for (int i = 0; i < 1003; ++i)
        source += "<Line length='x'/>";
    Write(source + "</LandXML>");
    EXPECT_TRUE(m_window->OpenOrWarn(m_path));
    EXPECT_THAT(Messages(), testing::HasSubstr("1 3 more are not listed\n"));
}

TEST_F(EventsDockTest, FiltersCopiesAndSavesWhatIsShown) {
    Messages();
    auto* kinds = Dock().findChild<QComboBox*>();
    auto* text = Dock().findChild<QLineEdit*>();
    kinds->setCurrentIndex(1);
    EXPECT_EQ(Messages(), std::string("1 ") + Length + "\n1 " + Radius + "\n");
    text->setText("RADIUS");
    EXPECT_EQ(Messages(), std::string("1 ") + Radius + "\n");
    List().SetFocus();
    EditAction("Copy").trigger();
    EXPECT_THAT(QApplication::clipboard()->text().toStdString(), testing::EndsWith(Radius));
    EXPECT_THAT(Message(), testing::HasSubstr("Copied"));
    kinds->setCurrentIndex(2);
    EXPECT_EQ(Messages(), "");
    text->clear();
    kinds->setCurrentIndex(0);
    EXPECT_EQ(List().GetItemCount(), 4);
}

} // namespace

} // namespace korvel::inspector
