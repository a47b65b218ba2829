#include "landxml/surface_figures.h"

#include "korvel/documents/xml_scanner.h"
#include "korvel/documents/xml_text.h"
#include "landxml/number_reading.h"
#include "source/blanks.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace korvel::inspector {
namespace {

constexpr std::size_t TagsBetweenReports = 2048;

struct Point {
    double northing = 0;
    double easting = 0;
    std::optional<double> height;
};

class SurfaceMeasure {
public:
    SurfaceMeasure(std::string_view surface, const std::function<bool(double)>& goOn)
        : m_surface(surface), m_scanner(surface), m_goOn(goOn) {}

    std::optional<SurfaceFigures> Run() {
        for (std::size_t tags = 0; SkipCharacters();) {
            if (tags++ % TagsBetweenReports == 0 &&
                !m_goOn(static_cast<double>(m_scanner.Position()) / static_cast<double>(m_surface.size())))
                return std::nullopt;
            ReadTag();
        }
        m_figures.points = m_points.size();
        if (m_hasHeights && m_figures.faces > 0)
            m_figures.area = m_area;
        return m_figures;
    }

private:
    // Moves to the next tag; false where there is none.
    bool SkipCharacters() {
        while (!m_scanner.AtEnd())
            if (m_scanner.IsAt("<!--"))
                m_scanner.SkipComment();
            else if (m_scanner.IsAt("<![CDATA["))
                m_scanner.TakeCharacterSection();
            else if (m_scanner.IsAt("<?"))
                m_scanner.SkipInstruction();
            else if (m_scanner.IsAt("<"))
                return true;
            else
                m_scanner.TakeCharacterData();
        return false;
    }

    void ReadTag() {
        if (m_scanner.Skip("</")) {
            m_scanner.TakeName();
            m_scanner.SkipBlanks();
            m_scanner.Skip(">");
            return;
        }
        m_scanner.Skip("<");
        std::string_view name = m_scanner.TakeName();
        name = name.substr(name.find(':') + 1);
        std::string_view id;
        bool isHidden = false;
        for (XmlAttribute attribute; m_scanner.NextAttribute(attribute);) {
            if (attribute.name == "id")
                id = Trim(attribute.value);
            isHidden |= attribute.name == "i" && Trim(attribute.value) == "1";
        }
        const bool isEmpty = m_scanner.Skip("/");
        m_scanner.Skip(">");
        if (name == "Definition") // its faces name its own points
            m_indexes.clear();
        else if (!isEmpty && name == "P")
            AddPoint(id);
        else if (!isEmpty && name == "F" && !isHidden)
            AddFace();
    }

    std::string TakeText() {
        const std::size_t begin = m_scanner.Position();
        SkipCharacters();
        return DecodeXmlText(m_surface.substr(begin, m_scanner.Position() - begin), std::string::npos).utf8;
    }

    void AddPoint(std::string_view id) {
        const std::string text = TakeText();
        const std::vector<std::string_view> words = SplitAtBlanks(text);
        if (words.size() < 2)
            return;
        const auto northing = ReadDouble(words[0]);
        const auto easting = ReadDouble(words[1]);
        if (!northing || !easting)
            return;
        const auto height = words.size() > 2 ? ReadDouble(words[2]) : std::nullopt;
        if (height) {
            m_figures.lowest = std::min(m_figures.lowest.value_or(*height), *height);
            m_figures.highest = std::max(m_figures.highest.value_or(*height), *height);
        }
        m_indexes[id] = m_points.size();
        m_points.push_back({*northing, *easting, height});
    }

    void AddFace() {
        const std::string text = TakeText();
        std::vector<const Point*> corners;
        for (const std::string_view word : SplitAtBlanks(text)) {
            const auto found = m_indexes.find(word);
            if (found == m_indexes.end()) {
                ++m_figures.broken;
                return;
            }
            corners.push_back(&m_points[found->second]);
        }
        if (corners.size() < 3) {
            ++m_figures.broken;
            return;
        }
        ++m_figures.faces;
        for (std::size_t i = 2; i < corners.size(); ++i)
            AddTriangle(*corners[0], *corners[i - 1], *corners[i]);
    }

    void AddTriangle(const Point& a, const Point& b, const Point& c) {
        const double north1 = b.northing - a.northing;
        const double east1 = b.easting - a.easting;
        const double north2 = c.northing - a.northing;
        const double east2 = c.easting - a.easting;
        const double plan = north1 * east2 - east1 * north2;
        m_figures.planArea += std::abs(plan) / 2;
        if (!a.height || !b.height || !c.height) {
            m_hasHeights = false;
            return;
        }
        const double up1 = *b.height - *a.height;
        const double up2 = *c.height - *a.height;
        m_area += std::hypot(plan, east1 * up2 - up1 * east2, up1 * north2 - north1 * up2) / 2;
    }

    const std::string_view m_surface;
    XmlScanner m_scanner;
    const std::function<bool(double)>& m_goOn;
    std::vector<Point> m_points;
    std::unordered_map<std::string_view, std::size_t> m_indexes; // of the points, by their ids as written
    SurfaceFigures m_figures;
    double m_area = 0;
    bool m_hasHeights = true; // of all faces
};

} // namespace

std::optional<SurfaceFigures> MeasureSurface(std::string_view surface,
                                             const std::function<bool(double done)>& goOn) {
    return SurfaceMeasure(surface, goOn).Run();
}

} // namespace korvel::inspector
