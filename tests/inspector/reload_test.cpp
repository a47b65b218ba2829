#include "inspector/edited_window.h"
#include "support/table.h"

#include <QLineEdit>
#include <filesystem>

namespace korvel::inspector {

namespace {

namespace fs = std::filesystem;

constexpr int Groups = 60;

std::string Group(const std::string& name, const std::string& value) {
    return "<Line name='" + name + "' length='" + value + "'/>";
}

// More rows than fit into the window.
std::string Sample(const std::string& before = "", const std::string& value = "1") {
    std::string text = "<LandXML>" + before;
    for (int i = 0; i < Groups; ++i)
        text += Group(std::to_string(i), value);
    return text + "</LandXML>";
}

class ReloadTest : public EditedWindowTest {
protected:
    ReloadTest() : EditedWindowTest(Sample()) {}

    std::string NameAt(int row) const { return Grid().GetItemText(row, 0); }
    int Selected() const { return Grid().GetNextItem(-1, LVNI_SELECTED); }
    std::string LengthOf(const std::string& line) const {
        return Grid().GetItemText(RowOf("Line " + line) + 2, 1).substr(0, 1);
    }
    bool WaitForLength(const std::string& line, const std::string& length) const {
        return QTest::qWaitFor([&] { return LengthOf(line) == length; }, 3000);
    }
    // Long enough for a change to have been seen.
    static void WaitAWhile() { QTest::qWait(700); }
    QString Message() const { return m_window->statusBar()->currentMessage(); }
};

TEST_F(ReloadTest, FollowsTheFileHoweverItIsChanged) {
    const std::string other = m_folder.Path() / "other.xml";
    m_window->Pane().Expand("Line 30/length");
    const struct {
        const char* border;
        std::function<void(const std::string& text)> change;
    } rows[] = {
        {"written", [&](const std::string& text) { Write(text); }},
        {"replaced by another file",
         [&](const std::string& text) {
             std::ofstream(other) << text;
             fs::rename(other, m_path);
         }},
        {"the other one is written", [&](const std::string& text) { Write(text); }},
        {"away for a while",
         [&](const std::string& text) {
             fs::remove(m_path);
             WaitAWhile();
             Write(text);
         }},
    };
    int length = 1;
    for (const auto& [border, change] : rows) {
        const std::string text = std::to_string(++length);
        change(Sample("", text));
        EXPECT_TRUE(WaitForLength("30", text)) << border;
        EXPECT_THAT(Message().toStdString(), testing::HasSubstr("reloaded")) << border;
    }
}

TEST_F(ReloadTest, KeepsOpenGroupsSelectionAndTheRowsInSight) {
    for (const char* path : {"Line 3", "Line 30", "Line 50"})
        m_window->Pane().Expand(path);
    m_window->Pane().Expand("Line 30/length");
    Grid().EnsureVisible(Grid().GetItemCount() - 1, false);
    const std::string top = NameAt(Grid().GetTopIndex());
    const int count = Grid().GetItemCount();
    Write(Sample(Group("new", "5"), "2"));
    ASSERT_TRUE(WaitForLength("30", "2"));
    EXPECT_EQ(LengthOf("3") + LengthOf("50"), "22");
    EXPECT_EQ(Grid().GetItemCount(), count + 1);
    EXPECT_EQ(NameAt(Selected()), "length");
    EXPECT_EQ(NameAt(Selected() - 2), "Line 30");
    EXPECT_EQ(NameAt(Grid().GetTopIndex()), top);

    Write("<LandXML><Line name='30'/>" + Group("50", "3") + "</LandXML>");
    ASSERT_TRUE(WaitForLength("50", "3"));
    EXPECT_EQ(NameAt(Selected()), "Line 30") << "what was selected in it has gone";
}

TEST_F(ReloadTest, LeavesTheFocusWhereItIs) {
    auto* filter = Dock().findChild<QLineEdit*>();
    Dock().show();
    const struct {
        const char* border;
        std::function<void()> go;
        std::function<bool()> isThere;
    } rows[] = {
        {"the filter of the messages", [&] { filter->setFocus(); }, [&] { return filter->hasFocus(); }},
        {"the messages", [&] { List().SetFocus(); }, [&] { return GetFocus() == List().m_hWnd; }},
        {"the document", [&] { Grid().SetFocus(); }, [&] { return GetFocus() == Grid().m_hWnd; }},
    };
    m_window->Pane().Expand("Line 30");
    int length = 1;
    for (const bool showsProgress : {false, true})
        for (const auto& [border, go, isThere] : rows) {
            m_window->SetPatience(std::chrono::milliseconds(showsProgress ? 0 : 10'000));
            go();
            const std::string text = std::to_string(++length);
            Write(Sample("", text));
            EXPECT_TRUE(WaitForLength("30", text)) << border;
            EXPECT_TRUE(QTest::qWaitFor(isThere, 3000)) << border << showsProgress;
        }
}

TEST_F(ReloadTest, LeavesTheDocumentAloneWhere) {
    m_window->Pane().Expand("Line 30");
    Write("<LandXML>");
    EXPECT_TRUE(QTest::qWaitFor(
        [this] {
            return Message().contains(QStringLiteral("cannot be read; the former document is shown: line 1"));
        },
        3000))
        << "the new one is refused";
    EXPECT_EQ(LengthOf("30"), "1");
    Write(Sample());
    EXPECT_TRUE(QTest::qWaitFor([this] { return Message().isEmpty(); }, 3000)) << "it is as it was";
    Write(Sample("", "2"));
    EXPECT_TRUE(WaitForLength("30", "2"));

    Edit("length", "7");
    FileAction("Save").trigger();
    WaitAWhile();
    EXPECT_TRUE(EditAction("Undo").isEnabled()) << "the inspector itself has written it";

    fs::last_write_time(m_path, fs::file_time_type::clock::now());
    WaitAWhile();
    EXPECT_TRUE(EditAction("Undo").isEnabled()) << "it was touched only";

    ClickValue("length");
    Type("8+");
    Write(Sample("", "3"));
    WaitAWhile();
    EXPECT_TRUE(EditAction("Undo").isEnabled()) << "what is being typed is refused";
}

TEST_F(ReloadTest, AsksBeforeEditsAreLost) {
    m_window->Pane().Expand("Line 30");
    Edit("length", "7");
    const auto answerOnce = [this](const char* button) {
        const int before = m_boxes;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, &timer, [&, button] {
            if (!QApplication::activeModalWidget())
                return;
            timer.stop();
            Answer(button);
        });
        timer.start(50);
        EXPECT_TRUE(QTest::qWaitFor([&] { return m_boxes > before; }, 3000));
    };
    Write(Sample("", "2"));
    answerOnce("Cancel");
    EXPECT_EQ(LengthOf("30"), "7");
    std::ofstream(m_folder.Path() / "other.xml") << "in the same folder";
    WaitAWhile();
    EXPECT_EQ(m_boxes, 1) << "not again for the same file";
    Answer("Cancel");
    FileAction("Reload").trigger();
    EXPECT_EQ(LengthOf("30"), "7");
    Answer("Reload");
    FileAction("Reload").trigger();
    EXPECT_EQ(LengthOf("30"), "2");
    EXPECT_FALSE(m_window->isWindowModified());
    EXPECT_FALSE(EditAction("Undo").isEnabled());
    EXPECT_EQ(m_boxes, 3);
}

} // namespace

} // namespace korvel::inspector
