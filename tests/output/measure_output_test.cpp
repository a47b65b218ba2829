#include "german_machine.h"
#include "output/measure_output.h"

#include <limits>

namespace korvel {
namespace {

using Measures = GermanMachine;

TEST_F(Measures, TheSignFollowsWhatCannotBeFormatted) {
    EXPECT_EQ(LengthToString(std::numeric_limits<double>::quiet_NaN()), "nan m");
    EXPECT_EQ(ManDaysToString(-std::numeric_limits<double>::infinity()), "-inf MT");
    EXPECT_EQ(ManDaysToString(std::numeric_limits<double>::max()).size(), 309u + 102u + 6u);
}

TEST_F(Measures, PrecisionChoosesTheFormat) {
    SetFormatFloat(GermanFormat(1));
    SetFormatDouble(GermanFormat(3));
    EXPECT_EQ(AreaToString(2.0f), "2,0 m\xB2");
    EXPECT_EQ(AreaToString(2.0), "2,000 m\xB2");
    EXPECT_EQ(ManDaysToString(2.0f), "2,00 MT"); // formats of their own
}

TEST_F(Measures, ManDaysAreRoundedOnSixPlaces) {
    SetRegional("iDigits", "8");
    EXPECT_EQ(ManDaysToString(0.12345678), "0,12345700 MT");
    EXPECT_EQ(ManDaysToString(0.5f), "0,50000000 MT");
    EXPECT_EQ(LengthToString(0.12345678), "0,12345678 m");
}

TEST_F(Measures, ListenersOfALengthHearOfNumbers) {
    CountingSink manDays(EFormatService::ManDays);
    struct Sink final : IFormatSink {
        void OnFormatChanged(EFormatService service) override { heard.push_back(service); }
        std::vector<EFormatService> heard;
    } sink;
    CLengthOutput::Instance().AddSink(&sink);
    SetFormatDouble(GermanFormat(3));
    CLengthOutput::Instance().RemoveSink(&sink);
    SetFormatDouble(GermanFormat(4));
    EXPECT_EQ(sink.heard, std::vector<EFormatService>{EFormatService::Number});
    EXPECT_EQ(manDays.count, 0);
    SetRegional("iDigits", "3");
    EXPECT_EQ(manDays.count, 2);
}

} // namespace
} // namespace korvel
