#include "german_machine.h"

#include <limits>
#include <numbers>

namespace korvel {
namespace {

using Angles = GermanMachine;
using std::numbers::pi;
using std::numbers::pi_v;

TEST_F(Angles, UnitsConvertBothWays) {
    struct Row {
        char unit;
        char answered;
        double halfCircle;
        const char* text;
    };
    const Row rows[] = {
        {'\xB0', '\xB0', 180, "180,00"},
        {'r', 'r', pi, "3,14"},
        {'g', 'g', 200, "200,00"},
        {'x', '\xB0', 180, "180,00"}, // any other character
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.unit);
        SetAngleUnit(row.unit);
        EXPECT_EQ(GetAngleUnit(), row.answered);
        EXPECT_EQ(RadToAngle(pi), row.halfCircle);
        EXPECT_EQ(AngleToRad(row.halfCircle), pi);
        EXPECT_EQ(RadToAngle(pi_v<float>), static_cast<float>(row.halfCircle));
        EXPECT_EQ(AngleToRad(static_cast<float>(row.halfCircle)), pi_v<float>);
        EXPECT_EQ(AngleToString(pi), row.text);
        EXPECT_EQ(AngleToString(pi_v<float>), row.text);
    }
}

TEST_F(Angles, AFileMayHoldAnUnknownUnit) {
    CAngleOutput::Instance().SetUnit(7);
    EXPECT_EQ(GetAngleUnit(), '\xB0');
    EXPECT_EQ(RadToAngle(pi), pi);
}

TEST_F(Angles, WhatCannotBeFormattedIsWrittenInRadians) {
    SetAngleUnit('g');
    EXPECT_EQ(AngleToString(std::numeric_limits<double>::quiet_NaN()), "nan");
    EXPECT_EQ(AngleToString(std::numeric_limits<double>::max()), "1.79769e+308"); // times 200 is infinite
}

TEST_F(Angles, GettersAreCrossedOver) {
    SetAngleFormatDouble(GermanFormat(4));
    EXPECT_EQ(AngleToString(1.0), "1,0000");
    EXPECT_EQ(AngleToString(1.0f), "1,00");
    EXPECT_EQ(GetAngleFormatFloat().NumDigits, 4u);
    EXPECT_EQ(GetAngleFormatDouble().NumDigits, 2u);
    SetAngleFormatFloat(GermanFormat(3));
    EXPECT_EQ(AngleToString(1.0f), "1,000");
    EXPECT_EQ(GetAngleFormatDouble().NumDigits, 3u);
}

TEST_F(Angles, AChangeOfUnitIsNotTold) {
    CountingSink sink(EFormatService::Angle);
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
