#include "korvel/values/file_value.h"
#include "korvel/values/text_table.h"
#include "korvel/window/display/headless_display.h"

#include <gtest/gtest.h>

namespace korvel {
namespace {

struct AskedDisplay : HeadlessDisplay {
    std::optional<CString> ChooseFile(HWND owner, const FileQuery& query) override {
        EXPECT_TRUE(query.promptOnOverwrite);
        asked =
            (query.open ? "open " : "save ") + query.path + " " + query.defaultExtension + " " + query.filter;
        return HeadlessDisplay::ChooseFile(owner, query);
    }
    std::string asked;
};

TEST(FileValue, TakesTheChosenPathAndKeepsItsOwnWhenTheUserCancels) {
    SetLanguageForThisRun("English");
    AskedDisplay display;
    SetDisplay(&display);
    CFileValueImp file;
    file.m_strFilter = Text(4);
    file.m_strDefaultExtension = "xml";
    display.AnswerNextFile("new.xml");
    EXPECT_STREQ(file.Choose("old.xml", nullptr), "new.xml");
    EXPECT_EQ(display.asked, "open old.xml xml All Files  (*.*)|*.*|XML Files (*.xml)|*.xml||");
    file.m_bAppendAllFiles = false;
    file.m_bOpen = 0;
    display.AnswerNextFile(std::nullopt);
    EXPECT_STREQ(file.Choose(nullptr, nullptr), "");
    EXPECT_EQ(display.asked, "save  xml XML Files (*.xml)|*.xml||");
    SetDisplay(nullptr);

    IFileValue* documents = GetFileContainer().GetFileValue(4);
    EXPECT_EQ(GetFileContainer().GetFileValue(-17), documents); // kept: whatever is asked for
    EXPECT_EQ(GetFileContainer().GetFileKind(documents), 4);
    EXPECT_EQ(GetFileContainer().GetFileKind(&file), -1);
}

} // namespace
} // namespace korvel
