#pragma once

#include "landxml/landxml_enumeration.h"

#include <span>
#include <string_view>

namespace korvel::inspector {

/// What an attribute or a text of LandXML means. The unit of a measure is that of the Units element that
/// applies to its place; see landxml_units.h.
enum class Meaning {
    Text,
    Integer,
    PositiveInteger,
    Number,
    Flag,
    Date,
    Time,
    DateTime,
    FileName,
    Color,
    Enumeration,
    Station,
    Length,
    Diameter,
    Width,
    Height,
    Elevation, ///< in elevationUnit; heights of points are lengths
    Area,
    Volume,
    Percent,
    SlopeOrLength, ///< a percentage or a length, as the attribute of the same name with "Type" says
    Angle,
    Direction,
    GeographicAngle,
    Speed, ///< km/h, or mph in an imperial file
    Velocity,
    Flow,
    Pressure,
    Temperature,
    Cant, ///< mm, or inch in an imperial file, whatever linearUnit says
    CantPerTime,
    CantPerLength,
};

struct ValueType {
    Meaning meaning = Meaning::Text;
    LandXmlEnumeration* enumeration = nullptr; ///< for Meaning::Enumeration
};

/// The type of an attribute by local names; Text for those that the table does not know.
///
///     TypeOfAttribute("Alignment", "staStart")   -> Station
///     TypeOfAttribute("Parcel", "volume")        -> Text; it is a volume elsewhere
ValueType TypeOfAttribute(std::string_view element, std::string_view attribute);

/// A text is a row of numbers or one value: each part becomes a member of its own.
struct TextPart {
    const char* name;
    ValueType type;
};

/// The parts of an element's text. The last one of a point may be missing.
struct TextType {
    std::span<const TextPart> parts;
    std::size_t required = 1;
};

/// For elements that the table does not know: one part "text".
TextType TypeOfText(std::string_view element);

} // namespace korvel::inspector
