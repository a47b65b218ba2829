#pragma once

#include "source/element_tree.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace korvel::inspector {

/// What a Units element gives a unit to.
enum class Quantity {
    Length,
    Diameter,
    Width,
    Height,
    Elevation,
    Area,
    Volume,
    Velocity,
    Flow,
    Pressure,
    Temperature,
};
inline constexpr std::size_t QuantityCount = 11;

/// How angles are written. DegreesMinutesSeconds: 45.3025 is 45°30'25".
enum class AngleUnit { Radians, Grads, DecimalDegrees, DegreesMinutesSeconds };

/// A unit as it is shown after a name, in the code page of the library's texts; empty when the file names
/// none. A word that LandXML does not know is its own label.
struct Unit {
    std::string label;
    bool isBase = false; ///< metre, square metre or cubic metre
};

/// How the angles of one kind are written.
struct AngleScale {
    std::optional<AngleUnit> unit; ///< nothing when the file names one that LandXML does not know
    std::string unknown;           ///< its label then, as in Unit
};

/// The units that hold somewhere in a document.
struct UnitSet {
    std::array<Unit, QuantityCount> units;
    AngleScale angle = {AngleUnit::Radians, {}};
    AngleScale direction = {AngleUnit::Radians, {}};
    AngleScale geographic = {AngleUnit::DecimalDegrees, {}};
    bool imperial = false;

    const Unit& Of(Quantity quantity) const { return units[static_cast<std::size_t>(quantity)]; }
};

/// What a Units element says, with the defaults of the schema: elevations are in metres (feet too), plain
/// angles in radians. Diameters, widths and heights without a unit of their own are lengths.
UnitSet ReadUnits(const ElementTree& tree, ElementIndex units);

/// An angle in radians; nothing when the text is no angle of the unit, 30.7500 with 75 minutes for example.
std::optional<double> RadiansOf(std::string_view text, AngleUnit unit);
/// Whether a text means this angle: as RadiansOf reads it, or as the library reads it when typed. The two may
/// differ in the last bits. Not for radians.
bool MeansRadians(std::string_view text, AngleUnit unit, double radians);

} // namespace korvel::inspector
