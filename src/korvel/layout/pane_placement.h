#pragma once

#include "korvel/layout/layout_flags.h"

namespace korvel::internal {

/// What the arithmetic knows of a pane.
struct PaneShape {
    CRect rect; // as designed
    UINT flags = 0;
    int orientation = 0; // 1: children flow left to right; else top to bottom
    int growCountX = 0;  // children that share what the pane gains along its axis
    int growCountY = 0;
};

/// Where a pane that is handed a rectangle places itself and, one after the other, its children. It sees
/// rectangles and nothing else, and allocates nothing.
///
///     PanePlacement placement({{0, 0, 300, 20}, ItemGrowX, 1, 3, 0}, {0, 0, 400, 20});
///     placement.PlaceNext(ItemGrowX, {0, 0, 100, 20});     // {0, 0, 133, 20}
///     placement.PlaceNext(ItemGrowX, {100, 0, 200, 20});   // {133, 0, 266, 20}
///
/// Every division truncates toward zero, so what cannot be shared evenly stays unused at the end of a row.
/// Coordinates wrap around at 32 bits: no rectangle is too large, negative or reversed.
///
/// CPaneManager lists what is not symmetric in it, and kept.
class PanePlacement {
public:
    PanePlacement(const PaneShape& pane, const CRect& handed);

    /// The rectangle of the pane itself.
    const CRect& Own() const { return m_own; }
    /// The rectangle of the next child.
    CRect PlaceNext(UINT flags, const CRect& designed);

private:
    void PlaceAcross(UINT flags, CRect& child);
    void PlaceDown(UINT flags, CRect& child);

    const CRect m_handed;
    CRect m_own;
    const bool m_isRow;
    int m_gainX = 0; // of each child that grows
    int m_gainY = 0;
    int m_offsetX = 0; // of the next child
    int m_offsetY = 0;
};

} // namespace korvel::internal
