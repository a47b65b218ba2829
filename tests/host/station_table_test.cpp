#include "host/edited_document.h"
#include "korvel/values/language.h"
#include "landxml/station_table.h"
#include "support/table.h"

namespace korvel::inspector {
namespace {

class StationTableTest : public EditedDocumentTest {
protected:
    StationTableTest() { SetLanguageForThisRun("German"); }

    // Without the line of titles.
    std::string TableOf(const std::string& alignment) {
        const std::string table = StationTable(Open("<LandXML>" + alignment + "</LandXML>"), 1);
        EXPECT_EQ(table.substr(0, table.find('\n')), "Name\tStation\tAlt\tNeu");
        return table.substr(table.find('\n') + 1);
    }
};

TEST_F(StationTableTest, SaysWhereEverythingBegins) {
    const std::string curve = "<Start>0 0</Start><Center>0 10</Center><End>0 20</End>"; // half a circle
    for (const auto& [border, alignment, expected] : Table<std::string, std::string>{
             {"lengths, and a name with a tab",
              "<Alignment staStart='100' length='30'><CoordGeom><Line length='10' name='a&#9;b'/><Feature/>"
              "<Spiral length='20'/></CoordGeom></Alignment>",
              "Anfang\t0+100,00\t\t\nLine a b\t0+100,00\t\t\nSpiral\t0+110,00\t\t\nEnde\t0+130,00\t\t"},
             {"an own station, and an end that the file names",
              "<Alignment staStart='0' length='30' staEnd='29'><CoordGeom><Line length='10'/>"
              "<Line staStart='12' length='1'/><Line/></CoordGeom></Alignment>",
              "Anfang\t0+000,00\t\t\nLine 1\t0+000,00\t\t\nLine 2\t0+012,00\t\t\nLine 3\t0+013,00\t\t\n"
              "Ende\t0+029,00\t\t"},
             {"lengths from points",
              "<Alignment staStart='0' length='30'><CoordGeom><Line><Start>0 0</Start><End>3 4 9</End></Line>"
              "<Curve rot='cw'>" +
                  curve + "</Curve><Curve rot='ccw'>" + curve +
                  "</Curve><Line/></CoordGeom>"
                  "</Alignment>",
              "Anfang\t0+000,00\t\t\nLine 1\t0+000,00\t\t\nCurve 1\t0+005,00\t\t\nCurve 2\t0+036,42\t\t\n"
              "Line 2\t0+067,83\t\t\nEnde\t0+030,00\t\t"},
             {"a length that nobody knows",
              "<Alignment staStart='0' length='30'><CoordGeom><Spiral/><Line/></CoordGeom></Alignment>",
              "Anfang\t0+000,00\t\t\nSpiral\t0+000,00\t\t\nLine\t\t\t\nEnde\t0+030,00\t\t"},
             {"no station at all", "<Alignment/>", "Anfang\t\t\t\nEnde\t\t\t"},
             {"an equation without a station back",
              "<Alignment staStart='0' length='30'><StaEquation staInternal='10' staAhead='200' "
              "staBack='NaN'/>"
              "</Alignment>",
              "Anfang\t0+000,00\t\t\nEnde\t0+030,00\t\t\nStaEquation\t0+010,00\t\t0+200,00"},
             {"feet", "<Alignment staStart='0' staEnd='30'/><Units><Imperial linearUnit='foot'/></Units>",
              "Anfang\t0+000,00 ft\t\t\nEnde\t0+030,00 ft\t\t"}})
        EXPECT_EQ(TableOf(alignment), expected) << border;
}

} // namespace
} // namespace korvel::inspector
