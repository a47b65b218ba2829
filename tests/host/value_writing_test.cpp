#include "landxml/number_reading.h"
#include "landxml/number_writing.h"
#include "landxml/value_writing.h"
#include "source/document_reader.h"
#include "support/german_machine.h"
#include "support/make_value.h"

#include <bit>
#include <gtest/gtest.h>
#include <numbers>
#include <random>

namespace korvel::inspector {
namespace {

using std::numbers::pi;

class ValueWritingTest : public GermanMachine {
protected:
    UnitSet UnitsOf(const std::string& attributes) {
        const ElementTree tree = ReadElements("<Units><Metric " + attributes + "/></Units>");
        return ReadUnits(tree, 0);
    }
};

TEST_F(ValueWritingTest, WritesEachValueInTheFormOfItsPlace) {
    struct Row {
        const char* name;
        Meaning meaning;
        CVariantValue value;
        const char* current;
        const char* text; // null: refused
    };
    const Row rows[] = {
        {"length", Meaning::Length, MakeValue(DT_LengthDouble, 1.435), "", "1.435"},
        {"no exponent", Meaning::Length, MakeValue(DT_Double, 100000.0), "", "100000"},
        {"small", Meaning::Length, MakeValue(DT_Double, 0.00001), "", "0.00001"},
        {"large", Meaning::Length, MakeValue(DT_Double, 1e300), "", "1e+300"},
        {"sixteen digits", Meaning::Length, MakeValue(DT_Double, 0.1 + 0.2), "", "0.30000000000000004"},
        {"float", Meaning::Length, MakeValue(DT_LengthFloat, 0.1F), "", "0.1"},
        {"whole in a length", Meaning::Length, MakeValue(DT_Int, -7), "", "-7"},
        {"unsigned", Meaning::Number, MakeValue(DT_UInt, 4294967295U), "", "4294967295"},
        {"infinite", Meaning::Station, MakeValue(DT_RoadStationDouble, -HUGE_VAL), "", "-INF"},
        {"no number", Meaning::Number, MakeValue(DT_Double, std::nan("")), "", "NaN"},
        {"angle", Meaning::Angle, MakeValue(DT_AngleDouble, pi), "", "200"},
        {"a typed angle", Meaning::Angle, MakeValue(DT_AngleDouble, 14.0 / 200 * pi), "", "14"},
        {"direction", Meaning::Direction,
         MakeValue(DT_AngleDouble, *RadiansOf("45.3025", AngleUnit::DegreesMinutesSeconds)), "", "45.3025"},
        {"geographic", Meaning::GeographicAngle, MakeValue(DT_AngleDouble, -pi / 8), "", "-22.5"},
        {"huge direction", Meaning::Direction, MakeValue(DT_AngleDouble, 1e308), "", "INF"},
        {"angle as a number", Meaning::Angle, MakeValue(DT_Double, 90.0), "", "100"},
        {"a number as an angle", Meaning::Length, MakeValue(DT_AngleDouble, pi / 2), "", "90"},
        {"digit flag", Meaning::Flag, MakeValue(DT_Bool, true), " 0 ", "1"},
        {"word flag", Meaning::Flag, MakeValue(DT_Bool, true), "false", "true"},
        {"new flag", Meaning::Flag, MakeValue(DT_Bool, false), "", "false"},
        {"date", Meaning::Date, MakeDate("GDT_VALID", 45429.75), "", "2024-05-17"},
        {"date with a zone", Meaning::Date, MakeDate("GDT_VALID", 45429), "2020-03-05+03:00",
         "2024-05-17+03:00"},
        {"date after a wrong one", Meaning::Date, MakeDate("GDT_VALID", 45429), "2018-00-00", "2024-05-17"},
        {"no date", Meaning::Date, MakeDate("GDT_NONE", 45429), "2018-01-01", nullptr},
        {"no day", Meaning::Date, MakeDate("GDT_VALID", 1e9), "", nullptr},
        {"color", Meaning::Color, MakeValue(DT_ColorRGB, 0xFF03024BU), "", "75,2,3"},
        {"text", Meaning::Text, MakeValue(DT_String, "\x81\xE1\xF3 \xE4"), "", "\xC4\xB3 \xC3\xA4"},
        {"a number in a text", Meaning::Text, MakeValue(DT_Double, 1.0), "", nullptr},
        {"a flag in a length", Meaning::Length, MakeValue(DT_Bool, true), "", nullptr},
        {"a group", Meaning::Text, MakeValue(DT_Group, 0), "", nullptr},
    };
    SetAngleUnit('d');
    const UnitSet units = UnitsOf("angularUnit='grads' directionUnit='decimal dd.mm.ss'");
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const auto text = WriteValue({row.meaning}, row.value, row.current, {units});
        EXPECT_EQ(text.has_value(), row.text != nullptr);
        EXPECT_EQ(text.value_or(""), row.text ? row.text : "");
    }
}

TEST_F(ValueWritingTest, KnowsWhatMeansTheSame) {
    LandXmlEnumeration words("arterial|collector ");
    const ValueType list{Meaning::Enumeration, &words};
    EXPECT_TRUE(MeansTheSame(list, words.Selected("collector"), words.Selected("collector ")));
    EXPECT_FALSE(MeansTheSame(list, words.Selected("collector"), words.Selected("arterial")));
    EXPECT_FALSE(MeansTheSame(list, words.Selected("x"), words.Selected("y")));
    EXPECT_TRUE(MeansTheSame({}, MakeValue(DT_ColorRGB, 75U), MakeValue(DT_ColorRGB, 0xFF00004BU)));
    EXPECT_TRUE(MeansTheSame({}, MakeDate("GDT_VALID", 45429.75), MakeDate("GDT_VALID", 45429)));
    EXPECT_FALSE(MeansTheSame({}, MakeDate("GDT_VALID", 45429), MakeDate("GDT_VALID", 45430)));
    EXPECT_TRUE(MeansTheSame({}, MakeValue(DT_LengthDouble, 2.0), MakeValue(DT_Int, 2)));
    EXPECT_FALSE(MeansTheSame({}, MakeValue(DT_LengthDouble, 2.0), MakeValue(DT_Double, 2.5)));
    EXPECT_FALSE(MeansTheSame({}, MakeValue(DT_Double, 1.0), MakeValue(DT_String, "1")));
}

TEST_F(ValueWritingTest, NumbersReadBackToTheSameBits) {
    std::mt19937_64 random(1);
    for (int i = 0; i < 20'000; ++i) {
        const auto number = std::bit_cast<double>(random());
        if (!std::isfinite(number))
            continue;
        const auto read = ReadDouble(NumberText(number));
        ASSERT_TRUE(read) << NumberText(number);
        ASSERT_EQ(std::bit_cast<std::uint64_t>(*read), std::bit_cast<std::uint64_t>(number));
    }
}

// Whatever a file says, written again it means the same double, in no more characters.
TEST_F(ValueWritingTest, AnglesReadBackToTheSameBits) {
    std::mt19937_64 random(2);
    const auto digits = [&](int count) {
        std::string text;
        while (count-- > 0)
            text += static_cast<char>('0' + random() % 10);
        return text;
    };
    for (const AngleUnit unit :
         {AngleUnit::Radians, AngleUnit::Grads, AngleUnit::DecimalDegrees, AngleUnit::DegreesMinutesSeconds})
        for (int i = 0; i < 1'000; ++i) {
            const std::string whole = std::to_string(random() % (i % 3 == 0 ? 2 : 400));
            const std::string text = (random() % 2 ? "-" : "") + whole + "." +
                                     (unit == AngleUnit::DegreesMinutesSeconds
                                          ? std::to_string(random() % 6) + digits(1) +
                                                std::to_string(random() % 6) + digits(1 + random() % 8)
                                          : digits(1 + random() % 12));
            const auto radians = RadiansOf(text, unit);
            ASSERT_TRUE(radians) << text;
            const std::string again = AngleText(*radians, unit);
            ASSERT_EQ(RadiansOf(again, unit), radians) << text << " became " << again;
            ASSERT_LE(again.size(), text.size() + (*radians == 0)) << text << " became " << again;
        }
}

} // namespace
} // namespace korvel::inspector
