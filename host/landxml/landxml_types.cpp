#include "landxml/landxml_types.h"

#include "landxml/enumeration_uses.h"
#include "source/blanks.h"

#include <algorithm>
#include <array>
#include <optional>
#include <unordered_map>
#include <vector>

namespace korvel::inspector {
namespace {

// Each word is "attribute" for any element, or "Element@attribute", which goes before it. A '*' at one end
// stands for anything; such words count last.
struct TypedAttributes {
    Meaning meaning;
    const char* attributes;
};

constexpr TypedAttributes AttributeTable[] = {
    {Meaning::Station,
     "staStart staEnd beginFullWidthSta endFullWidthSta parabolicStartStation parabolicEndStation roadwayPI "
     "intersectRoadwayPI location-1 location-2 intersectionLocation station sta alignRefStation "
     "planFeatureRefStation parcelRefStation staInternal staAhead staBack"},
    {Meaning::Length,
     "length lengthIn lengthOut radius radiusStart radiusEnd chord tangent external midOrd tanLong tanShort "
     "totalX totalY constant gauge distClosure setbackFront setbackRear setbackSide typicalThickness "
     "typicalWidth taperTangentLength widening startWidth endWidth bottomWidth mountHeight instrumentHeight "
     "targetHeight antennaHeight horizDistance slopeDistance vertDistance centroidCut centroidFill elev "
     "elevRim elevSump elevMin elevMax hgl* depthCritical localDepression width height thickness"},
    {Meaning::Length,
     "offset startOffset endOffset fullOffset alignOffset startOffsetElev endOffsetElev offsetInOut "
     "offsetLeftRight offsetUpDown"},
    {Meaning::Length,
     "PointResults@meanSlopeDistance GPSVector@dX GPSVector@dY GPSVector@dZ GPSAntennaDetails@altitude "
     "GPSAntennaDetails@ellipsiodalHeight GPSAntennaDetails@orthometricHeight GPSPosition@wgsHeight "
     "InstrumentDetails@edmVertOffset LaserDetails@laserVertOffset TargetSetup@edmTargetVertOffset "
     "upperStadia "
     "lowerStadia RawObservation@rod TestObservation@rod setup1RodA setup1RodB setup2RodA setup2RodB"},
    {Meaning::Diameter, "diameter"},
    {Meaning::Width,
     "span RectPipe@width RectStruct@width InletStruct@width OutletStruct@width widthTop widthBottom "
     "widthGutter"},
    {Meaning::Height,
     "EggPipe@height ElliPipe@height RectPipe@height Channel@height CircPipe@thickness EggPipe@thickness "
     "ElliPipe@thickness RectPipe@thickness CircStruct@thickness RectStruct@thickness"},
    {Meaning::Elevation, "ellipsoidHeight"},
    {Meaning::Cant, "appliedCant equilibriumCant cantDeficiency cantExcess"},
    {Meaning::CantPerTime, "rateOfChangeOfAppliedCantOverTime rateOfChangeOfCantDeficiencyOverTime"},
    {Meaning::CantPerLength, "rateOfChangeOfAppliedCantOverLength"},
    {Meaning::Speed, "speed speedLimit"},
    {Meaning::Velocity, "velocityCritical"},
    {Meaning::Angle, "delta theta angleSkew horizAngle circle rotationAngle zenithAngle meanzenithAngle "
                     "meanHorizAngle magDeclination"},
    {Meaning::Direction,
     "dir dirStart dirEnd azimuth chordAzimuth orientationAzimuth circleAzimuth dirClosure lengthDir"},
    {Meaning::GeographicAngle, "latitude longitude"},
    {Meaning::Text,
     "RedHorizontalPosition@latitude RedHorizontalPosition@longitude Parcel@volume Personnel@role "
     "Monument@state "
     "SurveyMonument@state RedHorizontalPosition@state RedVerticalObservation@state SurveyMonument@purpose "
     "GPSPosition@purpose"},
    {Meaning::Area, "area area2DSurf area3DSurf areaCut areaFill areaCatchment"},
    {Meaning::Volume, "volumeCut volumeFill volCut volFill volTotal DesignCrossSectSurf@volume"},
    {Meaning::Percent,
     "cutSlope fillSlope turnPercent percentTrucks protectedTurnPercent unprotectedTurnPercent"},
    {Meaning::SlopeOrLength, "startVertValue endVertValue"},
    {Meaning::Flow, "flowIn"},
    {Meaning::Pressure, "pressure"},
    {Meaning::Temperature, "temperature"},
    {Meaning::Number,
     "cantGradient equilibriumConstant appliedCantConstant slope slopeSurf slopeGutter slopeCritical "
     "PeakHour@volume DesignHour@volume swellFactor shrinkFactor scaleFactor combinedFactor "
     "seaLevelCorrectionFactor escFactor mannings hazenWilliams lossCoeff runoffCoeff ADT "
     "refractionCoefficient "
     "edmAccuracyppm wgsLatitude wgsLongitude GPSSetup@startTime GPSSetup@stopTime GPSQCInfoLevel1@startTime "
     "GPSQCInfoLevel1@stopTime GPSQCInfoLevel2@startTime GPSQCInfoLevel2@stopTime *StdError *Precision "
     "covariance*"},
    // of instruments, observations and their quality
    {Meaning::Number,
     "localUncertainity positionalUncertainity edmAccuracyConstant carrierWavelength refractiveIndex "
     "horizCollimation vertCollimation stadiaFactor sphericity prismEccentricity prismConstant "
     "circlePositionSet "
     "RDOP RMS GPSQCInfoLevel2@ratio referenceVariance horizStdDeviation vertStdDeviation "
     "slopeDistanceStdDeviation azimuthAccuracy distanceAccuracy angleAccuracy azimuthAdoptionFactor "
     "distanceAdoptionFactor arcAzimuthAccuracy arcLengthAccuracy lengthAdoptionFactor geosphoid"},
    // of flows and signals
    {Meaning::Number, "PipeFlow@intensity timeInlet lossIn lossOut signalPeriod"},
    {Meaning::Integer,
     "density rating legNumber priority zonePriorityRef numberFirst numberLast nbrSatellites LandXMLId crc "
     "zoneNumber communityTitleSchemeNo F@i F@b"},
    {Meaning::PositiveInteger, "P@id"},
    {Meaning::Flag,
     "readOnly adverse edgeTrim closedArea curveCorrection unused directFace fieldNoteFlag apply*"},
    {Meaning::Date, "date year adminDate amendmentDate submissionDate surveyDate disturbedDate replacedDate"},
    {Meaning::Time, "LandXML@time"},
    {Meaning::DateTime, "timeStamp determinedTimeStamp startTime endTime"},
    {Meaning::FileName, "DocFileRef@location fileName ZoneCrossSectStructure@catalogReference"},
    {Meaning::Color, "Material@color"},
};

struct TypedAttribute {
    std::string_view element; // empty: any
    ValueType type;
};

struct Pattern {
    std::string_view begin;
    std::string_view end;
    ValueType type;
};

struct AttributeTypes {
    std::unordered_map<std::string_view, std::vector<TypedAttribute>> byName;
    std::vector<Pattern> patterns;

