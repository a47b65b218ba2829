#include "platform/code_page.h"
#include "platform/date_pattern.h"
#include "platform/error.h"
#include "platform/integer_text.h"
#include "platform/regional_settings.h"
#include "platform/scratch.h"

#include <fstream>
#include <gtest/gtest.h>

namespace korvel::platform {
namespace {

class RegionalSettingsTest : public testing::Test {
protected:
    ~RegionalSettingsTest() override { UseLocale(""); }

    static RegionalSettings Of(const char* locale) {
        EXPECT_TRUE(UseLocale(locale)) << locale;
        return ReadRegionalSettings();
    }
    static void Override(const char* name, const SettingValue& value) {
        CreateKey(SettingsRoot::User, "Control Panel\\International");
        EXPECT_EQ(WriteSetting(SettingsRoot::User, "Control Panel\\International", name, value),
                  SettingsStatus::Done);
    }

    ScratchStore m_store;
    ScratchVariable m_all{"LC_ALL", nullptr};
    ScratchVariable m_numeric{"LC_NUMERIC", nullptr};
    ScratchVariable m_time{"LC_TIME", nullptr};
    ScratchVariable m_messages{"LC_MESSAGES", nullptr};
    ScratchVariable m_lang{"LANG", nullptr};
};

TEST_F(RegionalSettingsTest, KnowsGerman) {
    const RegionalSettings german = Of("de_DE.UTF-8");
    EXPECT_EQ(german.digits, 2);
    EXPECT_EQ(german.leadingZero, 1);
    EXPECT_EQ(german.negativeOrder, 1);
    EXPECT_EQ(german.longDatePicture, "dddd, d. MMMM yyyy");
    EXPECT_EQ(german.shortDatePicture, "dd.MM.yyyy");
    EXPECT_EQ(german.timePicture, "HH:mm:ss");
    EXPECT_EQ(german.names.months[2], "M\xE4rz");
    EXPECT_EQ(german.names.days[0], "Sonntag");
    EXPECT_EQ(german.names.shortDays[6], "Sa");
}

TEST_F(RegionalSettingsTest, KnowsTheSeparatorsOfEurope) {
    struct Case {
        const char* locale;
        const char* decimal;
        const char* thousands;
        const char* grouping;
        const char* country;
    };
    const Case cases[] = {{"de-AT", ",", "\xA0", "3;0", "AUT"}, {"fr-FR", ",", "\xA0", "3;0", "FRA"},
                          {"hu-HU", ",", "\xA0", "3;0", "HUN"}, {"pl-PL", ",", "\xA0", "3;0", "POL"},
                          {"sv-SE", ",", "\xA0", "3;0", "SWE"}, {"de-CH", ".", "\x92", "3;0", "CHE"},
                          {"en-US", ".", ",", "3;0", "USA"},    {"hi-IN", ".", ",", "3;2;0", "IND"},
                          {"ar-EG", ".", ",", "3;0", "EGY"},    {"de", ",", ".", "3;0", "DEU"}};
    for (const Case& row : cases) {
        const RegionalSettings settings = Of(row.locale);
        EXPECT_EQ(settings.decimalSeparator, row.decimal) << row.locale;
        EXPECT_EQ(settings.thousandsSeparator, row.thousands) << row.locale;
        EXPECT_EQ(settings.grouping, row.grouping) << row.locale;
        EXPECT_EQ(settings.countryName, row.country) << row.locale;
    }
}

TEST_F(RegionalSettingsTest, FitsNamesIntoTheCodePage) {
    const RegionalSettings polish = Of("pl-PL");
    EXPECT_EQ(polish.names.months[2], "marzec") << "nominative";
    EXPECT_EQ(polish.names.months[9], "pazdziernik") << "an accent that the page lacks";
    EXPECT_EQ(polish.names.days[1], "poniedzialek") << "a stroke that the page lacks";
    EXPECT_EQ(Of("tr-TR").names.days[2], "Sali");

    const RegionalSettings greek = Of("el-GR");
    EXPECT_EQ(greek.names.months[2], "March");
    const RegionalSettings bulgarian = Of("bg-BG");
    EXPECT_EQ(bulgarian.shortDatePicture, "yyyy-MM-dd") << "no American order for what cannot be written";
    EXPECT_EQ(Of("en-US").timePicture, "h:mm:ss tt") << "a plain blank before the half of the day";
    EXPECT_EQ(Of("th-TH").shortDatePicture, "d/M/yyyy") << "the Gregorian calendar everywhere";
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
        EXPECT_EQ(thousands(), "\xA0");
        EXPECT_EQ(country(), "POL");
        const ScratchVariable all("LC_ALL", "C.UTF-8");
        EXPECT_EQ(thousands(), ",") << "the C library's own, which stands above all";
        EXPECT_EQ(UserLanguage(), "en");
    }
    const ScratchVariable numeric("LC_NUMERIC", "xx_YY");
    EXPECT_EQ(thousands(), ",") << "unknown";
    EXPECT_TRUE(UseLocale("fr-FR"));
    EXPECT_FALSE(UseLocale("xx-YY"));
    EXPECT_EQ(country(), "FRA") << "a refusal changes nothing";
    EXPECT_EQ(UserLanguage(), "de") << "the language of the machine is not the locale";
}

TEST_F(RegionalSettingsTest, LetsTheUserOverride) {
    for (const char* name : {"sLongDate", "sShortDate", "sTimeFormat"}) {
        Override(name, SettingValue::Text(name));
    }
    Override("iDigits", SettingValue::Text("3"));
    Override("iLZero", SettingValue::Text("0"));
    Override("inegnumber", SettingValue::Text("4"));
    const RegionalSettings changed = Of("de-DE");
    EXPECT_EQ(changed.longDatePicture, "sLongDate");
    EXPECT_EQ(changed.shortDatePicture, "sShortDate");
    EXPECT_EQ(changed.timePicture, "sTimeFormat");
    EXPECT_EQ(changed.digits, 3);
    EXPECT_EQ(changed.leadingZero, 0);
    EXPECT_EQ(changed.negativeOrder, 4);
}

TEST_F(RegionalSettingsTest, TakesAnOverrideUpToItsFirstZero) {
    Override("sThousand", SettingValue::Text(""));
    Override("sDecimal", SettingValue::Text(std::string_view("'\0x", 3)));
    Override("sGrouping", SettingValue::Binary("1"));
    const RegionalSettings changed = Of("de-DE");
    EXPECT_EQ(changed.thousandsSeparator, "") << "empty is a choice";
    EXPECT_EQ(changed.decimalSeparator, "'") << "up to the first zero";
    EXPECT_EQ(changed.grouping, "3;0") << "not a text";
}

TEST_F(RegionalSettingsTest, TellsOfADamagedStore) {
    std::filesystem::create_directories(m_store.File().parent_path());
    std::ofstream(m_store.File()) << "no database at all, but long enough to be looked at as one";
    EXPECT_THROW(ReadRegionalSettings(), Error);
}

TEST(DatePattern, BecomesAPicture) {
    const std::pair<const char*, const char*> cases[] = {
        {"EEE, d MMM yy", "ddd, d MMM yyyy"},
        {"EEEE, d 'de' MMMM 'de' y", "dddd, d 'de' MMMM 'de' yyyy"},
        {"d MMMM G y", "d MMMM yyyy"},
        {"dd.MM.y 'd''E'", "dd.MM.yyyy 'd''E'"},
        {"h:mm:ss a", "h:mm:ss tt"},
        {"kk:mm:ss", "HH:mm:ss"},
        {"LLLLL", "MMMM"},
        {"", ""}};
    for (const auto& [pattern, picture] : cases) {
        EXPECT_EQ(PictureOfPattern(pattern), picture);
    }
}

TEST(IntegerText, ReadsAsThePlatformDoes) {
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
    for (const auto& [text, number] : cases) {
        EXPECT_EQ(ReadInteger(text), number) << text;
    }
}

} // namespace
} // namespace korvel::platform
