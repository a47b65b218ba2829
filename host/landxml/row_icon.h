#pragma once

#include <string>

namespace korvel {
class IMemberDispatch;
}

namespace korvel::inspector {

/// The icons of rows: the places of their pictures in the list of the grid, see editing/row_icon_pictures.h.
enum class RowIcon : int {
    // groups, by the kind of element
    Element, // any other
    Foreign, // of no namespace of LandXML
    Statistics,
    Project,
    Application,
    Units,
    CoordinateSystem,
    Feature,
    Property,
    Alignment,
    StationEquation,
    Geometry,
    Line,
    Curve,
    Spiral,
    Profile,
    ProfileCurve,
    CrossSection,
    Cant,
    Superelevation,
    Surface,
    Points,
    Faces,
    Edges,
    Parcel,
    PipeNetwork,
    Pipe,
    Struct,
    Roadway,
    PlanFeature,
    GradeModel,
    Survey,
    Monument,
    SurveyPoint,
    // other members, by the kind of value
    Text,
    Number,
    Measure,
    Percent,
    Station,
    Angle,
    Date,
    Flag,
    Choice,
    File,
    Color,
    Point,
    Face,
    Invalid,
    Count
};

/// The icon of a member of an object that a grid shows, be it an element of a document or one that was added
/// to them. It costs next to nothing after the object was asked for that member's value.
RowIcon IconOf(IMemberDispatch& owner, const std::string& name);

} // namespace korvel::inspector
