#include "landxml/landxml_units.h"

#include "korvel/platform/code_page.h"
#include "landxml/number_reading.h"
#include "source/blanks.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <numbers>
#include <string>
#include <utility>

namespace korvel::inspector {
namespace {

struct NamedUnit {
    std::string_view name;
    std::string_view label;
    bool isBase = false;
};

constexpr NamedUnit NamedUnits[] = {
    {"meter", "m", true},
    {"millimeter", "mm"},
    {"centimeter", "cm"},
    {"kilometer", "km"},
    {"foot", "ft"},
    {"feet", "ft"},
    {"USSurveyFoot", "US survey ft"}, // 1200/3937 m, not the 0.3048 m of the foot
    {"inch", "in"},
    {"mile", "mi"},
    {"miles", "mi"},
    {"squareMeter", "m\xB2", true},
    {"squareMillimeter", "mm\xB2"},
    {"squareCentimeter", "cm\xB2"},
    {"hectare", "ha"},
    {"acre", "acre"},
    {"squareFoot", "ft\xB2"},
    {"squareInch", "in\xB2"},
    {"squareMiles", "mi\xB2"},
    {"cubicMeter", "m\xB3", true},
    {"liter", "l"},
    {"hectareMeter", "ha m"},
    {"US_gallon", "US gal"},
    {"IMP_gallon", "imp. gal"},
    {"cubicInch", "in\xB3"},
    {"cubicFeet", "ft\xB3"},
    {"cubicYard", "yd\xB3"},
    {"acreFeet", "acre ft"},
    {"metersPerSecond", "m/s"},
    {"kilometersPerHour", "km/h"},
    {"feetPerSecond", "ft/s"},
    {"milesPerHour", "mph"},
    {"cubicMeterSecond", "m\xB3/s"},
    {"literPerSecond", "l/s"},
    {"literPerMinute", "l/min"},
    {"US_gallonPerDay", "US gal/d"},
    {"IMP_gallonPerDay", "imp. gal/d"},
    {"cubicFeetDay", "ft\xB3/d"},
    {"US_gallonPerMinute", "US gal/min"},
    {"IMP_gallonPerMinute", "imp. gal/min"},
    {"acreFeetDay", "acre ft/d"},
    {"cubicFeetSecond", "ft\xB3/s"},
    {"HPA", "hPa"},
    {"milliBars", "mbar"},
    {"mmHG", "mmHg"},
    {"millimeterHG", "mmHg"},
    {"inchHG", "inHg"},
    {"inHG", "inHg"},
    {"celsius", "\xB0\x43"},
    {"kelvin", "K"},
    {"fahrenheit", "\xB0\x46"},
};

struct UnitAttribute {
    Quantity quantity;
    std::string_view attribute;
    std::string_view otherwise; // the attribute, or in quotes the unit, that holds without it
};
constexpr UnitAttribute UnitAttributes[] = {
    {Quantity::Length, "linearUnit", {}},
    {Quantity::Diameter, "diameterUnit", "linearUnit"},
    {Quantity::Width, "widthUnit", "linearUnit"},
    {Quantity::Height, "heightUnit", "linearUnit"},
    {Quantity::Elevation, "elevationUnit", "'meter"},
    {Quantity::Area, "areaUnit", {}},
    {Quantity::Volume, "volumeUnit", {}},
    {Quantity::Velocity, "velocityUnit", {}},
    {Quantity::Flow, "flowUnit", {}},
    {Quantity::Pressure, "pressureUnit", {}},
    {Quantity::Temperature, "temperatureUnit", {}},
};

constexpr std::pair<std::string_view, AngleUnit> AngleUnits[] = {
    {"radians", AngleUnit::Radians},
    {"grads", AngleUnit::Grads},
    {"decimal degrees", AngleUnit::DecimalDegrees},
    {"decimal dd.mm.ss", AngleUnit::DegreesMinutesSeconds},
};

// A unit that LandXML does not know is its own label.
std::string LabelOf(const std::string& name) {
    constexpr std::size_t LongestLabel = 40;
    const bool isPlain =
        name.size() <= LongestLabel &&
        std::none_of(name.begin(), name.end(), [](unsigned char c) { return c < ' ' || c == 0x7F; });
    return isPlain ? platform::FromUtf8(name).text : "?";
}

Unit UnitNamed(const std::string& name) {
    const auto* found = std::find_if(std::begin(NamedUnits), std::end(NamedUnits),
                                     [&](const NamedUnit& named) { return named.name == name; });
    return found != std::end(NamedUnits) ? Unit{std::string(found->label), found->isBase}
                                         : Unit{LabelOf(name)};
}

Unit ReadUnit(const ElementTree& tree, ElementIndex system, const UnitAttribute& row) {
    std::string name = tree.AttributeText(system, row.attribute);
    if (name.empty() && row.otherwise.starts_with('\''))
        name = row.otherwise.substr(1);
    else if (name.empty() && !row.otherwise.empty())
        name = tree.AttributeText(system, row.otherwise);
    return UnitNamed(name);
}

// Some files have two blanks between the words.
bool SameWords(std::string_view a, std::string_view b) {
    return SplitAtBlanks(a) == SplitAtBlanks(b);
}

AngleScale ReadAngleUnit(const ElementTree& tree, ElementIndex system, std::string_view attribute,
                         AngleUnit absent) {
    const std::string name = tree.AttributeText(system, attribute);
    if (name.empty())
        return {absent, {}};
    for (const auto& [known, unit] : AngleUnits)
        if (SameWords(known, name))
            return {unit, {}};
    return {{}, LabelOf(name)};
}

// Angles are read with more digits than a double has, so that it is known whether a double falls short of its
// text.
std::optional<long double> ReadAngle(std::string_view text) {
    if (!ReadDouble(text))
        return std::nullopt;
    text = Trim(text);
    text.remove_prefix(text.starts_with('+') ? 1 : 0);
    long double angle = 0;
    std::from_chars(text.data(), text.data() + text.size(), angle);
    return angle;
}

// Degrees from "ddd.mmss" with more digits of the second after it. Read from the digits, as 45.30 stored in
// binary can fall short of 30 minutes.
std::optional<long double> DegreesOfMinutesSeconds(std::string_view text) {
    text = Trim(text);
    if (text.find_first_of("eE") != std::string_view::npos || !ReadDouble(text))
        return std::nullopt;
    const std::size_t point = std::min(text.find('.'), text.size());
    std::string digits(text.substr(std::min(point + 1, text.size())));
    digits.resize(std::max<std::size_t>(digits.size(), 4), '0');
    const long double degrees = point == 0 ? 0 : std::abs(ReadDouble(text.substr(0, point)).value_or(0));
    const long double minutes = ReadDouble(digits.substr(0, 2)).value_or(0);
    const long double seconds = ReadAngle(digits.substr(2, 2) + "." + digits.substr(4)).value_or(0);
    if (minutes >= 60 || seconds >= 60)
        return std::nullopt;
    const long double angle = ((degrees * 60 + minutes) * 60 + seconds) / 3600;
    return text.starts_with('-') ? -angle : angle;
}

// As the library makes radians of what is typed.
double TypedRadians(long double angle, double halfTurn) {
    return static_cast<double>(angle) / halfTurn * std::numbers::pi;
}

std::optional<long double> AngleIn(std::string_view text, AngleUnit unit) {
    return unit == AngleUnit::DegreesMinutesSeconds ? DegreesOfMinutesSeconds(text) : ReadAngle(text);
}

double HalfTurnIn(AngleUnit unit) {
    return unit == AngleUnit::Grads ? 200 : 180;
}

// The smallest double from which the library computes an angle that does not fall short of the text: a text
// that ends in half a last digit is shown as it is rounded itself.
double RadiansOfAngle(long double angle, double halfTurn) {
    // The library renders 15 decimals before it rounds; less than half of the last one, as the difference to
    // the double is rounded too.
    constexpr long double Shown = 0.4e-15L;
    const long double least = std::abs(angle) - Shown;
    double radians = TypedRadians(std::abs(angle), halfTurn);
    constexpr int Furthest = 3; // the conversions round three times
    for (int step = 0; step < Furthest; ++step)
        radians = std::nextafter(radians, 0.0);
    for (int step = 0; step < 2 * Furthest && radians * halfTurn / std::numbers::pi < least; ++step)
        radians = std::nextafter(radians, std::numeric_limits<double>::infinity());
    return angle < 0 ? -radians : radians;
}

} // namespace

UnitSet ReadUnits(const ElementTree& tree, ElementIndex units) {
    UnitSet set;
    ElementIndex system = tree.FindChild(units, "Metric");
    if (system == NoElement) {
        system = tree.FindChild(units, "Imperial");
        set.imperial = system != NoElement;
    }
    if (system == NoElement)
        return set;
    for (const UnitAttribute& row : UnitAttributes)
        set.units[static_cast<std::size_t>(row.quantity)] = ReadUnit(tree, system, row);
    set.angle = ReadAngleUnit(tree, system, "angularUnit", AngleUnit::Radians);
    set.direction = ReadAngleUnit(tree, system, "directionUnit", AngleUnit::Radians);
    set.geographic = ReadAngleUnit(tree, system, "latLongAngularUnit", AngleUnit::DecimalDegrees);
    return set;
}

std::optional<double> RadiansOf(std::string_view text, AngleUnit unit) {
    if (unit == AngleUnit::Radians)
        return ReadDouble(text);
    const std::optional<long double> angle = AngleIn(text, unit);
    return angle ? std::optional(RadiansOfAngle(*angle, HalfTurnIn(unit))) : std::nullopt;
}

bool MeansRadians(std::string_view text, AngleUnit unit, double radians) {
    const std::optional<long double> angle = AngleIn(text, unit);
    const double halfTurn = HalfTurnIn(unit);
    return angle &&
           (RadiansOfAngle(*angle, halfTurn) == radians || TypedRadians(*angle, halfTurn) == radians);
}

} // namespace korvel::inspector
