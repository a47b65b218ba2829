#include "korvel/platform/code_page.h"
#include "korvel/platform/error.h"
#include "korvel/values/language.h"
#include "korvel/window/base/messages.h"
#include "korvel/window/dialog/dialog_items.h"
#include "landxml/feature_codes.h"
#include "landxml/landxml_document.h"
#include "program/document_dialogs.h"
#include "program/document_notes.h"
#include "program/recent_files.h"
#include "program/settings_keys.h"
#include "support/dialog_fixture.h"
#include "support/scratch.h"
#include "support/table.h"
#include "texts/program_texts.h"

#include <fstream>

namespace korvel::inspector {
namespace {

namespace fs = std::filesystem;
using Paths = std::vector<std::string>;
using platform::SettingsRoot;
using platform::SettingValue;

class DocumentNotesTest : public DialogTest {
protected:
    DocumentNotesTest() { SetLanguageForThisRun("German"); }

    std::string Write(const std::string& content) {
        std::string path = m_store.Path() / "plan.xml";
        std::ofstream(path) << "<LandXML xmlns='http://www.landxml.org/schema/LandXML-1.2' version='1.2'>"
                            << content << "</LandXML>";
        return path;
    }

    platform::ScratchStore m_store;
};

TEST_F(DocumentNotesTest, AreKeptForOneFileAlone) {
    const DocumentNotes notes("folder/Plan.xml");
    notes.Keep(DocumentNotes::Codes, "a:1;b:2");
    notes.Keep(DocumentNotes::Description, "one\r\ntwo\n");
    for (const auto& [border, file, codes] : Table<std::string, std::optional<std::string>>{
             {"the same", "folder/Plan.xml", "a:1;b:2"},
             {"on another way", "./folder/../folder/Plan.xml", "a:1;b:2"},
             {"another case", "folder/plan.xml", std::nullopt},
             {"a backslash", "folder\\Plan.xml", std::nullopt},
             {"above", "folder", std::nullopt}})
        EXPECT_EQ(DocumentNotes(file).Find(DocumentNotes::Codes), codes) << border;
    EXPECT_EQ(notes.Find(DocumentNotes::Description), "one\r\ntwo\n");
}

TEST_F(DocumentNotesTest, SayWhenTheyCannotBeKept) {
    fs::permissions(m_store.Path(), fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_exec);
    const platform::OrdinaryUser user;
    EXPECT_THROW(DocumentNotes("plan.xml").Keep(DocumentNotes::Codes, "a:1"), Error);
}

TEST_F(DocumentNotesTest, SayWhenTheyCannotBeRead) {
    DocumentNotes("plan.xml").Keep(DocumentNotes::Codes, "a:1");
    fs::permissions(m_store.File(), fs::perms::none);
    {
        const platform::OrdinaryUser user;
        EXPECT_THROW(DocumentNotes("plan.xml").Find(DocumentNotes::Codes), Error) << "there are some";
    }
    fs::permissions(m_store.File(), fs::perms::owner_all);
    EXPECT_EQ(DocumentNotes("plan.xml").Find(DocumentNotes::Codes), "a:1");
}

TEST_F(DocumentNotesTest, SayInTheLanguageOfTheProcessWhatIsWrongWithTheStore) {
    const DocumentNotes notes("plan.xml");
    const std::function<void()> find = [&] { notes.Find(DocumentNotes::Codes); };
    const std::function<void()> keep = [&] { notes.Keep(DocumentNotes::Codes, "a:1"); };
    const std::function<void()> damage = [&] { std::ofstream(m_store.File()) << std::string(5000, 'x'); };
    const std::function<void()> block = [&] { fs::create_directories(m_store.File()); };
    const std::string file = m_store.File().string();
    const std::string damaged = "die Einstellungen können nicht gelesen werden: " + file +
                                " ist beschädigt; die Datei heißt jetzt " + file;
    fs::create_directories(m_store.File().parent_path());
    for (const auto& [border, spoil, use, text] :
         Table<std::function<void()>, std::function<void()>, std::string>{
             {"damaged, to be read", damage, find, damaged},
             {"damaged, to be written", damage, keep, damaged},
             {"out of reach, to be read", block, find,
              "die Einstellungen können nicht gelesen werden: " + file +
                  " ist gesperrt oder nicht erreichbar"},
             {"out of reach, to be written", block, keep,
              "die Einstellungen können nicht geschrieben werden: " + file +
                  " ist voll, gesperrt oder nicht erreichbar"}}) {
        SCOPED_TRACE(border);
        spoil();
        try {
            use();
            ADD_FAILURE() << "it can be used";
        } catch (const Error& error) {
            EXPECT_THAT(platform::ToUtf8(error.what()), testing::StartsWith(text));
        }
        EXPECT_EQ(fs::exists(file), text != damaged) << "a damaged one is set aside";
    }
}

TEST_F(DocumentNotesTest, CodesOfADocument) {
    for (const auto& [border, content, list, leftOut] : Table<std::string, std::string, std::size_t>{
             {"none", "<Project name='p'/>", "", 0},
             {"each once, as they come",
              "<Feature code='T2'/><CgPoints><CgPoint code='T1'/><CgPoint code='T2'/></CgPoints>",
              "T2:;T1:", 0},
             {"a reference, a letter outside ASCII", "<Feature code='a&amp;&#xE4;'/>", "a&\xE4:", 0},
             {"blanks alone", "<Feature code=' '/>", "", 0},
             {"what a list cannot hold",
              "<Feature code='a;b'/><Feature code='c:'/><Feature code='d'/><Feature code='c:'/>", "d:", 2}}) {
        const LandXmlDocument document(Write(content), {});
        const FeatureCodes codes = FeatureCodesOf(document);
        EXPECT_EQ(codes.list, list) << border;
        EXPECT_EQ(codes.leftOut, leftOut) << border;
    }
}

TEST_F(DocumentNotesTest, AreEditedInTheLibrarysDialogs) {
    const std::string file =
        Write("<Project name='p' desc='first'/><Feature code='T1'/><Feature code='T;2'/>");
    const LandXmlDocument document(file, {});
    const auto press = [this](UINT key) { return [this, key] { Press(key, key == VK_RETURN ? "\r" : ""); }; };
    display.AnswerNext(IDOK);
    display.Then(press(VK_ESCAPE));
    EditCodes(document, file, frame);
    EXPECT_EQ(display.ShownBoxes().at(0).text, InCodePage(TheProgramTexts.oneCodeLeftOut));
    EXPECT_EQ(DocumentNotes(file).Find(DocumentNotes::Codes), std::nullopt) << "cancelled";

    DocumentNotes(file).Keep(DocumentNotes::Codes, "T1:;T3:0.5");
    display.Then(press(VK_INSERT));
    display.Then([] { SetDlgItemTextA(GetParent(GetFocus()), 15064, "T4"); });
    display.Then(press(VK_RETURN));
    display.Then(press(VK_RETURN));
    EditCodes(document, file, frame);
    EXPECT_EQ(DocumentNotes(file).Find(DocumentNotes::Codes), "T1:;T3:0.5;T4:");
    EXPECT_EQ(display.ShownBoxes().size(), 1U) << "what was kept leaves nothing out";
}

TEST_F(DocumentNotesTest, ADescriptionIsTheProjectsUntilOneIsKept) {
    const std::string file = Write("<Project name='p' desc='f&#xFC;r&#10;Achse 3'/>");
    const LandXmlDocument document(file, {});
    const auto type = [this](const char* character) {
        return [this, character] { Press(static_cast<UINT>(*character), character); };
    };
    const auto field = [] { return GetDlgItem(GetParent(GetFocus()), 2110); };
    const auto clear = [&] { korvel::SetWindowTextA(field(), ""); };
    const auto ok = [&] { korvel::SendMessageA(GetDlgItem(GetParent(field()), IDOK), BM_CLICK, 0, 0); };
    const auto cancel = [this] { Press(VK_ESCAPE); };
    for (const auto& [border, offered, act, end, kept] :
         Table<CString, std::function<void()>, std::function<void()>, std::optional<std::string>>{
             {"cancelled", "f\xFCr\nAchse 3", type("A"), cancel, std::nullopt},
             {"not changed", "f\xFCr\nAchse 3", [] {}, ok, std::nullopt},
             {"changed", "f\xFCr\nAchse 3", clear, ok, ""},
             {"empty is one too", "", type("B"), ok, "B"},
             {"kept", "B", [] {}, cancel, "B"}}) {
        SCOPED_TRACE(border);
        display.Then([&, text = offered, doIt = act] {
            EXPECT_EQ(korvel::GetWindowTextA(field()), text);
            doIt();
        });
        display.Then(end);
        EditDescription(document, file, frame);
        EXPECT_EQ(DocumentNotes(file).Find(DocumentNotes::Description), kept);
    }
}

TEST_F(DocumentNotesTest, WhatCannotBeKeptIsEditedOn) {
    const std::string file = Write("<Project name='p' desc='old'/>");
    const LandXmlDocument document(file, {});
    fs::permissions(m_store.Path(), fs::perms::owner_read | fs::perms::owner_exec | fs::perms::group_exec |
                                        fs::perms::others_exec);
    const platform::OrdinaryUser user;
    const auto field = [] { return GetDlgItem(GetParent(GetFocus()), 2110); };
    const auto ok = [&] { korvel::SendMessageA(GetDlgItem(GetParent(field()), IDOK), BM_CLICK, 0, 0); };
    display.Then([&] { korvel::SetWindowTextA(field(), "new"); });
    display.Then(ok);
    display.Then([&] { EXPECT_EQ(korvel::GetWindowTextA(field()), "new"); });
    display.Then(ok); // once more, also without a further change
    display.Then([this] { Press(VK_ESCAPE); });
    display.AnswerNext(IDOK);
    display.AnswerNext(IDOK);
    EditDescription(document, file, frame);
    EXPECT_EQ(display.ShownBoxes().size(), 2U);
}

TEST(RecentFiles, AreListedOnceAndTheLatestFirst) {
    const platform::ScratchStore store;
    EXPECT_EQ(RecentFiles(), Paths());
    for (int i = 0; i < 12; ++i)
        AddRecentFile("/plans/" + std::to_string(i));
    AddRecentFile("/plans/sub/../7");
    Paths expected = {"/plans/7"};
    for (int i = 11; i > 3; --i)
        if (i != 7)
            expected.push_back("/plans/" + std::to_string(i));
    expected.push_back("/plans/3");
    expected.resize(MostRecentFiles);
    EXPECT_EQ(RecentFiles(), expected);
    RemoveRecentFile("/plans/7");
    EXPECT_EQ(RecentFiles().front(), "/plans/11");
    AddRecentFile("here.xml");
    EXPECT_EQ(RecentFiles().front(), (fs::current_path() / "here.xml").string());
    for (const auto& [border, value, files] :
         Table<SettingValue, Paths>{{"no end", SettingValue::Binary("/a"), {}},
                                    {"empty names", SettingValue::Binary(std::string("\0\0/b\0", 5)), {"/b"}},
                                    {"a number", SettingValue::Number(7), {}}}) {
        platform::WriteSetting(SettingsRoot::User, RecentFilesKey, "RecentFiles", value);
        EXPECT_EQ(RecentFiles(), files) << border;
    }
    std::ofstream(store.File()) << "no store";
    AddRecentFile("/plans/1");
    EXPECT_EQ(RecentFiles(), Paths()) << "a damaged store";
}

} // namespace
} // namespace korvel::inspector
