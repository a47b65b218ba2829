#include "korvel/platform/calendar.h"
#include "support/scratch.h"

#include <gtest/gtest.h>
#include <limits>

namespace korvel::platform {

namespace {

const std::tuple<const char*, double, CalendarFields> Dates[] = {
    {"the zero day is a Saturday", 0, {1899, 12, 30, 0, 0, 0, 6, 364}},
    {"1900 has no leap day", 60, {1900, 2, 28, 0, 0, 0, 3, 59}},
    {"the day after it", 61, {1900, 3, 1, 0, 0, 0, 4, 60}},
    {"2000 has one", 36585, {2000, 2, 29, 0, 0, 0, 2, 60}},
    {"the fraction of a negative date counts forward", -1.25, {1899, 12, 29, 6, 0, 0, 5, 363}},
    {"a time on the first day", -657434.5, {100, 1, 1, 12, 0, 0, 5, 1}},
    {"the last day", 2958465, {9999, 12, 31, 0, 0, 0, 5, 365}},
    {"just below the half of the last second", 44000.99999421, {2020, 6, 18, 23, 59, 59, 4, 170}},
    {"just above it: all fields move along", 44000.99999422, {2020, 6, 19, 0, 0, 0, 5, 171}},
    {"into the next year", 43830.999999, {2020, 1, 1, 0, 0, 0, 3, 1}},
    {"forward on a negative day", -1.999999, {1899, 12, 30, 0, 0, 0, 6, 364}},
    {"below zero is the zero day", -0.5, {1899, 12, 30, 12, 0, 0, 6, 364}},
};

TEST(Calendar, TakesDatesApartAndPutsThemTogether) {
    for (const auto& [border, date, fields] : Dates) {
        EXPECT_EQ(FieldsFromDate(date), fields) << border;
        EXPECT_EQ(FieldsFromDate(DateFromFields(fields).value()), fields) << border;
    }
    for (const int year : {1899, 2024}) { // before and after the zero day
        for (int second = 0; second < 86400; second += 7) {
            const CalendarFields fields{year, 2, 27, second / 3600, second / 60 % 60, second % 60};
            const auto back = FieldsFromDate(DateFromFields(fields).value()).value();
            ASSERT_EQ(back.hour * 3600 + back.minute * 60 + back.second, second) << year;
            ASSERT_EQ(back.day, 27) << year << " at " << second;
        }
    }
}

TEST(Calendar, RefusesWhatIsNoDate) {
    using Limits = std::numeric_limits<double>;
    for (const double date : {-657435.0, 2958466.0, 2958465.9999999, 1e300, Limits::infinity(),
                              -Limits::infinity(), Limits::quiet_NaN()})
        EXPECT_EQ(FieldsFromDate(date), std::nullopt) << date;
    const CalendarFields wrong[] = {{2021, 2, 29},  {2020, 4, 31},       {2020, 13, 1},
                                    {2020, 0, 1},   {2020, 1, 0},        {99, 12, 31},
                                    {10000, 1, 1},  {2020, 1, 1, 24},    {2020, 1, -1},
                                    {2020, 257, 1}, {2020, 1, 1, 0, 60}, {2020, 1, 1, 0, 0, -1}};
    for (const CalendarFields& fields : wrong)
        EXPECT_EQ(DateFromFields(fields), std::nullopt) << fields.year << '-' << fields.month;
}

TEST(Calendar, GivesLocalTime) {
    const ScratchVariable zone("TZ", "CET-1CEST,M3.5.0,M10.5.0/3");
    EXPECT_EQ(LocalFieldsFromEpoch(0), (CalendarFields{1970, 1, 1, 1, 0, 0, 4, 1}));
    EXPECT_EQ(LocalFieldsFromEpoch(1592438400), (CalendarFields{2020, 6, 18, 2, 0, 0, 4, 170})); // in summer
    EXPECT_EQ(LocalFieldsFromEpoch(-1), std::nullopt);
    EXPECT_TRUE(LocalFieldsFromEpoch(32535215999));
    EXPECT_EQ(LocalFieldsFromEpoch(32535216000), std::nullopt);
}

TEST(Calendar, NoticesAnotherZoneAtOnce) {
    for (const auto& [zone, hour] : {std::pair{"UTC", 0}, {"CET-1", 1}, {"", 0}, {"EET-2", 2}}) {
        const ScratchVariable inForce("TZ", zone);
        EXPECT_EQ(LocalFieldsFromEpoch(0)->hour, hour) << zone;
    }
}

} // namespace
} // namespace korvel::platform