    void Add(std::string_view word, ValueType type) {
        const std::size_t star = word.find('*');
        const std::size_t at = word.find('@');
        if (star != std::string_view::npos)
            patterns.push_back({word.substr(0, star), word.substr(star + 1), type});
        else if (at != std::string_view::npos)
            byName[word.substr(at + 1)].push_back({word.substr(0, at), type});
        else
            byName[word].push_back({{}, type});
    }
};

AttributeTypes MakeAttributeTypes() {
    AttributeTypes types;
    for (const TypedAttributes& row : AttributeTable)
        for (const std::string_view word : SplitAtBlanks(row.attributes))
            types.Add(word, {row.meaning, nullptr});
    for (const EnumerationUse& use : EnumerationUses())
        for (const std::string_view place : use.places)
            types.Add(place, {Meaning::Enumeration, use.enumeration});
    return types;
}

const AttributeTypes& Types() {
    static const AttributeTypes types = MakeAttributeTypes();
    return types;
}

constexpr TextPart PointParts[] = {
    {"northing", {Meaning::Length}}, {"easting", {Meaning::Length}}, {"elevation", {Meaning::Length}}};
constexpr TextPart ProfilePointParts[] = {{"station", {Meaning::Station}}, {"elevation", {Meaning::Length}}};
constexpr TextPart SectionPointParts[] = {{"offset", {Meaning::Length}}, {"elevation", {Meaning::Length}}};
constexpr TextPart StationParts[] = {{"station", {Meaning::Station}}};
constexpr TextPart PercentParts[] = {{"slope", {Meaning::Percent}}};
constexpr TextPart PlainParts[] = {{"text", {Meaning::Text}}};

struct TypedText {
    std::string_view element;
    TextType type;
};
constexpr TypedText TextTable[] = {
    {"Start", {PointParts, 2}},
    {"End", {PointParts, 2}},
    {"Center", {PointParts, 2}},
    {"PI", {PointParts, 2}},
    {"P", {PointParts, 2}},
    {"CgPoint", {PointParts, 2}},
    {"Location", {PointParts, 2}},
    {"MapPoint", {PointParts, 2}},
    {"TargetPoint", {PointParts, 2}},
    {"BacksightPoint", {PointParts, 2}},
    {"InstrumentPoint", {PointParts, 2}},
    {"PVI", {ProfilePointParts, 2}},
    {"ParaCurve", {ProfilePointParts, 2}},
    {"UnsymParaCurve", {ProfilePointParts, 2}},
    {"CircCurve", {ProfilePointParts, 2}},
    {"CrossSectPnt", {SectionPointParts, 2}},
    {"Station", {StationParts, 1}},
    {"BeginRunoutSta", {StationParts, 1}},
    {"BeginRunoffSta", {StationParts, 1}},
    {"FullSuperSta", {StationParts, 1}},
    {"RunoffSta", {StationParts, 1}},
    {"StartofRunoutSta", {StationParts, 1}},
    {"EndofRunoutSta", {StationParts, 1}},
    {"FullSuperelev", {PercentParts, 1}},
};

// The one text that is a word of a list.
const TextPart& AdverseParts() {
    static const TextPart part{"text", TypeOfAttribute("AdverseSE", "")};
    return part;
}

} // namespace

ValueType TypeOfAttribute(std::string_view element, std::string_view attribute) {
    const AttributeTypes& types = Types();
    std::optional<ValueType> ofAny;
    if (const auto found = types.byName.find(attribute); found != types.byName.end()) {
        for (const TypedAttribute& row : found->second) {
            if (row.element == element)
                return row.type;
            if (row.element.empty())
                ofAny = row.type;
        }
    }
    if (ofAny)
        return *ofAny;
    for (const Pattern& pattern : types.patterns)
        if (attribute.size() > pattern.begin.size() + pattern.end.size() &&
            attribute.starts_with(pattern.begin) && attribute.ends_with(pattern.end))
            return pattern.type;
    return {};
}

TextType TypeOfText(std::string_view element) {
    const auto* found = std::find_if(std::begin(TextTable), std::end(TextTable),
                                     [&](const TypedText& row) { return row.element == element; });
    if (found != std::end(TextTable))
        return found->type;
    if (element == "AdverseSE")
        return {std::span(&AdverseParts(), 1), 1};
    return {PlainParts, 1};
}

} // namespace korvel::inspector
