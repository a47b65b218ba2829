#include "korvel/output/angle_output.h"
#include "korvel/output/angles.h"
#include "support/german_machine.h"

#include <limits>
#include <numbers>

namespace korvel {
namespace {

using namespace internal;

using Angles = GermanMachine;

template <typename Real>
std::string TextWithUnit(Real radians) {
    std::string text;
    CAngleOutput::Instance().AppendWithUnit(text, radians);
    return text;
}

using std::numbers::pi;
using std::numbers::pi_v;

TEST_F(Angles, UnitsConvertBothWays) {
    const std::tuple<char, char, double, std::string, const char*> rows[] = {
        {'\xB0', '\xB0', 180, "180,00", "\xB0"},
        {'r', 'r', pi, "3,14", " rad"},
        {'g', 'g', 200, "200,00", " gon"},
        {'x', '\xB0', 180, "180,00", "\xB0"}, // any other character
    };
    for (const auto& [unit, unitInForce, halfCircle, text, sign] : rows) {
        SetAngleUnit(unit);
        EXPECT_EQ(GetAngleUnit(), unitInForce);
        EXPECT_EQ(RadToAngle(pi), halfCircle) << unit;
        EXPECT_EQ(AngleToRad(halfCircle), pi) << unit;
        EXPECT_EQ(RadToAngle(pi_v<float>), static_cast<float>(halfCircle)) << unit;
        EXPECT_EQ(AngleToRad(static_cast<float>(halfCircle)), pi_v<float>) << unit;
        EXPECT_EQ(AngleToString(pi), text);
        EXPECT_EQ(AngleToString(pi_v<float>), text);
        EXPECT_EQ(TextWithUnit(pi), text + sign);
        EXPECT_EQ(TextWithUnit(pi_v<float>), text + sign);
    }
}

TEST_F(Angles, WhatIsNoUnitAndWhatCannotBeFormattedStaysInRadians) {
    CAngleOutput::Instance().SetUnit(7); // a file may hold it
    EXPECT_EQ(GetAngleUnit(), '\xB0');
    EXPECT_EQ(RadToAngle(pi), pi);
    EXPECT_EQ(TextWithUnit(pi), "3,14 rad");
    SetAngleUnit('g');
    EXPECT_EQ(AngleToRad(7.0), 0.10995574287564278); // another order of operations gives other last digits
    EXPECT_EQ(RadToAngle(7.0), 445.63384065730696);
    SetAngleUnit('\xB0');
    EXPECT_EQ(AngleToRad(13.0), 0.22689280275926282);
    EXPECT_EQ(AngleToRad(1.0f), 0.01745329424738884f);
    SetAngleFormatFloat(GermanFormat(9));
    SetAngleUnit('r');
    EXPECT_EQ(AngleToString(0.1f), "0,100000000"); // rounded on eight places first
    SetAngleUnit('g');
    EXPECT_EQ(AngleToString(std::numeric_limits<double>::quiet_NaN()), "nan");
    EXPECT_EQ(AngleToString(std::numeric_limits<double>::max()), "1.79769e+308"); // times 200 is infinite
    EXPECT_EQ(TextWithUnit(std::numeric_limits<double>::max()), "1.79769e+308 rad");
}

TEST(AngleUnit, IsRadiansAtTheStart) {
    GTEST_FLAG_SET(death_test_style, "threadsafe"); // of the process
    EXPECT_EXIT(std::exit(GetAngleUnit()), testing::ExitedWithCode('r'), "");
}

TEST_F(Angles, GettersAreCrossedOver) {
    SetAngleFormatDouble(GermanFormat(4));
    SetAngleFormatFloat(GermanFormat(3));
    EXPECT_EQ(AngleToString(1.0), "1,0000");
    EXPECT_EQ(AngleToString(1.0f), "1,000");
    EXPECT_EQ(GetAngleFormatFloat().NumDigits, 4u);
    EXPECT_EQ(GetAngleFormatDouble().NumDigits, 3u);
}

TEST_F(Angles, AChangeOfUnitCallsNoListener) {
    CountingSink sink(FormatService::Angle);
    SetAngleUnit('g');
    EXPECT_EQ(sink.count, 0);
    SetAngleFormatFloat(GermanFormat(3));
    SetAngleFormatFloat(GermanFormat(3));
    EXPECT_EQ(sink.count, 1);
    SetRegional("iDigits", "5"); // the record of double texts alone follows
    EXPECT_EQ(sink.count, 2);
    EXPECT_EQ(AngleToString(pi), "200,00000");
}

} // namespace
} // namespace korvel
