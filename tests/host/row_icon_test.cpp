#include "host/edited_document.h"
#include "landxml/row_icon.h"
#include "support/make_value.h"
#include "support/table.h"

namespace korvel::inspector {

void PrintTo(RowIcon icon, std::ostream* stream) {
    *stream << "the icon " << static_cast<int>(icon);
}

namespace {

constexpr const char* Source =
    "<LandXML xmlns='http://www.landxml.org/schema/LandXML-1.2' xmlns:o='urn:other' date='2026-02-03' "
    "time='10:20:30' readOnly='true'><Units><Metric linearUnit='meter'/></Units>"
    "<Alignments><Alignment name='a [foreign]' length='1' staStart='2' desc='d'><CoordGeom>"
    "<Spiral spiType='clothoid' radiusStart='INF' radiusEnd='x' dirStart='1'/><Nothing/></CoordGeom>"
    "<CrossSects><CrossSect sta='5' angleSkew='1'><DesignCrossSectSurf side='left'>"
    "<CrossSectPnt dataFormat='Slope Distance'>1 "
    "2</CrossSectPnt></DesignCrossSectSurf></CrossSect></CrossSects>"
    "</Alignment></Alignments><o:Line o:x='1'/><Feature xmlns='urn:third'/><Surfaces><Surface name='s'>"
    "<Definition surfType='TIN' elevMin='1'><Pnts><P id='1'>1 2 3</P><P id='2'>1 two</P></Pnts>"
    "<Faces><F>1 2 3</F><F i='1' n='0 0 0'>1 1 1</F></Faces></Definition></Surface></Surfaces>"
    "<Parcels><Parcel name='p' area='3' volume='4'/></Parcels><Roadways><Roadway name='r'><Lanes><Slope "
    "cutSlope='4'/></Lanes></Roadway></Roadways><Project><Feature><DocFileRef name='n' "
    "location='x.pdf'/></Feature></Project><Survey><SurveyHeader startTime='2026-01-01T10:00:00'/></Survey>"
    "<MaterialTable><Material color='1,2,3' index='2'/></MaterialTable></LandXML>";

class RowIconTest : public EditedDocumentTest {
protected:
    RowIconTest() { Open(Source); }

    /// The last name of a path is that of a member.
    RowIcon IconAt(const std::string& path) {
        const std::size_t slash = path.rfind('/');
        const bool isOfRoot = slash == std::string::npos;
        return IconOf(At(isOfRoot ? "" : path.substr(0, slash)), isOfRoot ? path : path.substr(slash + 1));
    }
};

TEST_F(RowIconTest, EachKindOfMemberHasItsIcon) {
    const std::string alignment = "Alignments/Alignment a [foreign]/";
    const std::string spiral = alignment + "CoordGeom/Spiral/";
    const std::string terrain = "Surfaces/Surface s/Definition/";
    for (const auto& [border, path, icon] : Table<std::string, RowIcon>{
             {"an element", "Units", RowIcon::Units},
             {"several of one icon", "Units/Metric", RowIcon::Units},
             {"an own name that ends like a mark", "Alignments/Alignment a [foreign]", RowIcon::Alignment},
             {"an element of no row", alignment + "CoordGeom/Nothing", RowIcon::Element},
             {"a prefix of another namespace", "o:Line [foreign]", RowIcon::Foreign},
             {"another namespace without one", "Feature [foreign]", RowIcon::Foreign},
             {"a date", "date", RowIcon::Date},
             {"a time, which is shown as text", "time", RowIcon::Date},
             {"both", "Survey/SurveyHeader/startTime", RowIcon::Date},
             {"a flag", "readOnly", RowIcon::Flag},
             {"a length", alignment + "length", RowIcon::Measure},
             {"an area whose unit is not known", "Parcels/Parcel p/area", RowIcon::Measure},
             {"a text elsewhere a volume", "Parcels/Parcel p/volume", RowIcon::Text},
             {"a station", alignment + "staStart", RowIcon::Station},
             {"an angle", alignment + "CrossSects/CrossSect/angleSkew", RowIcon::Angle},
             {"a direction", spiral + "dirStart", RowIcon::Angle},
             {"a word of a list", spiral + "spiType", RowIcon::Choice},
             {"a length that is shown as text", spiral + "radiusStart", RowIcon::Measure},
             {"no number", spiral + "radiusEnd [invalid]", RowIcon::Invalid},
             {"a text", alignment + "desc", RowIcon::Text},
             {"a percentage", "Roadways/Roadway r/Lanes/Slope/cutSlope", RowIcon::Percent},
             {"a file", "Project/Feature/DocFileRef n/location", RowIcon::File},
             {"a color", "MaterialTable/Material/color", RowIcon::Color},
             {"a point as text", terrain + "Pnts/P 1", RowIcon::Point},
             {"no point", terrain + "Pnts/P 2 [invalid]", RowIcon::Invalid},
             {"a face as text", terrain + "Faces/F 1", RowIcon::Face},
             {"a face with attributes", terrain + "Faces/F 2", RowIcon::Faces},
             {"a number of a text", terrain + "Faces/F 2/i", RowIcon::Number}})
        EXPECT_EQ(IconAt(path), icon) << border;
}

// What was found before an edit must not be found after it.
TEST_F(RowIconTest, AnEditChangesTheIcon) {
    IMemberDispatch& alignment = At("Alignments/Alignment a [foreign]");
    IMemberDispatch& points = At("Surfaces/Surface s/Definition/Pnts");
    EXPECT_EQ(IconOf(alignment, "desc"), RowIcon::Text);
    EXPECT_TRUE(alignment.RenameMember("desc", "staEnd"));
    EXPECT_EQ(IconOf(alignment, "staEnd [invalid]"), RowIcon::Invalid);
    EXPECT_TRUE(Editing().Undo());
    EXPECT_EQ(IconOf(alignment, "desc"), RowIcon::Text);
    EXPECT_EQ(IconOf(alignment, "length"), RowIcon::Measure);
    EXPECT_TRUE(alignment.ChangeMemberType("length", DT_String));
    EXPECT_EQ(IconOf(alignment, "length"), RowIcon::Text);
    EXPECT_TRUE(alignment.ChangeMemberType("length", DT_RoadStationDouble));
    EXPECT_EQ(IconOf(alignment, "length"), RowIcon::Station);
    EXPECT_EQ(IconOf(points, "P 2 [invalid]"), RowIcon::Invalid);
    EXPECT_TRUE(points.SetMember("P 2 [invalid]", MakeValue(DT_String, "3 4")));
    EXPECT_EQ(IconOf(points, "P 2"), RowIcon::Point);
}

} // namespace
} // namespace korvel::inspector
