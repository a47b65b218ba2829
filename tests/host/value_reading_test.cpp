#include "landxml/landxml_scopes.h"
#include "landxml/number_reading.h"
#include "landxml/value_reading.h"
#include "source/document_reader.h"
#include "support/german_machine.h"

#include <gtest/gtest.h>
#include <numbers>

namespace korvel::inspector {
namespace {

constexpr const char* Metric = R"(<Metric linearUnit="meter" areaUnit="squareMeter" volumeUnit="cubicMeter"
    diameterUnit="millimeter" angularUnit="grads" directionUnit="decimal dd.mm.ss"/>)";
constexpr const char* Imperial = R"(<Imperial linearUnit="foot" areaUnit="acre" volumeUnit="cubicYard"
    angularUnit="decimal degrees" directionUnit="turns" velocityUnit="milesPerHour"/>)";
constexpr const char* Nothing = "<Metric/>";

// The order is that of the rows below.
struct TypedText { // NOLINT(clang-analyzer-optin.performance.Padding)
    const char* name;
    const char* units;
    const char* element;
    const char* attribute;
    const char* text;
    EDataTyps type;
    const char* plain; // plain form of the value
    const char* unit;
    bool isValid;
};

const TypedText Rows[] = {
    {"LengthInMetres", Metric, "Line", "length", " 12.5 ", DT_LengthDouble, "12.5", "", true},
    {"LengthInFeet", Imperial, "Line", "length", "12.5", DT_Double, "12.5", "ft", true},
    {"LengthInUnknownUnit", Nothing, "Line", "length", "12.5", DT_Double, "12.5", "", true},
    {"UnitWithReference", R"(<Metric linearUnit=" a&amp;b"/>)", "Line", "length", "2", DT_Double, "2", "a&b",
     true},
    {"MeterWithReference", R"(<Metric linearUnit=" met&#101;r&#32;"/>)", "Line", "length", "2",
     DT_LengthDouble, "2", "", true},
    {"UnitOutsideAscii", "<Metric areaUnit='\xD0\xBC\xC2\xB2'/>", "Parcel", "area", "2", DT_Double, "2",
     "\x81\xF9\xFC\xB2", true},
    {"UnitWithControlCharacter", "<Metric areaUnit='a&#9;b'/>", "Parcel", "area", "2", DT_Double, "2", "?",
     true},
    {"DegreesWithReference", R"(<Metric angularUnit="decimal&#32;degrees"/>)", "Curve", "delta", "180",
     DT_AngleDouble, "3.14159", "", true},
    {"InfiniteLength", Metric, "Spiral", "radiusEnd", "INF", DT_String, "INF", "", true},
    {"CommaAsDecimal", Metric, "Line", "length", "12,5", DT_String, "12,5", "", false},
    {"HexadecimalIsNoNumber", Metric, "Line", "length", "0x10", DT_String, "0x10", "", false},
    {"WordOfTheCLibrary", Metric, "Line", "length", "inf", DT_String, "inf", "", false},
    {"LeadingPlus", Metric, "Line", "length", "+1e2", DT_LengthDouble, "100", "", true},
    {"TooLargeForADouble", Metric, "Line", "length", "1e999", DT_String, "1e999", "", false},
    {"EmptyIsNotZero", Metric, "Line", "length", "", DT_String, "", "", false},
    {"DiameterInLinearUnit", Imperial, "CircPipe", "diameter", "2", DT_Double, "2", "ft", true},
    {"VolumeInMetres", Metric, "SurfVolume", "volCut", "2", DT_VolumeDouble, "2", "", true},
    {"StationKeepsItsFormInFeet", Imperial, "Alignment", "staStart", "100", DT_RoadStationDouble, "100", "ft",
     true},
    {"AngleInGon", Metric, "Curve", "delta", "200", DT_AngleDouble, "3.14159", "", true},
    {"AngleInRadiansByDefault", Nothing, "Curve", "delta", "2", DT_AngleDouble, "2", "", true},
    {"DirectionInDegreesAndMinutes", Metric, "Line", "dir", "-90.3000", DT_AngleDouble, "-1.57952", "", true},
    {"DirectionInUnknownUnit", Imperial, "Line", "dir", "90", DT_Double, "90", "turns", true},
    {"LatitudeInDegreesByDefault", Metric, "CgPoint", "latitude", "180", DT_AngleDouble, "3.14159", "", true},
    {"FlagInCapitals", Metric, "LandXML", "readOnly", "TRUE", DT_String, "TRUE", "", false},
    {"Integer", Metric, "F", "i", "-1", DT_Int, "-1", "", true},
    {"IntegerOf32Bits", Metric, "LandXML", "crc", "4294967295", DT_String, "4294967295", "", true},
    {"IntegerWithPoint", Metric, "LandXML", "crc", "42949672950.", DT_String, "42949672950.", "", false},
    {"WidePointNumber", Metric, "P", "id", "4294967295", DT_String, "4294967295", "", true},
    {"NegativePointNumber", Metric, "P", "id", "-4294967295", DT_String, "-4294967295", "", false},
    {"PointNumberZero", Metric, "P", "id", "0", DT_String, "0", "", false},
    {"Date", Metric, "LandXML", "date", "1899-12-31", DT_Date, "1", "", true},
    {"DateWithZoneStaysOnItsDay", Metric, "LandXML", "date", "1899-12-31-12:00", DT_Date, "1", "", true},
    {"DateWithRest", Metric, "LandXML", "date", "2023-02-28x", DT_String, "2023-02-28x", "", false},
    {"TimeStamp", Metric, "Application", "timeStamp", "2024-05-17T08:30:00.5Z", DT_String,
     "2024-05-17T08:30:00.5Z", "", true},
    {"Midnight", Metric, "LandXML", "time", "24:00:00.0", DT_String, "24:00:00.0", "", true},
    {"AfterMidnight", Metric, "LandXML", "time", "24:00:00.1", DT_String, "24:00:00.1", "", false},
    {"LeapSecond", Metric, "LandXML", "time", "23:59:60", DT_String, "23:59:60", "", true},
    {"SixtySeconds", Metric, "LandXML", "time", "08:30:60", DT_String, "08:30:60", "", false},
    {"PointWithoutFraction", Metric, "LandXML", "time", "08:30:00.", DT_String, "08:30:00.", "", false},
    {"WidestZone", Metric, "LandXML", "time", "08:30:00-14:00", DT_String, "08:30:00-14:00", "", true},
    {"ZoneTooWide", Metric, "LandXML", "time", "08:30:00-14:01", DT_String, "08:30:00-14:01", "", false},
    {"ZoneOf99Minutes", Metric, "LandXML", "time", "08:30:00+03:99", DT_String, "08:30:00+03:99", "", false},
    {"EmptyTimeStamp", Metric, "Application", "timeStamp", "", DT_String, "", "", false},
    {"Enumeration", Metric, "Spiral", "spiType", "bloss", DT_ListString, "bloss", "", true},
    {"WordThatEndsWithABlank", Metric, "Classification", "functionalClass", "collector", DT_ListString,
     "collector ", "", true},
    {"WordInWrongCase", Metric, "CgPoint", "pntSurv", "sideShot", DT_String, "sideShot", "", false},
    {"FileName", Metric, "DocFileRef", "location", "a b.pdf", DT_FileName, "a b.pdf", "", true},
    {"ColorOfFourParts", Metric, "Material", "color", "1,2,3,4", DT_String, "1,2,3,4", "", false},
};
TEST(TypedTexts, BecomeValues) {
    for (const TypedText& row : Rows) {
        SCOPED_TRACE(row.name);
        const ElementTree tree = ReadElements("<Units>" + std::string(row.units) + "</Units>");
        const UnitSet units = ReadUnits(tree, 0);
        const TypedValue value = ReadValue(TypeOfAttribute(row.element, row.attribute), {row.text}, {units});
        EXPECT_EQ(value.value.Type, row.type);
        EXPECT_EQ(value.value.ToText(TextForm::Plain), row.plain);
        EXPECT_EQ(value.unit, row.unit);
        EXPECT_EQ(value.isValid, row.isValid);
    }
}

