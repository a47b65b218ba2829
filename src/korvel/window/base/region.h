#pragma once

#include "korvel/platform/export.h"
#include "korvel/window/base/types.h"

#include <vector>

namespace korvel {

// How CRgn::CombineRgn combines, and what it returns.
inline constexpr int RGN_AND = 1;  // what is in both
inline constexpr int RGN_OR = 2;   // what is in one of them
inline constexpr int RGN_XOR = 3;  // what is in one of them only
inline constexpr int RGN_DIFF = 4; // what is in the first only
inline constexpr int RGN_COPY = 5; // the first
inline constexpr int RGN_ERROR = 0;
inline constexpr int NULLREGION = 1;    // empty
inline constexpr int SIMPLEREGION = 2;  // one rectangle
inline constexpr int COMPLEXREGION = 3; // several

/// A set of pixels, for clipping (CDC::SelectClipRgn).
///
///     CRgn ring, hole;
///     ring.CreateRectRgn(0, 0, 100, 100);
///     hole.CreateRectRgn(40, 40, 60, 60);
///     ring.CombineRgn(ring, hole, RGN_XOR);   // COMPLEXREGION
///     ring.PtInRegion({50, 50});              // false
///
/// Equal sets are kept as equal rectangles, whatever they were made of.
class KORVEL_API CRgn {
public:
    /// Becomes a rectangle; its corners may be given in any order.
    void CreateRectRgn(int left, int top, int right, int bottom);
    void CreateRectRgn(const CRect& rect) { CreateRectRgn(rect.left, rect.top, rect.right, rect.bottom); }
    /// Becomes the combination RGN_* of two regions, of which this may be one. Returns NULLREGION,
    /// SIMPLEREGION or COMPLEXREGION; RGN_ERROR, and nothing changed, for another mode.
    int CombineRgn(const CRgn& a, const CRgn& b, int mode);

    bool PtInRegion(CPoint point) const;
    /// The rectangle around it; zero for an empty region.
    CRect GetRgnBox() const;
    /// Rectangles that do not overlap, from top to bottom and from left to right; those that begin on one
    /// line also end on one.
    const std::vector<CRect>& Rectangles() const { return m_rectangles; }
    bool operator==(const CRgn&) const = default;

private:
    std::vector<CRect> m_rectangles;
};

} // namespace korvel
