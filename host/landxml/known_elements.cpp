#include "landxml/known_elements.h"

#include "source/blanks.h"

#include <unordered_set>

namespace korvel::inspector {
namespace {

// Schemas 1.0 to 1.2; each version keeps what the one before has.
constexpr std::string_view Elements =
    // of the file
    "LandXML Units Metric Imperial CoordinateSystem Project Application Author Amendment AmendmentItem "
    "Feature "
    "Property DocFileRef FeatureDictionary FieldNote "
    // alignments
    "Alignments Alignment AlignPIs AlignPI Station PI InSpiral Curve1 ConnSpiral Curve2 OutSpiral "
    "StaEquation "
    "CoordGeom Line IrregularLine Curve Spiral Chain Start Center End PntList2D PntList3D Profile ProfAlign "
    "ProfSurf PVI ParaCurve UnsymParaCurve CircCurve Cant CantStation SpeedStation Superelevation "
    "BeginRunoutSta BeginRunoffSta FullSuperSta FullSuperelev RunoffSta StartofRunoutSta EndofRunoutSta "
    "AdverseSE CrossSects CrossSect CrossSectSurf CrossSectPnt DesignCrossSectSurf "
    // points, surfaces, parcels, monuments, features
    "CgPoints CgPoint Surfaces Surface SourceData PointFiles PointFile Boundaries Boundary Breaklines "
    "Breakline "
    "RetWall RetWallPnt Contours Contour DataPoints Definition Pnts P Faces F Watersheds Watershed Outlet "
    "SurfVolumes SurfVolume Parcels Parcel VolumeGeom Title Exclusions LocationAddress ComplexName RoadName "
    "AddressPoint AdministrativeArea AdministrativeDate Monuments Monument PlanFeatures PlanFeature Location "
    // pipes
    "PipeNetworks PipeNetwork Pipes Pipe CircPipe EggPipe ElliPipe RectPipe Channel PipeFlow Structs Struct "
    "CircStruct RectStruct InletStruct OutletStruct Connection Invert StructFlow "
    // roads
    "Roadways Roadway Classification Lanes ThruLane PassingLane TurnLane TwoWayLeftTurnLane ClimbLane "
    "OffsetLane "
    "WideningLane Roadside Ditch ObstructionOffset Curb Corner CrashData CrashHistory Speeds DesignSpeed "
    "DesignSpeed85th PostedSpeed NoPassingZone TrafficVolume DailyTrafficVolume DesignHour PeakHour Volume "
    "DecisionSightDistance BridgeElement RoadSign Intersections Intersection TurnRestriction TurnSpeed "
    "TrafficControl Timing "
    // grade models
    "GradeModel GradeSurface Zones Zone ZoneWidth ZoneSlope ZoneHinge ZoneCutFill ZoneMaterial "
    "ZoneCrossSectStructure OffsetVals "
    // surveys
    "Survey SurveyHeader HeadOfPower Personnel PurposeOfSurvey SurveyorCertificate Annotation Equipment "
    "InstrumentDetails LaserDetails GPSAntennaDetails GPSReceiverDetails Corrections InstrumentSetup "
    "InstrumentPoint LaserSetup GPSSetup GPSPosition GPSVector GPSQCInfoLevel1 GPSQCInfoLevel2 TargetSetup "
    "TargetPoint Backsight BacksightPoint RawObservation ReducedObservation ReducedArcObservation "
    "RedHorizontalPosition RedVerticalObservation TestObservation PointResults ObservationGroup "
    "ControlChecks "
    "SurveyMonument MinorSurvey "
    // the draft of 2.0
    "MaterialTable Material TextureImageTable TextureImage ";

} // namespace

bool IsKnownElement(std::string_view localName) {
    static const std::unordered_set<std::string_view> known = [] {
        const std::vector<std::string_view> names = SplitAtBlanks(Elements);
        return std::unordered_set<std::string_view>(names.begin(), names.end());
    }();
    return known.contains(localName);
}

} // namespace korvel::inspector
