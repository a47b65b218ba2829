#include "../platform/scratch.h"
#include "platform/error.h"
#include "values/registry.h"
#include "values/text_table.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <iostream>

namespace korvel {
namespace {

using platform::SettingsRoot;

/// The language is chosen once in a process, so each case runs in one of its own.
class Language : public ::testing::Test {
protected:
    Language() {
        GTEST_FLAG_SET(death_test_style, "threadsafe");
        platform::SetStorePath(SettingsRoot::Machine, m_store.Path() / "machine.sqlite");
    }
    ~Language() override { platform::SetStorePath(SettingsRoot::Machine, {}); }

    static void Store(SettingsRoot root, const char* name, const char* text) {
        if (!text)
            return;
        platform::CreateKey(root, RegistryPath);
        platform::WriteSetting(root, RegistryPath, name, platform::SettingValue::Text(text));
    }

    [[noreturn]] static void Say(const std::string& text) {
        std::cerr << "<" << text << ">";
        std::exit(0);
    }

private:
    platform::ScratchStore m_store;
};

std::string ErrorTextOf(int id) {
    try {
        return Text(id);
    } catch (const Error& error) {
        return error.what();
    }
}

TEST_F(Language, IsTheUsersElseTheInstalledOne) {
    struct Row {
        const char* language;
        const char* installLanguage;
        const char* forThisRun;
        const char* error;
    };
    const Row rows[] = {
        {"English", "German", nullptr, "<Error>"},
        {"Hungarian", "English", nullptr, "<>"},
        {"French", "English", nullptr, "<Fehler>"},
        {"english", "English", nullptr, "<Fehler>"},
        {"", "English", nullptr, "<Fehler>"},
        {nullptr, "English", nullptr, "<Error>"},
        {"German", nullptr, "English", "<Error>"},
        {nullptr, nullptr, "Hungarian", "<>"},
        {nullptr, nullptr, nullptr, "<Registriepfad .SOFTWARE.Halmond.Korvel. konnte nicht ge.ffnet werden>"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.error);
        EXPECT_EXIT(
            {
                Store(SettingsRoot::User, "Language", row.language);
                Store(SettingsRoot::Machine, "InstallLanguage", row.installLanguage);
                if (row.forThisRun)
                    SetLanguageForThisRun(row.forThisRun);
                Say(ErrorTextOf(26));
            },
            ::testing::ExitedWithCode(0), row.error);
    }
}

TEST_F(Language, IsTriedAgainAfterAFailureAndThenStays) {
    EXPECT_EXIT(
        {
            Store(SettingsRoot::Machine, "Other", "");
            std::string said = ErrorTextOf(26);
            Store(SettingsRoot::Machine, "InstallLanguage", "English");
            said += std::string("|") + Text(26);
            Store(SettingsRoot::User, "Language", "German");
            said += std::string("|") + Text(26) + "|" + GetLanguageName();
            Say(said + (SetLanguageForThisRun("German") ? "|yes|" : "|no|") + Text(26));
        },
        ::testing::ExitedWithCode(0),
        "<Auslesen der Registrievariable .InstallLanguage. schlug fehl.Error.Error.German.no.Error>");
}

TEST_F(Language, OfTheLocaleWhereTheSettingsNameNone) {
    EXPECT_EXIT(
        {
            const platform::ScratchVariable all("LC_ALL", "de_DE.UTF-8");
            const platform::ScratchVariable language("LANGUAGE", nullptr);
            UseLocaleLanguageIfUnset();
            Say(Text(26));
        },
        ::testing::ExitedWithCode(0), "<Fehler>");
    EXPECT_EXIT(
        {
            const platform::ScratchVariable all("LC_ALL", "de_DE.UTF-8");
            Store(SettingsRoot::User, "Language", "English");
            UseLocaleLanguageIfUnset();
            Say(Text(26));
        },
        ::testing::ExitedWithCode(0), "<Error>");
}

TEST_F(Language, RowsStandWhereCallersLookForThem) {
    struct Row {
        int id;
        const char* english;
        const char* german;
    };
    const Row rows[] = {
        {-1, "", ""},
        {0, "invalid input", "Eingabe inkorrekt"},
        {129, "Source coordinate system", "Ziellagebezugssystem"}, // kept: two different systems
        {132, "Unkown", "Unbekannt"},
        {133, "", ""},
    };
    for (const char* language : {"English", "German"}) {
        EXPECT_EXIT(
            {
                SetLanguageForThisRun(language);
                for (const Row& row : rows) {
                    const char* expected = GetLanguage().Column == 0 ? row.english : row.german;
                    if (Text(row.id) != std::string(expected))
                        Say(std::to_string(row.id) + " " + Text(row.id));
                }
                for (int id = 0; id < TextCount; ++id)
                    if ((*Text(id) == '\0') != (id == 53 || id == 85 || id == 86))
                        Say("empty " + std::to_string(id));
                Say("all right");
            },
            ::testing::ExitedWithCode(0), "<all right>");
    }
}

TEST(ReplaceFirst, ReplacesOnceAndDoesNotLookAgain) {
    struct Row {
        const char* text;
        const char* value;
        const char* result;
    };
    const Row rows[] = {
        {"erase '$1'", "A", "erase 'A'"},
        {"$1 and $1", "B", "B and $1"},
        {"$1", "$1$1", "$1$1"},
        {"none", "C", "none"},
        {"$$1", "", "$"},
    };
    for (const Row& row : rows) {
        std::string text = row.text;
        ReplaceFirst(text, "$1", row.value);
        EXPECT_EQ(text, row.result);
    }
}

} // namespace
} // namespace korvel