TEST(AnglesInMinutesAndSeconds, AreReadFromTheirDigits) {
    constexpr std::nullopt_t Refused = std::nullopt;
    const std::pair<const char*, std::optional<double>> cases[] = {
        {"45.3025", 45 + 30.0 / 60 + 25.0 / 3600},
        {"45.3", 45.5},
        {"45", 45},
        {"45.", 45},
        {".3", 0.5},
        {" -0.3000 ", -0.5},
        {"10.00305", 10 + 30.5 / 3600},
        {"359.595999", 359 + 59.0 / 60 + 59.99 / 3600},
        {"45.6000", Refused},
        {"45.0060", Refused},
        {"45.3e1", Refused},
        {"45.-3", Refused},
    };
    for (const auto& [text, degrees] : cases) {
        const std::optional<double> radians = RadiansOf(text, AngleUnit::DegreesMinutesSeconds);
        ASSERT_EQ(radians.has_value(), degrees.has_value()) << text;
        if (radians)
            EXPECT_NEAR(*radians, *degrees * std::numbers::pi / 180, 1e-12) << text;
    }
}

class ReadAngles : public GermanMachine {
protected:
    ~ReadAngles() override { SetAngleUnit('d'); }
};

TEST_F(ReadAngles, ShowAsTheirOwnTextsAreRounded) {
    int wrong = 0;
    for (const auto& [unit, letter] :
         {std::pair(AngleUnit::DecimalDegrees, 'd'), std::pair(AngleUnit::Grads, 'g')}) {
        SetAngleUnit(letter);
        for (int thousandths = 5; thousandths < 400'000; thousandths += 10) {
            const std::string digits = std::to_string(1'000'000 + thousandths);
            const std::string text = std::to_string(thousandths / 1000) + "." + digits.substr(4);
            const int rounded = thousandths / 10 + 1;
            const std::string shown =
                std::to_string(rounded / 100) + "," + std::to_string(100 + rounded % 100).substr(1);
            wrong += AngleToString(*RadiansOf(text, unit)) != shown;
            wrong += AngleToString(*RadiansOf("-" + text, unit)) != "-" + shown;
        }
    }
    EXPECT_EQ(wrong, 0);
    SetAngleUnit('d');
    EXPECT_EQ(AngleToString(*RadiansOf("64.0018", AngleUnit::DegreesMinutesSeconds)), "64,01");
    EXPECT_EQ(AngleToString(*RadiansOf("0", AngleUnit::DecimalDegrees)), "0,00");
    const _numberfmtA twoDigits = GetAngleFormatFloat(); // that of doubles: the getters are crossed over
    _numberfmtA fourDigits = twoDigits;
    fourDigits.NumDigits = 4;
    SetAngleFormatDouble(fourDigits);
    for (const auto& [text, shown] : {std::pair("4.00555", "4,0056"), std::pair("80.56805", "80,5681")})
        EXPECT_EQ(AngleToString(*RadiansOf(text, AngleUnit::DecimalDegrees)), shown);
    SetAngleFormatDouble(twoDigits);
}

