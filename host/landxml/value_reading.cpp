#include "landxml/value_reading.h"

#include "korvel/platform/code_page.h"
#include "landxml/number_reading.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace korvel::inspector {
namespace {

constexpr const char* DateIsSet = "GDT_VALID";

// Measures whose unit the Units element names. Only values in the base unit may take the measure's type,
// which shows that unit; others, and those of DT_Double, are numbers with the unit after their name.
struct Measure {
    Meaning meaning;
    Quantity quantity;
    EDataTyps baseType;
};
constexpr Measure Measures[] = {
    {Meaning::Length, Quantity::Length, DT_LengthDouble},
    {Meaning::Diameter, Quantity::Diameter, DT_LengthDouble},
    {Meaning::Width, Quantity::Width, DT_LengthDouble},
    {Meaning::Height, Quantity::Height, DT_LengthDouble},
    {Meaning::Elevation, Quantity::Elevation, DT_LengthDouble},
    {Meaning::Area, Quantity::Area, DT_AreaDouble},
    {Meaning::Volume, Quantity::Volume, DT_VolumeDouble},
    {Meaning::Velocity, Quantity::Velocity, DT_Double},
    {Meaning::Flow, Quantity::Flow, DT_Double},
    {Meaning::Pressure, Quantity::Pressure, DT_Double},
    {Meaning::Temperature, Quantity::Temperature, DT_Double},
};

// Measures whose unit follows from the system alone.
struct FixedMeasure {
    Meaning meaning;
    const char* metric;
    const char* imperial;
};
constexpr FixedMeasure FixedMeasures[] = {
    {Meaning::Speed, "km/h", "mph"},
    {Meaning::Cant, "mm", "in"},
    {Meaning::CantPerTime, "mm/s", "in/s"},
    {Meaning::CantPerLength, "mm/m", "in/ft"},
};

template <typename Rows>
auto FindMeaning(const Rows& rows, Meaning meaning) {
    const auto* found = std::find_if(std::begin(rows), std::end(rows),
                                     [&](const auto& row) { return row.meaning == meaning; });
    return found != std::end(rows) ? found : nullptr;
}

CVariantValue OfDouble(EDataTyps type, double number) {
    CVariantValue value;
    value.Type = type;
    value.Value.Double = number;
    return value;
}

CVariantValue OfText(EDataTyps type, std::string text) {
    CVariantValue value;
    value.Type = type;
    value.Text = std::move(text);
    return value;
}

class ValueReader {
public:
    ValueReader(const ValueType& type, const std::string& utf8, const ValuePlace& place)
        : m_type(type), m_utf8(utf8), m_place(place) {}

    using Result = std::optional<CVariantValue>;

    // Nothing when the text is not what the type asks for. `shown` is the text in the library's code page.
    Result Read(const std::string& shown) const {
        if (const Measure* measure = FindMeaning(Measures, m_type.meaning))
            return ReadNumber(IsBase(measure->quantity) ? measure->baseType : DT_Double, shown);
        if (FindMeaning(FixedMeasures, m_type.meaning))
            return ReadNumber(DT_Double, shown);
        switch (m_type.meaning) {
        case Meaning::Station: // keeps its form in other units too
            return ReadNumber(m_place.isRailway ? DT_RailwayStationDouble : DT_RoadStationDouble, shown);
        case Meaning::Number:
            return ReadNumber(DT_Double, shown);
        case Meaning::Percent:
            return ReadNumber(DT_PercentDouble, shown);
        default:
            break;
        }
        const AngleScale* scale = ScaleOf(m_type.meaning, m_place.units);
        return scale ? ReadAngle(scale->unit, shown) : ReadPlain(shown);
    }

private:
    bool IsBase(Quantity quantity) const { return m_place.units.Of(quantity).isBase; }

    Result ReadNumber(EDataTyps type, const std::string& shown) const {
        if (IsNotFinite(m_utf8))
            return OfText(DT_String, shown);
        const std::optional<double> number = ReadDouble(m_utf8);
        return number ? Result(OfDouble(type, *number)) : std::nullopt;
    }

    Result ReadAngle(std::optional<AngleUnit> unit, const std::string& shown) const {
        if (!unit)
            return ReadNumber(DT_Double, shown);
        if (IsNotFinite(m_utf8))
            return OfText(DT_String, shown);
        const std::optional<double> radians = RadiansOf(m_utf8, *unit);
        return radians ? Result(OfDouble(DT_AngleDouble, *radians)) : std::nullopt;
    }

