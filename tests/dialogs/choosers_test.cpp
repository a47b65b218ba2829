#include "korvel/dialogs/file_container.h"
#include "korvel/dialogs/file_dialog.h"
#include "korvel/dialogs/file_value_imp.h"
#include "korvel/dialogs/select_folder_dlg.h"
#include "korvel/values/language.h"
#include "korvel/values/text_table.h"
#include "korvel/window/base/messages.h"
#include "korvel/window/display/headless_display.h"
#include "support/scratch.h"
#include "support/table.h"

#include <fstream>
#include <gtest/gtest.h>

namespace korvel {
namespace {

using Outcome = FolderAnswer::Outcome;

// Writes down what its choosers are asked.
struct AskedDisplay : HeadlessDisplay {
    std::optional<CString> ChooseFile(HWND owner, const FileQuery& query) override {
        asked.push_back(CString(query.open ? "open " : "save ") + (query.promptOnOverwrite ? "prompt " : "") +
                        (query.fileMustExist ? "exists " : "") + query.path + " " + query.defaultExtension +
                        " " + query.filter);
        return HeadlessDisplay::ChooseFile(owner, query);
    }
    FolderAnswer ChooseFolder(HWND owner, const FolderQuery& query) override {
        const bool plain = query.chooser == FolderQuery::Chooser::Plain;
        asked.push_back((plain ? "plain " : "desktop ") + query.title + " " + query.path);
        return HeadlessDisplay::ChooseFolder(owner, query);
    }
    std::vector<std::string> asked;
};

class ChooserTest : public testing::Test {
protected:
    ChooserTest() {
        SetLanguageForThisRun("English");
        SetDisplay(&display);
    }

    using Asked = std::vector<std::string>;
    AskedDisplay display;
};

TEST_F(ChooserTest, AFileValueTakesTheChosenPathAndKeepsItsOwnAfterCancel) {
    CFileValueImp file;
    file.m_strFilter = Text(4);
    file.m_strDefaultExtension = "xml";
    display.AnswerNextFile("new.xml");
    EXPECT_STREQ(file.Choose("old.xml", nullptr), "new.xml");
    file.m_bAppendAllFiles = false;
    file.m_bOpen = 0;
    display.AnswerNextFile(std::nullopt);
    EXPECT_STREQ(file.Choose(nullptr, nullptr), "");
    EXPECT_EQ(display.asked, (Asked{"open prompt old.xml xml All Files  (*.*)|*.*|XML Files (*.xml)|*.xml||",
                                    "save prompt  xml XML Files (*.xml)|*.xml||"}));
}

TEST_F(ChooserTest, AFileThatMustExistIsAskedForAgain) {
    const platform::ScratchFolder scratch;
    const std::string there = scratch.Path() / "plan.xml";
    const std::string missing = scratch.Path() / "none.xml";
    const std::string astray = scratch.Path() / "none/plan.xml";
    std::ofstream(there) << "<a/>";
    const std::string noFolder = "Folder \"" + (scratch.Path() / "none").string() + "\" not found.";
    const std::string noFile = "File \"" + missing + "\" not found.";
    constexpr unsigned long Path = 0x800;
    constexpr unsigned long File = 0x1000;
    for (const auto& [border, flags, refused, taken, complaint] :
         Table<unsigned long, std::string, std::string, std::string>{
             {"nothing must", 2 | 4, "", astray, ""},
             {"folder, and it is there", Path, "", missing, ""},
             {"folder, and it is not", Path, astray, missing, noFolder},
             {"file, and its folder is not", File, astray, there, noFolder},
             {"file, and it is not", File | Path, missing, there, noFile},
             {"cancelled after that", File, missing, "", noFile},
             {"cancelled", File, "", "", ""}}) {
        SCOPED_TRACE(border);
        AskedDisplay own;
        SetDisplay(&own);
        if (!refused.empty()) {
            own.AnswerNextFile(refused);
            own.AnswerNext(IDOK);
        }
        own.AnswerNextFile(taken.empty() ? std::nullopt : std::optional(taken));
        std::string path = "before";
        EXPECT_EQ(doModalFileDialog(path, 1, nullptr, nullptr, flags, nullptr, nullptr, 0, 0),
                  !taken.empty());
        EXPECT_EQ(path, taken.empty() ? "before" : taken);
        EXPECT_EQ(own.ShownBoxes().empty() ? "" : own.ShownBoxes()[0].text, complaint);
        EXPECT_EQ(own.asked.back().find(refused) != std::string::npos, true) << "begins where the user was";
        EXPECT_EQ(own.asked[0].find("prompt") != std::string::npos, (flags & 2) != 0);
        EXPECT_EQ(own.asked[0].find("exists") != std::string::npos, (flags & File) != 0);
    }
}

TEST_F(ChooserTest, OnlyAFolderChooserThatCannotBeMadeLeadsToThePlainOne) {
    for (const auto& [border, answers, result, folder] :
         Table<std::vector<FolderAnswer>, std::int64_t, CString>{
             {"chosen", {{Outcome::Chosen, "/plans"}}, IDOK, "/plans"},
             {"cancelled", {{Outcome::Cancelled}}, IDCANCEL, ""},
             {"no folder of the file system", {{Outcome::Chosen, ""}}, IDCANCEL, ""},
             {"chosen in the plain one",
              {{Outcome::CannotBeMade}, {Outcome::Chosen, "/plans"}},
              IDOK,
              "/plans"},
             {"cancelled in the plain one", {{Outcome::CannotBeMade}, {Outcome::Cancelled}}, IDCANCEL, ""},
             {"neither can be made", {{Outcome::CannotBeMade}, {Outcome::CannotBeMade}}, IDCANCEL, ""}}) {
        SCOPED_TRACE(border);
        AskedDisplay own;
        SetDisplay(&own);
        Asked expected = {"desktop Target /no/such/folder"};
        if (answers.size() > 1)
            expected.push_back("plain Target /no/such/folder");
        for (const FolderAnswer& answer : answers)
            own.AnswerNextFolder(answer);
        CSelectFolderDlg dialog("Target", "/no/such/folder", nullptr);
        EXPECT_EQ(dialog.DoModal(), result);
        EXPECT_EQ(dialog.GetFolder(), folder);
        EXPECT_EQ(own.asked, expected);
    }
}

TEST_F(ChooserTest, AFileContainerReturnsItsOneKindWhateverIsAskedFor) {
    IFileContainer& container = GetFileContainer();
    IFileValue* documents = container.GetFileValue(4);
    EXPECT_EQ(container.GetFileValue(-17), documents);
    EXPECT_EQ(container.GetFileKind(documents), 4);
    CFileValueImp other;
    EXPECT_EQ(container.GetFileKind(&other), -1);
}

} // namespace
} // namespace korvel
