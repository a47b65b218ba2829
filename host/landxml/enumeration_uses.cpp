#include "landxml/enumeration_uses.h"

#include "source/blanks.h"

#include <iterator>

namespace korvel::inspector {
namespace {

struct Definition {
    const char* words;
    const char* places;
};

// Schemas 1.0 to 1.2; the misspelled words are theirs.
constexpr Definition Definitions[] = {
    {"meter|kilometer|feet|miles", "Metric@elevationUnit Imperial@elevationUnit"},
    {"radians|grads|decimal degrees|decimal dd.mm.ss",
     "Metric@latLongAngularUnit Imperial@latLongAngularUnit"},
    {"measured|to stake out|staked out|calculated|assistance point|user entered point|control point", "role"},
    {"modified|deleted", "status"},
    {"cover|cover and box|fence enclosure|marker post|no protection|other|quadripod|unknown",
     "Monument@beaconProtection"},
    {"cairn|chimney|large quadripod|lighthouse|marine beacon|mast|mast with targets|no "
     "beacon|other|pillar|post|small quadripod|tower|tripod|unknown",
     "Monument@beacon"},
    {"cw|ccw", "rot CantStation@curvature"},
    {"arc|chord", "Curve@crvType"},
    {"determinebyfeature|donotinclude|spot|spotandbreak|void|drapevoid|breakvoid|island|boundary|contour|"
     "feature|ground|xsection|user",
     "DTMAttribute"},
    {"Unknown|Code|Float|Fixed|Network Float|Network Fixed|WAAS Float|WAAS Fixed",
     "GPSQCInfoLevel1@GPSSolnType GPSQCInfoLevel2@GPSSolnType"},
    {"Unknown|L1|L2|L2 Squared|Wide Lane|Narrow Lane|Iono Free",
     "GPSQCInfoLevel1@GPSSolnFreq GPSQCInfoLevel2@GPSSolnFreq"},
    {"acre|squareFoot|squareInch|squareMiles", "Imperial@areaUnit"},
    {"foot|USSurveyFoot|inch|mile", "Imperial@linearUnit"},
    {"inchHG|inHG", "Imperial@pressureUnit"},
    {"fahrenheit|kelvin", "Imperial@temperatureUnit"},
    {"foot|USSurveyFoot|inch", "Imperial@diameterUnit"},
    {"foot|USSurveyFoot|inch", "Imperial@widthUnit"},
    {"foot|USSurveyFoot|inch", "Imperial@heightUnit"},
    {"US_gallonPerDay|IMP_gallonPerDay|cubicFeetDay|US_gallonPerMinute|IMP_gallonPerMinute|acreFeetDay|"
     "cubicFeetSecond",
     "Imperial@flowUnit"},
    {"US_gallon|IMP_gallon|cubicInch|cubicFeet|cubicYard|acreFeet", "Imperial@volumeUnit"},
    {"feetPerSecond|milesPerHour", "Imperial@velocityUnit"},
    {"in|out|both", "Invert@flowDir"},
    {"hectare|squareMeter|squareMillimeter|squareCentimeter", "Metric@areaUnit"},
    {"millimeter|centimeter|meter|kilometer", "Metric@linearUnit"},
    {"millimeter|centimeter|meter|kilometer", "Metric@diameterUnit"},
    {"millimeter|centimeter|meter|kilometer", "Metric@widthUnit"},
    {"millimeter|centimeter|meter|kilometer", "Metric@heightUnit"},
    {"HPA|milliBars|mmHG|millimeterHG", "Metric@pressureUnit"},
    {"celsius|kelvin", "Metric@temperatureUnit"},
    {"cubicMeter|liter|hectareMeter", "Metric@volumeUnit"},
    {"metersPerSecond|kilometersPerHour", "Metric@velocityUnit"},
    {"cubicMeterSecond|literPerSecond|literPerMinute", "Metric@flowUnit"},
    {"benchmark|central|reference|rural|standard traverse|urban standard traverse", "Monument@category"},
    {"affected|created|encroached|extinguished|referenced|proposed|existing|adjoining", "Parcel@state"},
    {"sanitary|storm|water|other", "PipeNetwork@pipeNetType"},
    {"normal|check|backsight|foresight|traverse|sideshot|resection|levelLoop|digitalLevel|remoteElevation|"
     "recipricalObservation|topo|cutSheets|asbuilt",
     "purpose"},
    {"biquadratic|bloss|clothoid|cosine|cubic|sinusoid|revBiquadratic|revBloss|revCosine|revSinusoid|"
     "sineHalfWave|biquadraticParabola|cubicParabola|japaneseCubic|radioid|weinerBogen",
     "Spiral@spiType CantStation@transitionType"},
    {"abandoned|destroyed|existing|proposed", "state"},
    {"outer|void|island", "Boundary@bndType"},
    {"TIN|grid", "Definition@surfType"},
    {"grid|composite", "SurfVolumes@surfVolCalcMethod"},
    {"compiled|computed|surveyed", "SurveyHeader@type"},
    {"monument|control|sideshot|boundary|natural boundary|traverse|reference|administrative",
     "CgPoint@pntSurv"},
    {"AverageEndArea|Prismoidal", "CrossSects@calcMethod"},
    {"Offset Elevation|Slope Distance", "CrossSectPnt@dataFormat"},
    {"point|curve", "pointGeometry"},
    {"standard|wall|proximity|nondestructive", "Breakline@brkType"},
    {"radians|grads|decimal degrees|decimal dd.mm.ss",
     "Metric@angularUnit Metric@directionUnit Imperial@angularUnit Imperial@directionUnit"},
    {"increasing|decreasing", "StaEquation@staIncrement"},
    {"road surface|road subsurface|road shoulder|road foreSlope|road backSlope|road curb-gutter|bridge "
     "surface|bridge body|sidewalk|ground|ditch|wall|channel|bike facilities|obstruction offset|longitudinal "
     "barrier|sound barrier|bridge abutment|vertical pillar",
     "Zone@category"},
    {"slope|vertical distance", "startVertType endVertType"},
    {"finalSurface|subgrade", "GradeSurface@surfaceType"},
    {"center|left edge|right edge", "ZoneHinge@hingeType"},
    {"pavement-high-type|pavement-intermediate-type|pavement-low-type|soil|concrete|stone|riprap|turf|gravel|"
     "paved|metal|metal grate|composite|timber|other",
     "ZoneMaterial@material"},
    {"parallel|linear", "ZoneCrossSectStructure@transition"},
    {"centerline|zone", "ZoneCrossSectStructure@offsetMode"},
    {"dependent|independent", "ZoneCrossSectStructure@placement"},
    {"right|left|both", "side sideofRoad"},
    {"flat|rolling|mountainous", "Roadway@roadTerrain"},
    {"arterial|collector |local", "Classification@functionalClass"},
    {"non-adverse|adverse", "AdverseSE@"},
    {"straight-line|partial-tangent|symmetrical-reverse-curve|asymmetrical-reverse-curve",
     "TurnLane@taperType"},
    {"left|right", "TurnLane@type"},
    {"true-V|rounded-V|rounded-trapezoidal|flat-trapezoidal", "Ditch@bottomShape"},
    {"none|signal|stop|yield", "TrafficControl@controlType"},
    {"side|overhead", "TrafficControl@controlPosition"},
    {"none|no-left-turn|no-right-turn|no-U-turn |no-turn ", "TurnRestriction@type"},
    {"existing|improvement|new", "Intersection@contructionType"},
    {"unknown", "Curb@type"},
    {"unknown", "Corner@type"},
    {"regulatory|guide|warning|specificService|tourist|recreation-cultural|emergencyManagement",
     "RoadSign@type"},
    {"fatal|nonfatal |propery-damage-only", "CrashHistory@severity"},
    {"unknown|non-intersection-related|intersection-related", "CrashHistory@intersectionRelation"},
    {"A-stop-on-rural-road|C-speed-path-direction-change-on-rural-road", "DecisionSightDistance@maneuver"},
    {"new|existing", "BridgeElement@projectType"},
};

std::vector<EnumerationUse> MakeUses() {
    static std::vector<LandXmlEnumeration> enumerations;
    enumerations.reserve(std::size(Definitions));
    std::vector<EnumerationUse> uses;
    for (const Definition& definition : Definitions) {
        enumerations.emplace_back(definition.words);
        uses.push_back({&enumerations.back(), SplitAtBlanks(definition.places)});
    }
    return uses;
}

} // namespace

const std::vector<EnumerationUse>& EnumerationUses() {
    static const std::vector<EnumerationUse> uses = MakeUses();
    return uses;
}

} // namespace korvel::inspector
