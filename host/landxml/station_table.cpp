#include "landxml/station_table.h"

#include "korvel/platform/one_line.h"
#include "landxml/landxml_document.h"
#include "landxml/number_reading.h"
#include "source/blanks.h"
#include "texts/program_texts.h"

#include <array>
#include <cmath>
#include <numbers>
#include <optional>

namespace korvel::inspector {
namespace {

struct Place {
    double northing;
    double easting;
};

class StationTableWriter {
public:
    StationTableWriter(LandXmlDocument& document, ElementIndex alignment)
        : m_document(document), m_tree(document.Tree()), m_alignment(alignment) {}

    std::string Write() {
        const ProgramTexts& texts = TheProgramTexts;
        Add({InCodePage(texts.name), InCodePage(texts.station), InCodePage(texts.stationBack),
             InCodePage(texts.stationAhead)});
        const std::optional<double> start = Number(m_alignment, "staStart");
        AddStation(InCodePage(texts.stationStart), start);
        AddGeometry(start);
        std::optional<double> end = Number(m_alignment, "staEnd");
        if (const auto length = Number(m_alignment, "length"); !end && start && length)
            end = *start + *length;
        AddStation(InCodePage(texts.stationEnd), end);
        AddEquations();
        return m_table;
    }

private:
    void Add(const std::array<std::string, 4>& cells) {
        if (!m_table.empty())
            m_table += '\n';
        for (std::size_t i = 0; i < cells.size(); ++i) {
            if (i > 0)
                m_table += '\t';
            platform::AppendTableCell(m_table, cells[i]);
        }
    }

    void AddStation(const std::string& name, std::optional<double> station) {
        Add({name, StationText(station), {}, {}});
    }

    void AddGeometry(std::optional<double> station) {
        const ElementIndex geometry = m_tree.FindChild(m_alignment, "CoordGeom");
        if (geometry == NoElement)
            return;
        for (const ElementIndex element : m_tree.Children(geometry)) {
            if (m_tree.LocalName(element) == "Feature")
                continue;
            if (const auto own = Number(element, "staStart"))
                station = own;
            AddStation(m_document.NamesOf(geometry).NameOfChild(element), station);
            const std::optional<double> length = LengthOf(element);
            station = station && length ? std::optional(*station + *length) : std::nullopt;
        }
    }

    void AddEquations() {
        for (const ElementIndex element : m_tree.Children(m_alignment))
            if (m_tree.LocalName(element) == "StaEquation")
                Add({m_document.NamesOf(m_alignment).NameOfChild(element),
                     StationText(Number(element, "staInternal")), StationText(Number(element, "staBack")),
                     StationText(Number(element, "staAhead"))});
    }

    std::optional<double> Number(ElementIndex element, const char* attribute) const {
        return ReadDouble(m_tree.AttributeText(element, attribute));
    }

    std::optional<Place> PlaceOf(ElementIndex element, const char* point) const {
        const ElementIndex child = m_tree.FindChild(element, point);
        if (child == NoElement)
            return std::nullopt;
        const std::string text = m_tree.Text(child).Decode(std::string::npos).utf8;
        const std::vector<std::string_view> words = SplitAtBlanks(text);
        const auto northing = words.size() < 2 ? std::nullopt : ReadDouble(words[0]);
        const auto easting = words.size() < 2 ? std::nullopt : ReadDouble(words[1]);
        return northing && easting ? std::optional(Place{*northing, *easting}) : std::nullopt;
    }

    std::optional<double> LengthOf(ElementIndex element) const {
        if (const auto length = Number(element, "length"))
            return length;
        const std::string_view kind = m_tree.LocalName(element);
        const auto start = PlaceOf(element, "Start");
        const auto end = PlaceOf(element, "End");
        if (!start || !end)
            return std::nullopt;
        if (kind == "Line")
            return std::hypot(end->northing - start->northing, end->easting - start->easting);
        const auto center = PlaceOf(element, "Center");
        if (kind != "Curve" || !center)
            return std::nullopt;
        const auto direction = [&](const Place& place) { // clockwise from north
            return std::atan2(place.easting - center->easting, place.northing - center->northing);
        };
        const double turn = m_tree.AttributeText(element, "rot") == "ccw"
                                ? direction(*start) - direction(*end)
                                : direction(*end) - direction(*start);
        const double radius =
            std::hypot(start->northing - center->northing, start->easting - center->easting);
        return radius * (turn < 0 ? turn + 2 * std::numbers::pi : turn);
    }

    std::string StationText(std::optional<double> station) const {
        if (!station)
            return {};
        const ValueType type = {Meaning::Station};
        TypedValue value = ReadValue(type, {"0", true}, m_document.Members().PlaceOf(m_alignment, type));
        value.value.Value.Double = *station;
        return value.value.ToText() + (value.unit.empty() ? "" : " " + value.unit);
    }

    LandXmlDocument& m_document;
    const ElementTree& m_tree;
    const ElementIndex m_alignment;
    std::string m_table;
};

} // namespace

std::string StationTable(LandXmlDocument& document, ElementIndex alignment) {
    return StationTableWriter(document, alignment).Write();
}

} // namespace korvel::inspector