    Result ReadPlain(const std::string& shown) const {
        switch (m_type.meaning) {
        case Meaning::Integer:
        case Meaning::PositiveInteger:
            return ReadWholeNumber(shown);
        case Meaning::Flag:
            return ReadBool();
        case Meaning::Date:
            return ReadDay();
        case Meaning::Color:
            return ReadColorWord();
        case Meaning::Time:
            return IsTime(m_utf8) ? Result(OfText(DT_String, shown)) : std::nullopt;
        case Meaning::DateTime:
            return IsDateTime(m_utf8) ? Result(OfText(DT_String, shown)) : std::nullopt;
        case Meaning::Enumeration:
            return m_type.enumeration->Find(m_utf8) != -1 ? Result(m_type.enumeration->Selected(shown))
                                                          : std::nullopt;
        case Meaning::FileName: {
            CVariantValue value = OfText(DT_FileName, shown);
            value.EnumContext = m_place.fileChooser;
            return value;
        }
        default:
            return OfText(DT_String, shown);
        }
    }

    Result ReadWholeNumber(const std::string& shown) const {
        const std::optional<std::int32_t> number = ReadInteger(m_utf8);
        const bool isNegative = m_utf8.find('-') != std::string::npos;
        if (m_type.meaning == Meaning::PositiveInteger && (isNegative || number == 0))
            return std::nullopt;
        if (!number)
            return IsInteger(m_utf8) ? Result(OfText(DT_String, shown)) : std::nullopt;
        CVariantValue value;
        value.Type = DT_Int;
        value.Value.Int = *number;
        return value;
    }

    Result ReadBool() const {
        const std::optional<bool> flag = ReadFlag(m_utf8);
        if (!flag)
            return std::nullopt;
        CVariantValue value;
        value.Type = DT_Bool;
        value.Value.Bool = *flag ? 1 : 0;
        return value;
    }

    Result ReadDay() const {
        const std::optional<double> date = ReadDate(m_utf8);
        if (!date)
            return std::nullopt;
        CVariantValue value = OfDouble(DT_Date, *date);
        value.Text = DateIsSet;
        return value;
    }

    Result ReadColorWord() const {
        const std::optional<std::uint32_t> word = ReadColor(m_utf8);
        if (!word)
            return std::nullopt;
        CVariantValue value;
        value.Type = DT_ColorRGB;
        value.Value.UInt = *word;
        return value;
    }

    const ValueType& m_type;
    const std::string& m_utf8;
    const ValuePlace& m_place;
};

} // namespace

const AngleScale* ScaleOf(Meaning meaning, const UnitSet& units) {
    switch (meaning) {
    case Meaning::Angle:
        return &units.angle;
    case Meaning::Direction:
        return &units.direction;
    case Meaning::GeographicAngle:
        return &units.geographic;
    default:
        return nullptr;
    }
}

std::string ToLibraryText(const std::string& utf8) {
    const bool isAscii = std::all_of(utf8.begin(), utf8.end(), [](char c) { return (c & 0x80) == 0; });
    return isAscii ? utf8 : platform::FromUtf8(utf8).text;
}

std::string_view UnitOf(const ValueType& type, const ValuePlace& place) {
    if (const FixedMeasure* measure = FindMeaning(FixedMeasures, type.meaning))
        return place.units.imperial ? measure->imperial : measure->metric;
    if (const AngleScale* scale = ScaleOf(type.meaning, place.units))
        return scale->unknown;
    const Measure* measure = FindMeaning(Measures, type.meaning);
    if (!measure && type.meaning != Meaning::Station)
        return {};
    const Unit& unit = place.units.Of(measure ? measure->quantity : Quantity::Length);
    return unit.isBase ? std::string_view() : unit.label;
}

TypedValue ReadValue(const ValueType& type, const XmlCharacters& text, const ValuePlace& place) {
    std::string shown = ToLibraryText(text.utf8);
    if (!text.complete)
        shown += "...";
    std::optional<CVariantValue> value;
    if (text.complete || type.meaning == Meaning::Text)
        value = ValueReader(type, text.utf8, place).Read(shown);
    TypedValue typed;
    typed.isComplete = text.complete;
    typed.isValid = value.has_value();
    if (typed.isValid)
        typed.unit = UnitOf(type, place);
    typed.value = value ? *std::move(value) : OfText(DT_String, std::move(shown));
    return typed;
}

} // namespace korvel::inspector
