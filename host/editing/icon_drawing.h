#pragma once

#include "korvel/window/base/image_list.h"
#include "korvel/window/base/outline.h"

#include <cstdint>
#include <utility>
#include <vector>

namespace korvel::inspector {

/// A place on the grid of an icon: 16 by 16 steps, from the upper left corner.
using IconPlace = internal::Corner;

/// One form of an icon, in one color (0xRRGGBB).
class IconShape {
public:
    static IconShape Area(std::uint32_t color, std::vector<IconPlace> corners) {
        return {Kind::Area, color, std::move(corners), 0};
    }
    static IconShape Line(std::uint32_t color, std::vector<IconPlace> places, double width = 1.5) {
        return {Kind::Line, color, std::move(places), width / 2};
    }
    static IconShape Disc(std::uint32_t color, IconPlace center, double radius) {
        return {Kind::Line, color, {center, center}, radius};
    }

    std::uint32_t Color() const { return m_color; }
    /// How far a place is outside the shape, in steps; negative inside.
    double Distance(IconPlace place) const;

private:
    enum class Kind { Area, Line };
    IconShape(Kind kind, std::uint32_t color, std::vector<IconPlace> places, double reach)
        : m_kind(kind), m_color(color), m_places(std::move(places)), m_reach(reach) {}

    Kind m_kind;
    std::uint32_t m_color;
    std::vector<IconPlace> m_places;
    double m_reach; // of a line to each side
};

/// Draws shapes one over the other, with soft edges on a clear ground and a pale rim around them all, so that
/// an icon stands out from dark and colored grounds as well. Two pixels a step keep it sharp on screens of
/// twice the scale; a display makes it smaller elsewhere.
///
///     Image icon = DrawIcon({IconShape::Disc(0x2F6FB5, {8, 8}, 4)});   // 32 x 32 pixels
Image DrawIcon(const std::vector<IconShape>& shapes);

} // namespace korvel::inspector
