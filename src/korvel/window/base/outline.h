#pragma once

#include <span>

/// Shapes of which pictures are drawn.
namespace korvel::internal {

struct Corner {
    double x;
    double y;
};

/// Whether a point lies inside a closed outline: whether a ray to the right crosses it an odd number of times.
constexpr bool IsInside(std::span<const Corner> outline, double x, double y) {
    bool inside = false;
    Corner from = outline.back();
    const Corner* const end = outline.data() + outline.size(); // iterators cost a compiler too many steps
    for (const Corner* corner = outline.data(); corner != end; ++corner) {
        const Corner to = *corner;
        if ((from.y > y) != (to.y > y) && x < from.x + (y - from.y) * (to.x - from.x) / (to.y - from.y))
            inside = !inside;
        from = to;
    }
    return inside;
}

} // namespace korvel::internal
