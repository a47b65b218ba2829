#include "landxml/value_reading.h"

#include "landxml/number_reading.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace korvel::inspector {
namespace {

constexpr const char* DateIsSet = "GDT_VALID";

// Measures whose unit the Units element tells. Only values in the base unit may take the measure's type,
// which shows that unit; others, and those of DT_Double, are numbers with the unit behind their name.
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

    // Nothing when the text is not what the type asks for. `shown` is the text in the library's code page.
    std::optional<TypedValue> Read(const std::string& shown) const {
        if (const Measure* measure = FindMeaning(Measures, m_type.meaning))
            return ReadMeasure(*measure, shown);
        if (const FixedMeasure* measure = FindMeaning(FixedMeasures, m_type.meaning))
            return ReadNumber(DT_Double, m_place.units.imperial ? measure->imperial : measure->metric, shown);
        switch (m_type.meaning) {
        case Meaning::Station:
            return ReadStation(shown);
        case Meaning::Number:
            return ReadNumber(DT_Double, {}, shown);
        case Meaning::Percent:
            return ReadNumber(DT_PercentDouble, {}, shown);
        case Meaning::Angle:
            return ReadAngle(m_place.units.angle, shown);
        case Meaning::Direction:
            return ReadAngle(m_place.units.direction, shown);
        case Meaning::GeographicAngle:
            return ReadAngle(m_place.units.geographic, shown);
        default:
            return ReadPlain(shown);
        }
    }

private:
    using Result = std::optional<TypedValue>;

    static TypedValue Valid(CVariantValue value, std::string_view unit = {}) {
        return {std::move(value), std::string(unit)};
    }

    Result ReadNumber(EDataTyps type, std::string_view unit, const std::string& shown) const {
        if (IsNotFinite(m_utf8))
            return Valid(OfText(DT_String, shown), unit);
        const std::optional<double> number = ReadDouble(m_utf8);
        if (!number)
            return std::nullopt;
        return Valid(OfDouble(type, *number), unit);
    }

    Result ReadMeasure(const Measure& measure, const std::string& shown) const {
        const Unit& unit = m_place.units.Of(measure.quantity);
        if (unit.isBase)
            return ReadNumber(measure.baseType, {}, shown);
        return ReadNumber(DT_Double, unit.label, shown);
    }

    // A station keeps its form in other units too; the unit then stands behind the name.
    Result ReadStation(const std::string& shown) const {
        const Unit& unit = m_place.units.Of(Quantity::Length);
        const EDataTyps type = m_place.isRailway ? DT_RailwayStationDouble : DT_RoadStationDouble;
        return ReadNumber(type, unit.isBase ? std::string_view() : unit.label, shown);
    }

    Result ReadAngle(std::optional<AngleUnit> unit, const std::string& shown) const {
        if (!unit)
            return ReadNumber(DT_Double, {}, shown);
        if (IsNotFinite(m_utf8))
            return Valid(OfText(DT_String, shown));
        const std::optional<double> radians = RadiansOf(m_utf8, *unit);
        if (!radians)
            return std::nullopt;
        return Valid(OfDouble(DT_AngleDouble, *radians));
    }

    Result ReadPlain(const std::string& shown) const {
        switch (m_type.meaning) {
        case Meaning::Integer:
        case Meaning::PositiveInteger:
            return ReadWholeNumber();
        case Meaning::Flag:
            return ReadBool();
        case Meaning::Date:
            return ReadDay();
        case Meaning::Color:
            return ReadColorWord();
        case Meaning::Time:
            return IsTime(m_utf8) ? Result(Valid(OfText(DT_String, shown))) : std::nullopt;
        case Meaning::DateTime:
            return IsDateTime(m_utf8) ? Result(Valid(OfText(DT_String, shown))) : std::nullopt;
        case Meaning::Enumeration:
            return m_type.enumeration->Find(m_utf8) != -1 ? Result(Valid(m_type.enumeration->Selected(shown)))
                                                          : std::nullopt;
        case Meaning::FileName: {
            CVariantValue value = OfText(DT_FileName, shown);
            value.EnumContext = m_place.fileChooser;
            return Valid(std::move(value));
        }
        default:
            return Valid(OfText(DT_String, shown));
        }
    }

    Result ReadWholeNumber() const {
        const std::optional<std::int32_t> number = ReadInteger(m_utf8);
        if (!number || (m_type.meaning == Meaning::PositiveInteger && *number <= 0))
            return std::nullopt;
        CVariantValue value;
        value.Type = DT_Int;
        value.Value.Int = *number;
        return Valid(std::move(value));
    }

    Result ReadBool() const {
        const std::optional<bool> flag = ReadFlag(m_utf8);
        if (!flag)
            return std::nullopt;
        CVariantValue value;
        value.Type = DT_Bool;
        value.Value.Bool = *flag ? 1 : 0;
        return Valid(std::move(value));
    }

    Result ReadDay() const {
        const std::optional<double> date = ReadDate(m_utf8);
        if (!date)
            return std::nullopt;
        CVariantValue value = OfDouble(DT_Date, *date);
        value.Text = DateIsSet;
        return Valid(std::move(value));
    }

    Result ReadColorWord() const {
        const std::optional<std::uint32_t> word = ReadColor(m_utf8);
        if (!word)
            return std::nullopt;
        CVariantValue value;
        value.Type = DT_ColorRGB;
        value.Value.UInt = *word;
        return Valid(std::move(value));
    }

    const ValueType& m_type;
    const std::string& m_utf8;
    const ValuePlace& m_place;
};

} // namespace

platform::ConvertedText ToLibraryText(const std::string& utf8) {
    const bool isAscii = std::all_of(utf8.begin(), utf8.end(), [](char c) { return (c & 0x80) == 0; });
    return isAscii ? platform::ConvertedText{utf8, true} : platform::FromUtf8(utf8);
}

TypedValue ReadValue(const ValueType& type, const XmlCharacters& text, const ValuePlace& place) {
    platform::ConvertedText shown = ToLibraryText(text.utf8);
    if (!text.complete)
        shown.text += "...";
    std::optional<TypedValue> value;
    if (text.complete || type.meaning == Meaning::Text)
        value = ValueReader(type, text.utf8, place).Read(shown.text);
    if (!value) {
        value.emplace();
        value->value = OfText(DT_String, std::move(shown.text));
        value->isValid = false;
    }
    value->isExact = shown.exact && text.complete;
    return *std::move(value);
}

} // namespace korvel::inspector
