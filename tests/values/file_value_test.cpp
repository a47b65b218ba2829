#include "values/file_value.h"
#include "values/text_table.h"
#include "window/headless_display.h"

#include <gtest/gtest.h>

namespace korvel {
namespace {

/// Answers as it is told and remembers what it was asked.
class Chooser : public HeadlessDisplay {
public:
    Chooser() { SetDisplay(this); }
    ~Chooser() override { SetDisplay(nullptr); }
    std::optional<CString> ChooseFile(HWND owner, const FileQuery& asked) override {
        query = asked;
        return HeadlessDisplay::ChooseFile(owner, asked);
    }
    FileQuery query;
};

class FileValue : public ::testing::Test {
protected:
    FileValue() { SetLanguageForThisRun("English"); }
    Chooser m_display;
};

TEST_F(FileValue, ChoosesInTheFileDialog) {
    CFileValueImp file;
    file.m_strFilter = Text(4);
    file.m_strDefaultExtension = "xml";
    m_display.AnswerNextFile("new.xml");
    EXPECT_STREQ(file.Choose("old.xml", nullptr), "new.xml");
    EXPECT_TRUE(m_display.query.open);
    EXPECT_TRUE(m_display.query.promptOnOverwrite);
    EXPECT_EQ(m_display.query.path, "old.xml");
    EXPECT_EQ(m_display.query.defaultExtension, "xml");
    EXPECT_EQ(m_display.query.filter, "All Files  (*.*)|*.*|XML Files (*.xml)|*.xml||");
}

TEST_F(FileValue, KeepsThePathWhenTheUserCancels) {
    CFileValueImp file;
    file.m_bAppendAllFiles = false;
    file.m_bOpen = 0;
    m_display.AnswerNextFile(std::nullopt);
    EXPECT_STREQ(file.Choose("old.xml", nullptr), "old.xml");
    EXPECT_FALSE(m_display.query.open);
    EXPECT_EQ(m_display.query.filter, "|");
    m_display.AnswerNextFile(std::nullopt);
    EXPECT_STREQ(file.Choose(nullptr, nullptr), "");
}

TEST_F(FileValue, TheContainerHoldsOneKind) {
    IFileContainer& container = GetFileContainer();
    IFileValue* documents = container.GetFileValue(4);
    ASSERT_NE(documents, nullptr);
    EXPECT_EQ(container.GetFileValue(-17), documents); // kept: whatever is asked for
    EXPECT_EQ(container.GetFileKind(documents), 4);
    CFileValueImp stranger;
    EXPECT_EQ(container.GetFileKind(&stranger), -1);
    const std::string filter = static_cast<CFileValueImp*>(documents)->m_strFilter;
    std::size_t at = 0;
    for (const int id : {2, 3, 4, 8, 9, 5, 6, 7}) {
        EXPECT_EQ(filter.compare(at, std::string(Text(id)).size(), Text(id)), 0) << id;
        at += std::string(Text(id)).size();
    }
    EXPECT_EQ(filter.size(), at);
}

} // namespace
} // namespace korvel
