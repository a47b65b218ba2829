#include "landxml/row_icon.h"

#include "landxml/landxml_document.h"
#include "source/blanks.h"

#include <string_view>
#include <typeinfo>
#include <unordered_map>

namespace korvel::inspector {
namespace {

struct ElementIcons {
    RowIcon icon;
    const char* elements; // local names
};

constexpr ElementIcons ElementTable[] = {
    {RowIcon::Project, "LandXML Project HeadOfPower Amendment AmendmentItem"},
    {RowIcon::Application, "Application Author"},
    {RowIcon::Units, "Units Metric Imperial"},
    {RowIcon::CoordinateSystem, "CoordinateSystem MapPoint"},
    {RowIcon::Feature, "Feature FeatureDictionary"},
    {RowIcon::Property, "Property FieldNote"},
    {RowIcon::File, "DocFileRef PointFiles PointFile"},
    {RowIcon::Alignment, "Alignments Alignment AlignPIs AlignPI"},
    {RowIcon::StationEquation, "StaEquation"},
    {RowIcon::Geometry, "CoordGeom"},
    {RowIcon::Line, "Line IrregularLine Chain"},
    {RowIcon::Curve, "Curve Curve1 Curve2"},
    {RowIcon::Spiral, "Spiral InSpiral OutSpiral ConnSpiral"},
    {RowIcon::Profile, "Profile ProfAlign ProfSurf"},
    {RowIcon::ProfileCurve, "PVI ParaCurve UnsymParaCurve CircCurve"},
    {RowIcon::CrossSection, "CrossSects CrossSect CrossSectSurf DesignCrossSectSurf CrossSectPnt"},
    {RowIcon::Cant, "Cant CantStation SpeedStation"},
    {RowIcon::Superelevation,
     "Superelevation BeginRunoutSta BeginRunoffSta FullSuperSta FullSuperelev RunoffSta StartofRunoutSta "
     "EndofRunoutSta AdverseSE"},
    {RowIcon::Surface, "Surfaces Surface Definition SurfVolumes SurfVolume SourceData"},
    {RowIcon::Points, "Pnts DataPoints"},
    {RowIcon::Faces, "Faces F"},
    {RowIcon::Edges, "Boundaries Boundary Breaklines Breakline RetWall RetWallPnt Contours Contour "
                     "Watersheds Watershed Outlet PntList2D PntList3D"},
    {RowIcon::Parcel, "Parcels Parcel Exclusions Title VolumeGeom LocationAddress"},
    {RowIcon::PipeNetwork, "PipeNetworks PipeNetwork"},
    {RowIcon::Pipe, "Pipes Pipe CircPipe EggPipe ElliPipe RectPipe Channel PipeFlow"},
    {RowIcon::Struct,
     "Structs Struct CircStruct RectStruct InletStruct OutletStruct Connection Invert StructFlow"},
    {RowIcon::Roadway,
     "Roadways Roadway Lanes Roadside Speeds NoPassingZone TrafficVolume CrashData CrashHistory "
     "DecisionSightDistance BridgeElement Intersections Intersection Classification ThruLane PassingLane "
     "TurnLane TwoWayLeftTurnLane ClimbLane OffsetLane WideningLane RoadSign TrafficControl DesignSpeed "
     "DesignSpeed85th PostedSpeed DailyTrafficVolume DesignHour PeakHour Ditch"},
    {RowIcon::PlanFeature, "PlanFeatures PlanFeature"},
    {RowIcon::GradeModel, "GradeModel GradeSurface Zones Zone ZoneWidth ZoneSlope ZoneHinge ZoneCutFill "
                          "ZoneMaterial ZoneCrossSectStructure"},
    {RowIcon::Survey,
     "Survey SurveyHeader Equipment InstrumentSetup InstrumentDetails InstrumentPoint LaserSetup "
     "LaserDetails GPSSetup GPSVector GPSPosition GPSAntennaDetails GPSReceiverDetails GPSQCInfoLevel1 "
     "GPSQCInfoLevel2 ObservationGroup RawObservation ReducedObservation ReducedArcObservation "
     "RedHorizontalPosition RedVerticalObservation TestObservation PointResults TargetSetup Backsight "
     "BacksightPoint TargetPoint ControlChecks Corrections Personnel"},
    {RowIcon::Monument, "Monuments Monument SurveyMonument"},
    {RowIcon::SurveyPoint, "CgPoints CgPoint P Start End Center PI Location"},
};

using IconsByElement = std::unordered_map<std::string_view, RowIcon>;

const IconsByElement& Elements() {
    static const IconsByElement icons = [] {
        IconsByElement byElement;
        for (const ElementIcons& row : ElementTable)
            for (const std::string_view name : SplitAtBlanks(row.elements))
                byElement.emplace(name, row.icon);
        return byElement;
    }();
    return icons;
}

// Where there is only a type. It has the icon of the first row of whose bits it has one; without any it is a
// number.
struct TypeIcon {
    unsigned bits;
    RowIcon icon;
};
constexpr TypeIcon TypeTable[] = {
    {DT_Group, RowIcon::Element},
    {TypeBitList, RowIcon::Choice},
    {DT_Date & ~DT_String, RowIcon::Date},
    {DT_FileName & ~DT_String, RowIcon::File},
    {DT_String, RowIcon::Text},
    {DT_Bool, RowIcon::Flag},
    {DT_ColorRGB, RowIcon::Color},
    {DT_AngleDouble & ~DT_Double, RowIcon::Angle},
    {(DT_RailwayStationDouble | DT_RoadStationDouble) & ~DT_Double, RowIcon::Station},
    {(DT_LengthDouble | DT_AreaDouble | DT_VolumeDouble) & ~DT_Double, RowIcon::Measure},
    {DT_PercentDouble & ~DT_Double, RowIcon::Percent},
};

RowIcon IconOfType(EDataTyps type) {
    for (const TypeIcon& row : TypeTable)
        if (type & row.bits)
            return row.icon;
    return RowIcon::Number;
}

// By what the document says, for the type of a value may say less: a length in feet is a plain number to the
// grid, a time a text. All others are numbers.
struct MeaningIcon {
    Meaning meaning;
    RowIcon icon;
};
constexpr MeaningIcon MeaningTable[] = {
    {Meaning::Text, RowIcon::Text},
    {Meaning::Flag, RowIcon::Flag},
    {Meaning::Date, RowIcon::Date},
    {Meaning::Time, RowIcon::Date},
    {Meaning::DateTime, RowIcon::Date},
    {Meaning::FileName, RowIcon::File},
    {Meaning::Color, RowIcon::Color},
    {Meaning::Enumeration, RowIcon::Choice},
    {Meaning::Station, RowIcon::Station},
    {Meaning::Length, RowIcon::Measure},
    {Meaning::Diameter, RowIcon::Measure},
    {Meaning::Width, RowIcon::Measure},
    {Meaning::Height, RowIcon::Measure},
    {Meaning::Elevation, RowIcon::Measure},
    {Meaning::Area, RowIcon::Measure},
    {Meaning::Volume, RowIcon::Measure},
    {Meaning::Cant, RowIcon::Measure},
    {Meaning::Percent, RowIcon::Percent},
    {Meaning::Angle, RowIcon::Angle},
    {Meaning::Direction, RowIcon::Angle},
    {Meaning::GeographicAngle, RowIcon::Angle},
};

RowIcon IconOfMeaning(Meaning meaning) {
    for (const MeaningIcon& row : MeaningTable)
        if (row.meaning == meaning)
            return row.icon;
    return RowIcon::Number;
}

RowIcon IconOfElement(const LandXmlDocument& document, ElementIndex element) {
    if (document.Members().IsForeign(element))
        return RowIcon::Foreign;
    const auto icon = Elements().find(document.Tree().LocalName(element));
    return icon == Elements().end() ? RowIcon::Element : icon->second;
}

RowIcon IconOfMember(LandXmlDocument& document, ElementIndex owner, const std::string& name,
                     const Member& member) {
    if (member.kind == MemberKind::Object)
        return IconOfElement(document, member.place);
    if (!member.isValid)
        return RowIcon::Invalid;
    if (member.kind == MemberKind::TextElement) // terrains have millions, so the file is not read again
        return name.starts_with('F') ? RowIcon::Face : RowIcon::Point;
    const bool isTypedByUser = !document.SessionsOf(owner).empty() &&
                               document.SessionOf(document.AddressOf(owner, member)).type.has_value();
    return isTypedByUser ? IconOfType(document.ValueOf(owner, member).Type)
                         : IconOfMeaning(document.TypeOf(owner, member).meaning);
}

} // namespace

RowIcon IconOf(IMemberDispatch& owner, const std::string& name) {
    if (typeid(owner) == typeid(ElementObject)) { // faster than a cast that looks for bases
        const auto& object = static_cast<const ElementObject&>(owner);
        const ElementIndex element = object.Element();
        LandXmlDocument& document = object.Document();
        const std::optional<Member> member = document.FindMember(element, name);
        return member ? IconOfMember(document, element, name, *member) : RowIcon::Statistics;
    }
    EDataTyps type = DT_String;
    owner.GetMemberType(name, type);
    return IconOfType(type);
}

} // namespace korvel::inspector
