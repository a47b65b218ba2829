#include "korvel/platform/time_text.h"
#include "support/scratch.h"

#include <clocale>
#include <gtest/gtest.h>

namespace korvel::platform {
namespace {

using namespace internal;

constexpr CalendarFields MondayMorning{2024, 2, 5, 9, 8, 7, 1, 36};
constexpr CalendarFields Midnight{2000, 1, 1, 0, 0, 0, 6, 1};
constexpr CalendarFields LastDay{2024, 12, 31, 23, 59, 59, 2, 366};
constexpr CalendarFields FirstSunday{2023, 1, 1, 12, 0, 0, 0, 1};
constexpr CalendarFields LongYearsEnd{2021, 1, 3, 0, 0, 0, 0, 3};

class TimeTextTest : public testing::Test {
protected:
    TimeTextTest() {
        UseLocale("de-DE");
        m_german = ReadRegionalSettings();
    }
    ~TimeTextTest() override { UseLocale(""); }

    ScratchStore m_store;
    RegionalSettings m_german;
};

TEST_F(TimeTextTest, FollowsTheFormat) {
    const std::tuple<const char*, const char*, CalendarFields, const char*> cases[] = {
        {"names", "%A %a %B %b %h", MondayMorning, "Montag Mo Februar Feb Feb"},
        {"zeros, and without", "%d.%m.%H:%M:%S %j %#d.%#m.%#H:%#M:%#S %#j", MondayMorning,
         "05.02.09:08:07 036 5.2.9:8:7 36"},
        {"all zeros dropped leave one", "%#y %#H", Midnight, "0 0"},
        {"midnight is 12", "%I %#I %p", Midnight, "12 12 AM"},
        {"noon is 12", "%I %p", FirstSunday, "12 PM"},
        {"a blank instead of a zero", "[%e] [%#e]", MondayMorning, "[ 5] [5]"},
        {"# does nothing to names and signs", "%#A %#p %#%", MondayMorning, "Montag AM %"},
        {"# reaches the parts", "%#D %D %#T %T", MondayMorning, "2/5/24 02/05/24 9:8:7 09:08:07"},
        {"short and long date, time", "%c | %#c", MondayMorning,
         "05.02.2024 09:08:07 | Montag, 5. Februar 2024 09:08:07"},
        {"week of the year before", "%G-%V %g", FirstSunday, "2022-52 22"},
        {"# does nothing to the year of a week", "%#g %#G", {2009, 6, 1, 0, 0, 0, 1, 152}, "09 2009"},
        {"week 53 of a long year", "%G-%V", LongYearsEnd, "2020-53"},
        {"week of the year after", "%G-%V", LastDay, "2025-01"},
        {"weeks from Sunday and from Monday", "%U %W", FirstSunday, "01 00"},
        {"weeks in the midst of a year", "%U %W", MondayMorning, "05 06"},
        {"weekday numbers", "%u %w", FirstSunday, "7 0"},
        {"century", "%C %F %R", MondayMorning, "20 2024-02-05 09:08"},
        {"other numerals are ignored", "%Ey %#Od", MondayMorning, "24 5"},
        {"unknown specifier", "%d %Q", MondayMorning, ""},
        {"trailing percent sign", "%d %", MondayMorning, ""},
        {"month out of range", "%d", {2024, 13, 1, 0, 0, 0, 0, 1}, ""},
        {"weekday out of range", "%A", {2024, 1, 1, 0, 0, 0, 7, 1}, ""},
    };
    for (const auto& [border, format, fields, text] : cases)
        EXPECT_EQ(TimeText(format, fields, m_german), text) << border;
}

TEST_F(TimeTextTest, EndsWithTheBuffer) {
    const std::string longest(255, 'x');
    EXPECT_EQ(TimeText(longest, MondayMorning, m_german), longest);
    EXPECT_EQ(TimeText(longest + "x", MondayMorning, m_german), "");
}

TEST_F(TimeTextTest, ReadsPicturesOfTheUserAndTheZone) {
    m_german.longDatePicture = "d' de 'MMM 'yy'' %d' yy";
    m_german.timePicture = "tt h 'Uhr";
    const ScratchVariable zone("TZ", "NST3:30NDT");
    EXPECT_EQ(TimeText("%#x|%X|%z %Z", MondayMorning, m_german), "5 de Feb yy %d 24|AM 9 Uhr|-0330 NST");
}

TEST(TimeLocale, StaysWhenTheNameIsUnknown) {
    EXPECT_TRUE(SetTimeLocale("C.UTF-8"));
    EXPECT_FALSE(SetTimeLocale("no such locale"));
    EXPECT_STREQ(std::setlocale(LC_TIME, nullptr), "C.UTF-8");
    EXPECT_TRUE(SetTimeLocale("C"));
}

} // namespace
} // namespace korvel::platform
