#include "korvel/output/stations.h"
#include "support/german_machine.h"

#include <iostream>
#include <limits>

namespace korvel {
namespace {

using Stations = GermanMachine;

TEST_F(Stations, AsText) {
    const std::tuple<const char*, const char*, double, const char*, const char*> rows[] = {
        {"both halves", "2", 12345.6, "12,3+45,60", "12+345,60"},
        {"below the first hectometre", "0", 99.0, "0,0+99", "0+099"},
        {"two digits begin", "0", 10.0, "0,0+10", "0+010"},
        {"below the first kilometre", "1", 999.5, "0,9+99,5", "0+999,5"},
        {"zero", "2", 0.0, "0,0+00,00", "0+000,00"},
        {"negative zero", "0", -0.0, "0,0+00", "0+000"},
        {"metres count up from the kilometre below", "0", -1500.0, "-1,5+00", "-2+500"},
        {"just below zero", "1", -0.5, "-0,1+99,5", "-1+999,5"},
        {"never grouped", "0", 1234567890.0, "1234567,8+90", "1234567+890"},
        {"padding counts the digits before rounding", "0", 9.75, "0,0+010", "0+0010"},
        {"metres round past their width", "0", 999.75, "0,9+100", "0+1000"},
        {"not a number", "2", std::numeric_limits<double>::quiet_NaN(), "+", "+"},
        {"infinite", "2", -std::numeric_limits<double>::infinity(), "-inf+", "-inf+"},
    };
    for (const auto& [border, digits, station, railway, road] : rows) {
        SetRegional("iDigits", digits);
        EXPECT_EQ(RailwayStationToString(station), railway) << border;
        EXPECT_EQ(RoadStationToString(station), road) << border;
    }
}

TEST_F(Stations, FloatsSplitInTheirOwnPrecision) {
    EXPECT_EQ(RailwayStationToString(12345.6f), "12,3+45,60");
    EXPECT_EQ(RoadStationToString(262146992.0f), "262147+016,00"); // divided by 1000 the next one
    SetRegional("iDigits", "5");
    EXPECT_EQ(RoadStationToString(123456.7f), "123+456,70312"); // what the float holds
}

TEST(StationSign, IsTheFirstCharacterOfTheSeparator) {
    GTEST_FLAG_SET(death_test_style, "threadsafe"); // it is read once in a process
    const auto run = [] {
        const platform::ScratchStore store;
        platform::WriteRegional("sDecimal", platform::SettingValue::Text("\x81\xE2\xE1,"));
        std::cerr << "<" << RoadStationToString(1.5) << ">";
        std::exit(0);
    };
    EXPECT_EXIT(run(), testing::ExitedWithCode(0),
                "<0\\+001\x81\xE2\xE1"
                "50>");
}

TEST_F(Stations, FollowTheDecimalsButNotTheSignOfTheSettings) {
    CountingSink sink(internal::FormatService::Station);
    ASSERT_EQ(RoadStationToString(1.5), "0+001,50");
    SetRegional("sDecimal", ";");
    EXPECT_EQ(RoadStationToString(1.5), "0+001,50"); // the first one of the process
    SetRegional("iDigits", "-1");
    EXPECT_EQ(RoadStationToString(1.5).size(), 8u + internal::LongestNumberText - 2u);
    EXPECT_EQ(sink.count, 6);
}

TEST_F(Stations, TakeTheirDigitsTogether) {
    std::vector<std::string> seen;
    const CountingSink sink(internal::FormatService::Station, [&] {
        seen.push_back(RoadStationToString(1.0) + " " + RoadStationToString(1.0f));
        throw std::runtime_error("sink");
    });
    EXPECT_THROW(SetStationDigits(1), std::runtime_error);
    EXPECT_THAT(seen, testing::ElementsAre("0+001,0 0+001,0", "0+001,0 0+001,0"));
    SetStationDigits(1);
    EXPECT_EQ(seen.size(), 2u) << "nothing differs";
}

} // namespace
} // namespace korvel