TEST(LandXmlScopes, HoldWhereTheirElementsStand) {
    const ElementTree tree = ReadElements(R"(<LandXML>
        <Units><Metric linearUnit="meter"/></Units>
        <Alignments><Alignment name="rail"><Cant/></Alignment><Alignment name="road"><Cant2/></Alignment></Alignments>
        <Pipes><Units><Imperial linearUnit="foot"/></Units><Pipe alignmentRef="rail"/></Pipes>
        <Survey><SurveyHeader><Units><Imperial linearUnit="inch"/></Units></SurveyHeader><Setup/></Survey>
        <Roadway alignmentRefs="road rail"><Speeds><Speed/></Speeds></Roadway><Roadway alignmentRefs="road"/>
    </LandXML>)");
    const LandXmlScopes scopes(tree);
    std::string found;
    for (ElementIndex element = 0; element < tree.Count(); ++element)
        found += std::string(tree.LocalName(element)) + ":" +
                 std::string(scopes.UnitsAt(element).Of(Quantity::Length).label) +
                 (scopes.IsRailway(element) ? ":rail " : " ");
    EXPECT_EQ(found,
              "LandXML:m Units:m Metric:m Alignments:m Alignment:m:rail Cant:m:rail Alignment:m Cant2:m "
              "Pipes:ft Units:ft Imperial:ft Pipe:ft:rail Survey:in SurveyHeader:in Units:in Imperial:in "
              "Setup:in Roadway:m:rail Speeds:m:rail Speed:m:rail Roadway:m ");
}

} // namespace
} // namespace korvel::inspector
