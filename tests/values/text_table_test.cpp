#include "korvel/platform/error.h"
#include "korvel/platform/store_problem.h"
#include "korvel/values/language.h"
#include "korvel/values/registry.h"
#include "korvel/values/replace_first.h"
#include "korvel/values/text_table.h"
#include "korvel/values/type_names.h"
#include "support/scratch.h"

#include <functional>
#include <gtest/gtest.h>
#include <iostream>

namespace korvel {
namespace {

using platform::SettingsRoot;

constexpr const char* Damaged = "damaged";

// A null text: a store without that value.
void Store(SettingsRoot root, const char* name, const char* text) {
    platform::CreateKey(root, RegistryPath);
    if (text == Damaged)
        std::ofstream(StorePath(root)) << std::string(5000, 'x');
    else if (text)
        platform::WriteSetting(root, RegistryPath, name, platform::SettingValue::Text(text));
}

// The language is chosen once in a process, so each case runs in one of its own, which writes its result.
void ExpectResult(const std::function<std::string()>& run, const std::string& result) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const platform::ScratchStore store;
    const auto write = [&] {
        try {
            std::cerr << "<" << run() << ">";
        } catch (const Error& error) {
            std::cerr << "<" << error.what() << ">";
        }
        std::exit(0);
    };
    EXPECT_EXIT(write(), ::testing::ExitedWithCode(0), "<" + result + ">");
}

constexpr int ErrorText = 26; // "Error", "Fehler" and nothing

TEST(Language, IsTheOneOfTheRunElseTheUsersElseTheInstalledOneElseTheLocales) {
    constexpr const char* None = nullptr;
    // The last four without UseLocaleLanguageIfUnset. A '!' stands for a store that the listener was told of.
    const std::tuple<const char*, const char*, const char*, const char*, const char*> rows[] = {
        {"English", "German", None, None, "Error"},
        {None, "English", "German", None, "Error"},
        {None, "Hungarian", "English", None, ""},
        {None, "english", "English", None, "Fehler"},
        {None, None, "English", "de_DE.UTF-8", "Error"},
        {None, None, None, "de_DE.UTF-8", "Fehler"},
        {None, None, None, "fr_FR.UTF-8", "Error"},
        {None, None, None, None, "Auslesen der Registrievariable .InstallLanguage. schlug fehl"},
        {None, Damaged, None, "de_DE.UTF-8", "!Fehler"},
        {None, Damaged, "English", "de_DE.UTF-8", "!Error"},
        {None, None, Damaged, "de_DE.UTF-8", "!Fehler"},
        {None, Damaged, Damaged, "de_DE.UTF-8", "!!Fehler"},
    };
    for (const auto& row : rows) {
        const auto run = [&] {
            const auto& [forThisRun, language, installLanguage, locale, text] = row;
            const platform::ScratchVariable all("LC_ALL", locale);
            Store(SettingsRoot::User, "Language", language);
            Store(SettingsRoot::Machine, "InstallLanguage", installLanguage);
            std::string said;
            platform::SetStoreProblemListener([&](const platform::StoreProblem&) { said += '!'; });
            if (forThisRun)
                SetLanguageForThisRun(forThisRun);
            if (locale && language != Damaged && installLanguage != Damaged)
                UseLocaleLanguageIfUnset();
            const std::string word = Text(ErrorText);
            platform::SetStoreProblemListener(nullptr);
            return said + word;
        };
        ExpectResult(run, std::get<4>(row));
    }
}

TEST(Language, IsTriedAgainAfterAFailureAndThenStays) {
    const auto run = [] {
        EXPECT_THROW(Text(ErrorText), Error);
        Store(SettingsRoot::Machine, "InstallLanguage", "English");
        const std::string said = Text(ErrorText);
        Store(SettingsRoot::User, "Language", "German");
        return said + GetLanguageName() + (SetLanguageForThisRun("German") ? "yes" : "no") + Text(ErrorText);
    };
    ExpectResult(run, "ErrorEnglishnoError");
}

TEST(Language, KeepsTheWordsThatHostsWerePromisedWhereTheyLookForThem) {
    const auto show = [](const char* language) {
        SetLanguageForThisRun(language);
        std::string empty;
        std::uint32_t words = 2166136261; // FNV-1a of them all
        for (int id = -1; id <= TextCount; ++id) {
            empty += *Text(id) ? "" : std::to_string(id) + " ";
            for (const char* byte = Text(id); *byte; ++byte)
                words = (words ^ static_cast<unsigned char>(*byte)) * 16777619;
        }
        return empty + std::to_string(words) + " " + Text(129);
    };
    ExpectResult([&] { return show("English"); }, "-1 53 85 86 133 2336498391 Source coordinate system");
    // Kept: the German text names another system.
    ExpectResult([&] { return show("German"); }, "-1 53 85 86 133 3597104226 Ziellagebezugssystem");
}

TEST(TypeNames, AreTextsOfTheirTypes) {
    const std::pair<EDataTyps, const char*> rows[] = {{DT_UInt, "Unsigned integer"},
                                                      {DT_ColorARGB, "Color ARGB"},
                                                      {DT_ListDouble, "List"},
                                                      {DT_RangeFloat, "Range [0, 100]"},
                                                      {DT_RoadStationFloat, "Road Station"},
                                                      {DT_CurrencyDouble, "Currency"},
                                                      {DT_ManDaysFloat, ""},
                                                      {DT_TextFormInt, ""},
                                                      {static_cast<EDataTyps>(0x200), ""}};
    const auto names = [&] {
        SetLanguageForThisRun("English");
        std::string wrong;
        for (const auto& [type, name] : rows)
            wrong += std::string(Text(internal::TypeNameText(type))) == name ? "" : name;
        return wrong;
    };
    ExpectResult(names, "");
}

TEST(ReplaceFirst, ReplacesOnceAndDoesNotLookAgain) {
    std::string text = "$$1 and $1";
    ReplaceFirst(text, "$1", "$1$1");
    EXPECT_EQ(text, "$$1$1 and $1");
}

} // namespace
} // namespace korvel
