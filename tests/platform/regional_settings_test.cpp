#include "korvel/platform/code_page.h"
#include "korvel/platform/date_pattern.h"
#include "korvel/platform/error.h"
#include "korvel/platform/integer_text.h"
#include "korvel/platform/regional_settings.h"
#include "korvel/platform/store_problem.h"
#include "support/scratch.h"

#include <fstream>
#include <gtest/gtest.h>
#include <memory>
#include <sqlite3.h>

namespace korvel::platform {
namespace {

using namespace internal;

// Runs statements on a store, which stays open.
std::shared_ptr<sqlite3> OtherProgram(const std::filesystem::path& file, const char* statements) {
    sqlite3* store = nullptr;
    sqlite3_open(file.c_str(), &store);
    sqlite3_exec(store, statements, nullptr, nullptr, nullptr);
    return {store, sqlite3_close};
}

class RegionalSettingsTest : public testing::Test {
protected:
    ~RegionalSettingsTest() override { UseLocale(""); }

    static RegionalSettings Of(const char* locale) {
        EXPECT_TRUE(UseLocale(locale)) << locale;
        return ReadRegionalSettings();
    }

    ScratchStore m_store;
    ScratchVariable m_none[5] = {{"LC_ALL", nullptr},
                                 {"LC_NUMERIC", nullptr},
                                 {"LC_TIME", nullptr},
                                 {"LC_MESSAGES", nullptr},
                                 {"LANG", nullptr}};
};

TEST_F(RegionalSettingsTest, KnowsTheFormatsOfCountries) {
    const std::pair<const char*, const char*> rows[] = {
        {"de_DE.UTF-8", ",. 3;0 DEU"}, {"de", ",. 3;0 DEU"},      {"fr-FR", ",\xA0 3;0 FRA"},
        {"de-CH", ".\x92 3;0 CHE"},    {"en-US", "., 3;0 USA"},   {"hi-IN", "., 3;2;0 IND"},
        {"ar-EG", "., 3;0 EGY"},       {"de_DE_X", ",. 3;0 DEU"}, {"ja_JP_TRADITIONAL", "., 3;0 JPN"}};
    for (const auto& [locale, formats] : rows) {
        const RegionalSettings s = Of(locale);
        EXPECT_EQ(s.decimalSeparator + s.thousandsSeparator + " " + s.grouping + " " + s.countryName, formats)
            << locale;
    }
    EXPECT_EQ(ToUtf8(Of("bg-BG").shortDatePicture), "d.MM.yyyy '\u0433'.");
    EXPECT_EQ(Of("en-US").timePicture, "h:mm:ss tt") << "a plain blank before the half of the day";
    EXPECT_EQ(Of("th-TH").shortDatePicture, "d/M/yyyy") << "the Gregorian calendar everywhere";
    const RegionalSettings german = Of("de-DE");
    EXPECT_EQ(german.longDatePicture, "dddd, d. MMMM yyyy");
    EXPECT_EQ(german.timePicture, "HH:mm:ss");
    EXPECT_EQ(german.names.months[2], "M\xE4rz");
    EXPECT_EQ(german.names.days[0], "Sonntag");
    EXPECT_EQ(german.names.shortDays[6], "Sa");
    const RegionalSettings polish = Of("pl-PL");
    EXPECT_EQ(polish.names.months[2], "marzec") << "nominative";
    EXPECT_EQ(ToUtf8(polish.names.months[9]), "pa\u017Adziernik") << "a letter that the page lacks";
    EXPECT_EQ(Of("sr_RS.UTF-8@latin").names.months[0], "januar") << "each in its script";
    EXPECT_EQ(ToUtf8(Of("sr_RS").names.months[0]), "\u0458\u0430\u043D\u0443\u0430\u0440");
    const RegionalSettings latin = Of("sr_Latn");
    EXPECT_EQ(latin.names.months[0], "januar");
    EXPECT_EQ(latin.countryName, "SRB");
}

TEST_F(RegionalSettingsTest, TakesTheLocaleOfTheEnvironment) {
    const auto thousands = [] { return ReadRegionalSettings().thousandsSeparator; };
    const auto country = [] { return ReadRegionalSettings().countryName; };
    EXPECT_EQ(country(), "USA") << "nothing is set";
    const ScratchVariable lang("LANG", "de_CH.UTF-8");
    EXPECT_EQ(country(), "CHE");
    EXPECT_EQ(UserLanguage(), "de");
    {
        const ScratchVariable numeric("LC_NUMERIC", "de_AT@euro");
        const ScratchVariable time("LC_TIME", "pl_PL.UTF-8");
        EXPECT_EQ(country(), "POL");
        EXPECT_EQ(thousands(), "\xA0");
        const ScratchVariable all("LC_ALL", "C.UTF-8");
        EXPECT_EQ(UserLanguage(), "en");
        EXPECT_EQ(thousands(), ",") << "the C library's own, which comes before all others";
    }
    const ScratchVariable numeric("LC_NUMERIC", "xx_YY");
    EXPECT_EQ(thousands(), ",") << "unknown";
    EXPECT_TRUE(UseLocale("fr-FR"));
    EXPECT_FALSE(UseLocale("xx-YY"));
    EXPECT_EQ(country(), "FRA") << "a refusal changes nothing";
    EXPECT_EQ(UserLanguage(), "de") << "the language of the machine is not the locale";
}

TEST_F(RegionalSettingsTest, LetsTheUserOverride) {
    for (const char* name : {"sLongDate", "sShortDate", "sTimeFormat"})
        WriteRegional(name, SettingValue::Text(name));
    WriteRegional("iDigits", SettingValue::Text("3"));
    WriteRegional("iLZero", SettingValue::Text("0"));
    WriteRegional("inegnumber", SettingValue::Text("4"));
    WriteRegional("sThousand", SettingValue::Text(""));
    WriteRegional("sDecimal", SettingValue::Text(std::string_view("'\0x", 3)));
    WriteRegional("sGrouping", SettingValue::Binary("1"));
    const RegionalSettings changed = Of("de-DE");
    EXPECT_EQ(changed.longDatePicture + changed.shortDatePicture, "sLongDatesShortDate");
    EXPECT_EQ(changed.timePicture, "sTimeFormat");
    EXPECT_EQ(changed.digits, 3);
    EXPECT_EQ(changed.leadingZero, 0);
    EXPECT_EQ(changed.negativeOrder, 4);
    EXPECT_EQ(changed.thousandsSeparator, "") << "empty is a choice";
    EXPECT_EQ(changed.decimalSeparator, "'") << "up to the first zero";
    EXPECT_EQ(changed.grouping, "3;0") << "not a text";

    OtherProgram(m_store.File(), "UPDATE settings SET value = 1.5 WHERE name = 'sdecimal'");
    std::string told;
    SetStoreProblemListener([&](const StoreProblem& problem) { told += problem.valueName + problem.text; });
    const RegionalSettings mostly = ReadRegionalSettings();
    EXPECT_EQ(mostly.decimalSeparator, ",") << "a fraction is no setting";
    EXPECT_EQ(mostly.timePicture, "sTimeFormat");
    EXPECT_TRUE(told.starts_with("sDecimalThe settings store " + m_store.File().string())) << told;

    std::vector<StoreProblem::Kind> kinds;
    SetStoreProblemListener([&](const StoreProblem& problem) { kinds.push_back(problem.kind); });
    const auto holder = OtherProgram(m_store.File(), "PRAGMA journal_mode=delete; BEGIN EXCLUSIVE");
    ReadRegionalSettings();
    SetStoreProblemListener(nullptr);
    EXPECT_EQ(kinds, std::vector{StoreProblem::Kind::OutOfReach}) << "the same file, another problem";
}

TEST_F(RegionalSettingsTest, TakesTheLocalesWhereTheStoreCannotBeRead) {
    WriteRegional("sDecimal", SettingValue::Text("'"));
    const auto decimal = [] { return ReadRegionalSettings().decimalSeparator; };
    EXPECT_TRUE(UseLocale("de-DE"));
    std::ofstream(m_store.File(), std::ios::app).close();
    std::filesystem::resize_file(m_store.File(), 100);
    EXPECT_EQ(decimal(), ",") << "nobody listens";
    using enum StoreProblem::Kind;
    std::vector<StoreProblem::Kind> told;
    SetStoreProblemListener([&](const StoreProblem& problem) {
        EXPECT_NE(problem.text.find(StorePath(problem.root).string()), std::string::npos);
        told.push_back(problem.kind);
    });
    EXPECT_EQ(told, std::vector{Damaged}) << "what came before is told first";
    EXPECT_EQ(decimal(), ",");
    EXPECT_EQ(told.size(), 1u) << "once a file";
    SetStoreAside(SettingsRoot::User);
    std::ofstream(m_store.File()) << "no database at all, but long enough to be looked at as one";
    EXPECT_EQ(decimal(), ",");
    EXPECT_EQ(told.size(), 2u) << "another file of the same name";

    SetStorePath(SettingsRoot::User, m_store.Path() / "locked");
    WriteRegional("sDecimal", SettingValue::Text("'"));
    {
        const auto holder =
            OtherProgram(StorePath(SettingsRoot::User), "PRAGMA journal_mode=delete; BEGIN EXCLUSIVE");
        EXPECT_EQ(decimal(), ",");
    }
    EXPECT_EQ(decimal(), "'");
    EXPECT_EQ(told, (std::vector{Damaged, Damaged, OutOfReach}));
    {
        SetStorePath(SettingsRoot::User, m_store.Path() / "refused");
        WriteRegional("sDecimal", SettingValue::Text("'"));
        chmod(StorePath(SettingsRoot::User).c_str(), 0000);
        const OrdinaryUser user;
        EXPECT_EQ(decimal(), ",");
    }
    EXPECT_EQ(told, (std::vector{Damaged, Damaged, OutOfReach, OutOfReach}))
        << "without the right to read it";

    SetStoreProblemListener(nullptr);
    for (const char* name : {"first", "second"}) {
        SetStorePath(SettingsRoot::User, m_store.Path() / name);
        std::ofstream(StorePath(SettingsRoot::User)) << std::string(5000, 'x');
        EXPECT_EQ(decimal(), ",");
    }
    EXPECT_ANY_THROW(SetStoreProblemListener([](const StoreProblem&) { throw Error("listener"); }));
    SetStoreProblemListener([&](const StoreProblem&) { told.push_back(Damaged); });
    EXPECT_EQ(told.size(), 5u) << "the rest is kept for the next";
    SetStoreProblemListener(nullptr);
}

TEST(DatePattern, BecomesAPicture) {
    const std::pair<const char*, const char*> cases[] = {
        {"EEE, d MMM yy", "ddd, d MMM yyyy"},
        {"d MMMM G y", "d MMMM yyyy"}, // no era, nor the blank after it
        {"dd.MM.y 'd''E'", "dd.MM.yyyy 'd''E'"},
        {"kk:mm:ss a", "HH:mm:ss tt"},
        {"LLLLL", "MMMM"}};
    for (const auto& [pattern, picture] : cases)
        EXPECT_EQ(PictureOfPattern(pattern), picture);
}

TEST(IntegerText, ReadsThePlainBeginning) {
    const std::pair<const char*, int> cases[] = {{"3;2;0", 3},
                                                 {" \t+7", 7},
                                                 {"-12 m", -12},
                                                 {"", 0},
                                                 {"x1", 0},
                                                 {"- 1", 0},
                                                 {"--1", 0},
                                                 {"2147483648", 2147483647},
                                                 {"-2147483649", -2147483647 - 1},
                                                 {"99999999999999999999999", 2147483647}};
    for (const auto& [text, number] : cases)
        EXPECT_EQ(ReadInteger(text), number) << text;
}

} // namespace
} // namespace korvel::platform
