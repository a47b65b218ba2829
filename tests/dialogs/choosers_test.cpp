#include "korvel/dialogs/file_container.h"
#include "korvel/dialogs/file_dialog.h"
#include "korvel/dialogs/file_value_imp.h"
#include "korvel/dialogs/select_folder_dlg.h"
#include "korvel/platform/error.h"
#include "korvel/values/language.h"
#include "korvel/values/text_table.h"
#include "korvel/window/base/messages.h"
#include "korvel/window/display/headless_display.h"
#include "support/recorded_window.h"
#include "support/scratch.h"
#include "support/table.h"

#include <fstream>
#include <future>
#include <gtest/gtest.h>
#include <thread>

namespace korvel {
namespace {

using Outcome = FolderAnswer::Outcome;

// Writes down what its choosers are asked.
struct AskedDisplay : HeadlessDisplay {
    std::optional<CString> ChooseFile(HWND owner, const FileQuery& query) override {
        askedOn = std::this_thread::get_id();
        asked.push_back(CString(query.open ? "open " : "save ") + (query.promptOnOverwrite ? "prompt " : "") +
                        (query.fileMustExist ? "exists " : "") + query.path + " " + query.defaultExtension +
                        " " + query.filter);
        return HeadlessDisplay::ChooseFile(owner, query);
    }
    FolderAnswer ChooseFolder(HWND owner, const FolderQuery& query) override {
        const bool plain = query.chooser == FolderQuery::Chooser::Plain;
        askedOn = std::this_thread::get_id();
        asked.push_back((plain ? "plain " : "desktop ") + query.title + " " + query.path);
        return HeadlessDisplay::ChooseFolder(owner, query);
    }
    std::vector<std::string> asked;
    std::thread::id askedOn; // last
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
    for (const auto& [border, open, flags, refused, taken, complaint] :
         Table<int, unsigned long, std::string, std::string, std::string>{
             {"nothing must", 1, 2 | 4, "", astray, ""},
             {"folder, and it is not", 0, Path, astray, missing, noFolder},
             {"file, and its folder is not", 1, File, astray, there, noFolder},
             {"file, and it is not", 1, File | Path, missing, there, noFile},
             {"cancelled after that", 1, File, missing, "", noFile}}) {
        SCOPED_TRACE(border);
        AskedDisplay own;
        SetDisplay(&own);
        if (!refused.empty()) {
            own.AnswerNextFile(refused);
            own.AnswerNext(IDOK);
        }
        own.AnswerNextFile(taken.empty() ? std::nullopt : std::optional(taken));
        std::string path = "before";
        EXPECT_EQ(doModalFileDialog(path, open, nullptr, nullptr, flags, nullptr, nullptr, 0, 0),
                  !taken.empty());
        EXPECT_EQ(path, taken.empty() ? "before" : taken);
        const auto box = own.ShownBoxes().empty() ? HeadlessDisplay::Shown() : own.ShownBoxes()[0];
        EXPECT_EQ(box.text, complaint);
        EXPECT_EQ(box.caption, complaint.empty() ? "" : open ? "Open" : "Save As");
        EXPECT_EQ(own.asked.back().find(refused) != std::string::npos, true) << "begins where the user was";
        EXPECT_EQ(own.asked[0].find("prompt") != std::string::npos, (flags & 2) != 0);
        EXPECT_EQ(own.asked[0].find("exists") != std::string::npos, (flags & File) != 0);
    }
}

TEST_F(ChooserTest, OnlyAFolderChooserThatCannotBeMadeLeadsToThePlainOne) {
    const FolderAnswer plans{Outcome::Chosen, "/plans"};
    for (const auto& [border, answers, result, folder] :
         Table<std::vector<FolderAnswer>, std::int64_t, CString>{
             {"cancelled", {{Outcome::Cancelled}}, IDCANCEL, ""},
             {"no folder of the file system", {{Outcome::Chosen, ""}}, IDCANCEL, ""},
             {"chosen in the plain one", {{Outcome::CannotBeMade}, plans}, IDOK, "/plans"},
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

TEST_F(ChooserTest, AsksOnTheThreadOfTheWindowsAndGivesTheFocusBack) {
    Log log;
    RecordedWindow window("window", log);
    window.Create(WS_VISIBLE, nullptr);
    window.SetFocus();
    const FolderAnswer plans{Outcome::Chosen, "/plans"};
    using Ask = std::function<bool()>;
    for (const auto& [border, answer, ask] : Table<std::function<void()>, Ask>{
             {"file", [&] { display.AnswerNextFile("plan.xml"); },
              [] {
                  std::string path;
                  return doModalFileDialog(path, 1, nullptr, nullptr, 0, nullptr, nullptr, 0, 0);
              }},
             {"folder", [&] { display.AnswerNextFolder(plans); },
              [] { return CSelectFolderDlg(nullptr).DoModal() == IDOK; }}}) {
        SCOPED_TRACE(border);
        log.clear();
        answer();
        EXPECT_TRUE(ask());
        EXPECT_THAT(log, ElementsAre("window no focus", "window focus"));
        EXPECT_THROW(ask(), Error) << "nobody answers";
        EXPECT_EQ(GetFocus(), window.m_hWnd);
        answer();
        auto chosen = std::async(std::launch::async, ask);
        display.PumpUntil(
            [&] { return chosen.wait_for(std::chrono::seconds(0)) == std::future_status::ready; });
        EXPECT_TRUE(chosen.get());
        EXPECT_EQ(display.askedOn, std::this_thread::get_id());
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
