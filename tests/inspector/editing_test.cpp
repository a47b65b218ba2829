#include "inspector/edited_window.h"
#include "landxml/row_icon.h"

namespace korvel::inspector {

namespace {

constexpr const char* Source =
    "<?xml version='1.0'?>\r\n<LandXML><!-- one -->\r\n  <Line  length = '1.50'\tname=\"a &amp; b\" "
    "radius='7'/>\r\n</LandXML>\r\n";

class EditingTest : public EditedWindowTest {
protected:
    EditingTest() : EditedWindowTest(Source) { m_window->Pane().ExpandAll(); }
};

TEST_F(EditingTest, WhatIsTypedIsUndoneRedoneAndSavedAndChangesNothingElse) {
    Edit("length", "2*(3+4)");
    EXPECT_EQ(ValueOf("length").substr(0, 2), "14");
    EXPECT_TRUE(m_window->isWindowModified());
    EXPECT_EQ(EditAction("Undo").text().remove(u'&'), QStringLiteral("Undo: Member edited: length"));
    EditAction("Undo").trigger();
    EXPECT_EQ(ValueOf("length").substr(0, 3), "1.5");
    EXPECT_FALSE(m_window->isWindowModified());
    EditAction("Redo").trigger();
    EXPECT_EQ(ValueOf("length").substr(0, 2), "14");
    FileAction("Save").trigger();
    std::string expected = Source;
    expected.replace(expected.find("1.50"), 4, "14");
    EXPECT_EQ(Content(), expected);
    EXPECT_FALSE(m_window->isWindowModified());
    EditAction("Undo").trigger();
    EXPECT_TRUE(m_window->isWindowModified());
    FileAction("Save").trigger();
    EXPECT_EQ(Content(), Source);
}

// A grid asks for an icon when a row comes; the rows stay where they are here.
TEST_F(EditingTest, TheIconOfARowFollowsWhatIsEdited) {
    const auto icon = [this](const char* name) {
        return static_cast<RowIcon>(Grid().GetIcon(Grid().NodeAtRow(RowOf(name))));
    };
    EXPECT_EQ(icon("Line a & b"), RowIcon::Line);
    EXPECT_EQ(icon("radius"), RowIcon::Measure);
    IMemberDispatch& line = *Grid().GetDispInterface(RowOf("radius"));
    EXPECT_TRUE(line.ChangeMemberType("radius", DT_String));
    EXPECT_EQ(icon("radius"), RowIcon::Text);
    EXPECT_TRUE(line.RenameMember("radius", "dir"));
    EXPECT_TRUE(line.RenameMember("name", "staEnd"));
    EXPECT_EQ(icon("staEnd [invalid]"), RowIcon::Invalid);
    for (int i = 0; i < 3; ++i)
        EditAction("Undo").trigger();
    EXPECT_EQ(icon("radius"), RowIcon::Measure);
    EXPECT_EQ(icon("name"), RowIcon::Text);
}

TEST_F(EditingTest, SaysInTheStatusBarWhatItHasCopied) {
    const auto copied = [this](const std::function<void()>& copy) {
        m_window->statusBar()->clearMessage();
        copy();
        EXPECT_EQ(m_window->statusBar()->currentMessage(), QStringLiteral("Copied to the clipboard."));
        return QApplication::clipboard()->text().toStdString();
    };
    Grid().SetItemState(RowOf("radius"), LVIS_SELECTED, LVIS_SELECTED);
    EXPECT_EQ(
        copied([this] { m_window->Pane().Send(static_cast<unsigned>(GridCommand::CopyRow)); }).substr(0, 8),
        "radius\t7");
    EXPECT_EQ(copied([this] { m_window->Pane().SelectedObject()->OnMemberCommand("radius", 1); }),
              "Line a & b/radius");
}

TEST_F(EditingTest, SavingCommitsWhatIsBeingTyped) {
    ClickValue("radius");
    Type("8");
    FileAction("Save").trigger();
    EXPECT_THAT(Content(), testing::HasSubstr("radius='8'"));

    ClickValue("radius");
    Type("8+");
    FileAction("Save").trigger();
    EXPECT_THAT(Content(), testing::HasSubstr("radius='8'")) << "refused, and told";
    Type("9");
    FileAction("Save").trigger();
    EXPECT_THAT(Content(), testing::HasSubstr("radius='9'"));
}

TEST_F(EditingTest, AsksBeforeChangesAreLost) {
    Edit("radius", "8");
    Answer("Cancel");
    EXPECT_FALSE(m_window->close());
    Answer("Cancel");
    FileAction("Close").trigger();
    EXPECT_EQ(Grid().GetItemCount(), 4);
    Answer("Save");
    FileAction("Close").trigger();
    EXPECT_THAT(Content(), testing::HasSubstr("radius='8'"));
    EXPECT_EQ(m_boxes, 3);
    EXPECT_TRUE(m_window->OpenOrWarn(m_path));
    m_window->Pane().ExpandAll();
    Edit("radius", "9");
    Answer("Don’t Save");
    EXPECT_TRUE(m_window->close());
    EXPECT_THAT(Content(), testing::HasSubstr("radius='8'"));
    EXPECT_EQ(m_boxes, 4);
}

TEST_F(EditingTest, AsksBeforeItOverwritesWhatAnotherProgramHasWritten) {
    Edit("radius", "8");
    Write("<LandXML/>");
    Answer("Cancel");
    FileAction("Save").trigger();
    EXPECT_EQ(Content(), "<LandXML/>");
    EXPECT_TRUE(m_window->isWindowModified());
    Answer("Overwrite");
    FileAction("Save").trigger();
    EXPECT_THAT(Content(), testing::HasSubstr("radius='8'"));
    EXPECT_EQ(m_boxes, 2);
}

TEST_F(EditingTest, AttributesComeAndGoByTheEditMenu) {
    ClickValue("radius");
    EditAction("Delete Attribute").trigger();
    EXPECT_THAT(Content(), testing::HasSubstr("radius")) << "not saved yet";
    EXPECT_EQ(Grid().GetItemCount(), 3);
    EXPECT_EQ(Status(), QStringLiteral("1 object, 2 members"));
    EXPECT_TRUE(m_window->isWindowModified());
    EditAction("Undo").trigger();
    EXPECT_EQ(Grid().GetItemCount(), 4);
    EXPECT_EQ(Status(), QStringLiteral("1 object, 3 members"));
    EXPECT_FALSE(m_window->isWindowModified());
}

} // namespace

} // namespace korvel::inspector
