#include "editing/icon_drawing.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace korvel::inspector {
namespace {

constexpr int Scale = 2; // pixels along a step
constexpr int Side = 16 * Scale;

constexpr std::uint32_t RimColor = 0xFFFFFF;
constexpr double RimWidth = 1; // steps
constexpr double RimOpacity = 0.95;

// Squared: a root for each of the many would be slow.
double SquareToSegment(IconPlace place, IconPlace from, IconPlace to) {
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    const double length = dx * dx + dy * dy;
    const double along = (place.x - from.x) * dx + (place.y - from.y) * dy;
    const double part = length > 0 ? std::clamp(along / length, 0.0, 1.0) : 0;
    const double x = place.x - from.x - part * dx;
    const double y = place.y - from.y - part * dy;
    return x * x + y * y;
}

// The share of a pixel that is inside, seen from the distance of its center.
double Coverage(double distance) {
    return std::clamp(0.5 - distance * Scale, 0.0, 1.0);
}

// A color over what is there already, neither premultiplied.
class Pixel {
public:
    void Add(std::uint32_t color, double opacity) {
        const double sum = opacity + m_opacity * (1 - opacity);
        for (int channel = 0; channel < 3 && sum > 0; ++channel) {
            const double added = color >> (16 - 8 * channel) & 0xFF;
            m_channels[channel] = (added * opacity + m_channels[channel] * m_opacity * (1 - opacity)) / sum;
        }
        m_opacity = sum;
    }

    std::uint32_t Value() const {
        std::uint32_t value = Rounded(m_opacity * 0xFF);
        for (const double channel : m_channels)
            value = value << 8 | Rounded(channel);
        return value;
    }

private:
    static std::uint32_t Rounded(double number) { return static_cast<std::uint32_t>(std::lround(number)); }

    double m_channels[3] = {0, 0, 0};
    double m_opacity = 0;
};

std::uint32_t PixelAt(const std::vector<IconShape>& shapes, IconPlace place) {
    std::vector<double> distances;
    distances.reserve(shapes.size());
    double nearest = std::numeric_limits<double>::infinity();
    for (const IconShape& shape : shapes) {
        distances.push_back(shape.Distance(place));
        nearest = std::min(nearest, distances.back());
    }
    Pixel pixel;
    pixel.Add(RimColor, RimOpacity * Coverage(nearest - RimWidth));
    for (std::size_t i = 0; i < shapes.size(); ++i)
        pixel.Add(shapes[i].Color(), Coverage(distances[i]));
    return pixel.Value();
}

} // namespace

double IconShape::Distance(IconPlace place) const {
    double nearest = std::numeric_limits<double>::infinity();
    for (std::size_t i = 1; i < m_places.size(); ++i)
        nearest = std::min(nearest, SquareToSegment(place, m_places[i - 1], m_places[i]));
    if (m_kind == Kind::Line)
        return std::sqrt(nearest) - m_reach;
    nearest = std::sqrt(std::min(nearest, SquareToSegment(place, m_places.back(), m_places.front())));
    return internal::IsInside(m_places, place.x, place.y) ? -nearest : nearest;
}

Image DrawIcon(const std::vector<IconShape>& shapes) {
    Image image{Side, Side, {}};
    image.pixels.reserve(std::size_t{Side} * Side);
    for (int row = 0; row < Side; ++row)
        for (int column = 0; column < Side; ++column)
            image.pixels.push_back(PixelAt(shapes, {(column + 0.5) / Scale, (row + 0.5) / Scale}));
    return image;
}

} // namespace korvel::inspector
