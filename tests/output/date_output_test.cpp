#include "korvel/output/date_output.h"
#include "korvel/output/date_picture.h"
#include "korvel/output/dates.h"
#include "support/german_machine.h"

#include <clocale>
#include <limits>

namespace korvel {
namespace {

using namespace internal;

using Dates = GermanMachine;

constexpr double Thursday = 44000.0; // 18 June 2020

TEST(DatePictures, BecomeFormats) {
    const std::pair<const char*, const char*> dates[] = {
        {"dddd, d. MMMM yyyy", "%A, %#d. %B %Y"},
        {"dd.MM.yy", "%d.%m.%y"},
        {"ddd MMM y", "%a %b %y"},
        {"yyy", ""},
        {"ddddd", ""},
        {"DdmM", "%d%m"},
        {"d 'de' m%", "%#d '%#de' %#m%"}, // apostrophes mean nothing
    };
    for (const auto& [picture, format] : dates)
        EXPECT_EQ(DatePictureToFormat(picture), format) << picture;
    const std::pair<const char*, const char*> times[] = {
        {"HH:mm:ss", "%H:%M:%S"},
        {"h 'Uhr' tt", "%#I Uhr %p"},
        {"Hh", "%#H%#I"},
        {"hhh:m", ":%#M"},
        {"M'open", "%#Mopen"},
        {"''t", "%p"},
        {"hh:s xx", "%I:%#S %p"},
        {"HHHmmmssstttHHHHmmmmsssstttt xxx", " "},
        {"'", ""},
        {"ddX", "dd%p"},
    };
    for (const auto& [picture, format] : times)
        EXPECT_EQ(TimePictureToFormat(picture), format) << picture;
}

TEST_F(Dates, AsText) {
    EXPECT_EQ(DatetoString(Thursday), "Donnerstag, 18. Juni 2020");
    EXPECT_EQ(DatetoString("GDT_VALID", 61), "Donnerstag, 1. M\xE4rz 1900");
    EXPECT_EQ(DatetoString("GDT_NONE", Thursday), "");
    EXPECT_EQ(DatetoString("gdt_valid", Thursday), "");
    EXPECT_EQ(DatetoString(3e6), "Invalid DateTime");
    EXPECT_EQ(DatetoString(std::numeric_limits<double>::quiet_NaN()), "Invalid DateTime");
    SetDateCurrentFormatString(false, "%d.%Q");
    EXPECT_EQ(DatetoString(Thursday), "");
}

TEST_F(Dates, TimesAreLocal) {
    const platform::ScratchVariable zone("TZ", "UTC");
    const std::string before = std::setlocale(LC_TIME, nullptr);
    EXPECT_EQ(TimetoString(3723), "01:02:03");
    EXPECT_EQ(TimetoString(-1), "Invalid DateTime");
    EXPECT_EQ(std::setlocale(LC_TIME, nullptr), before); // "DEU" is no name that the C library knows
    const platform::ScratchVariable all("LC_ALL", "C.UTF-8");
    platform::UseLocale("eo"); // a language of no country
    Fire_OnSystemChanged(nullptr, nullptr);
    TimetoString(0);
    EXPECT_EQ(std::setlocale(LC_TIME, nullptr), before) << "not the environment's";
}

TEST_F(Dates, SettingTheCurrentFormatCallsListenersOnce) {
    CountingSink sink(FormatService::Date);
    bool isLong = false;
    std::string format;
    GetDateCurrentFormatString(isLong, format);
    EXPECT_TRUE(isLong);
    SetDateCurrentFormatString(false, format); // in use already
    EXPECT_EQ(sink.count, 0);
    EXPECT_STREQ(GetFormatStringShort(), "%d.%m.%Y");

    SetDateCurrentFormatString(false, "%Y");
    EXPECT_EQ(sink.count, 1);
    EXPECT_STREQ(GetFormatStringShort(), "%Y");
    EXPECT_STREQ(GetFormatStringLong(), "%A, %#d. %B %Y");
    GetDateCurrentFormatString(isLong, format);
    EXPECT_FALSE(isLong);
    EXPECT_EQ(DatetoString(Thursday), "2020");

    CDateOutput::Instance().SetCurrentPicture(DateFormatKind::Long, "d/m");
    EXPECT_STREQ(GetFormatStringLong(), "%#d/%#m");
    CDateOutput::Instance().ReturnToSystemFormat(DateFormatKind::Short);
    CDateOutput::Instance().ReturnToSystemFormat(DateFormatKind::Short);
    EXPECT_EQ(DatetoString(Thursday), "18.06.2020");
    EXPECT_EQ(sink.count, 3);
}

TEST_F(Dates, TheUsersFormatSurvivesAChangeOfTheSettings) {
    CountingSink sink(FormatService::Date);
    SetRegional("sLongDate", "dd MMMM yyyy");
    EXPECT_EQ(DatetoString(Thursday), "18 Juni 2020");
    EXPECT_EQ(sink.count, 1);

    SetFormatStringLong("%Y!"); // not in use, calls no listener, and is no longer the system's
    SetFormatStringShort("%y!");
    EXPECT_THROW(SetFormatStringLong(nullptr), std::invalid_argument);
    SetRegional("sLongDate", "d MMM yyyy");
    SetRegional("sShortDate", "d.M.yy");
    EXPECT_STREQ(GetFormatStringLong(), "%Y!");
    EXPECT_STREQ(GetFormatStringShort(), "%y!");
    EXPECT_EQ(DatetoString(Thursday), "18 Juni 2020");
    EXPECT_EQ(sink.count, 1);

    SetRegional("sTimeFormat", "H 'Uhr'");
    EXPECT_EQ(CDateOutput::Instance().Formats().defaultTime, "%#H Uhr");
    EXPECT_EQ(sink.count, 2);
}

} // namespace
} // namespace korvel
