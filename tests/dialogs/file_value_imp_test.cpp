#include "korvel/dialogs/file_container.h"
#include "korvel/dialogs/file_value_imp.h"
#include "korvel/values/language.h"
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

TEST(FileValueImp, TakesTheChosenPathAndKeepsItsOwnWhenTheUserCancels) {
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
}

TEST(FileContainer, HoldsOneKindAndReturnsItWhateverIsAskedFor) {
    SetLanguageForThisRun("English");
    IFileContainer& container = GetFileContainer();
    IFileValue* documents = container.GetFileValue(4);
    EXPECT_EQ(container.GetFileValue(-17), documents);
    EXPECT_EQ(container.GetFileKind(documents), 4);
    CFileValueImp other;
    EXPECT_EQ(container.GetFileKind(&other), -1);
}

} // namespace
} // namespace korvel
