#include "korvel/layout/pane_placement.h"

#include "korvel/layout/wrapping.h"

#include <cstdint>

namespace korvel::internal {
namespace {

int Width(const CRect& rect) {
    return WrappingDifference(rect.right, rect.left);
}

int Height(const CRect& rect) {
    return WrappingDifference(rect.bottom, rect.top);
}

void MoveAcross(CRect& rect, int distance) {
    rect.left = WrappingSum(rect.left, distance);
    rect.right = WrappingSum(rect.right, distance);
}

void MoveDown(CRect& rect, int distance) {
    rect.top = WrappingSum(rect.top, distance);
    rect.bottom = WrappingSum(rect.bottom, distance);
}

// Where a length begins that lies in the middle between two edges.
int MiddleStart(int low, int high, int length) {
    return WrappingSum(low, WrappingDifference(WrappingDifference(high, low), length) / 2);
}

// The share of each that grows; nobody gets the remainder. A field of the host may be negative.
int Share(int gain, int count) {
    return count == 0 ? gain : static_cast<int>(static_cast<std::int64_t>(gain) / count);
}

CRect OwnRectangle(const PaneShape& pane, CRect rect) {
    const int width = Width(pane.rect);
    const int height = Height(pane.rect);
    if (!(pane.flags & ItemGrowX)) {
        if (pane.flags & ItemAlignLeft) {
            rect.right = WrappingSum(rect.left, width);
        } else if (pane.flags & ItemAlignRight) {
            rect.left = width; // kept: see CPaneManager
        } else {
            rect.left = MiddleStart(rect.left, rect.right, width);
            rect.right = WrappingSum(rect.left, width);
        }
    }
    if (!(pane.flags & ItemGrowY)) {
        if (pane.flags & ItemAlignTop) {
            rect.bottom = WrappingSum(rect.top, height);
        } else if (pane.flags & ItemAlignBottom) {
            rect.top = WrappingDifference(rect.bottom, height);
        } else {
            rect.top = MiddleStart(rect.top, rect.bottom, height);
            rect.bottom = WrappingSum(rect.top, height);
        }
    }
    return rect;
}

} // namespace

PanePlacement::PanePlacement(const PaneShape& pane, const CRect& handed)
    : m_handed(handed), m_own(OwnRectangle(pane, handed)), m_isRow(pane.orientation == 1),
      m_gainX(Share(WrappingDifference(Width(m_own), Width(pane.rect)), pane.growCountX)),
      m_gainY(Share(WrappingDifference(Height(m_own), Height(pane.rect)), pane.growCountY)),
      m_offsetX(WrappingDifference(m_own.left, pane.rect.left)),
      m_offsetY(WrappingDifference(m_own.top, pane.rect.top)) {}

CRect PanePlacement::PlaceNext(UINT flags, const CRect& designed) {
    CRect child = designed;
    MoveAcross(child, m_offsetX);
    MoveDown(child, m_offsetY);
    PlaceAcross(flags, child);
    PlaceDown(flags, child);
    return child;
}

void PanePlacement::PlaceAcross(UINT flags, CRect& child) {
    if (flags & ItemGrowX) {
        child.right = WrappingSum(child.right, m_gainX);
        if (m_isRow)
            m_offsetX = WrappingSum(m_offsetX, m_gainX);
    } else if (!m_isRow) {
        if (!(flags & ItemAlignLeft))
            MoveAcross(child, m_gainX);
    } else if (flags & ItemAlignLeft) {
        MoveAcross(child, WrappingDifference(m_handed.left, child.left));
    } else if (flags & ItemAlignRight) {
        MoveAcross(child, WrappingDifference(m_handed.right, child.right));
    } else if (flags & ItemAlignCenterX) {
        const int left = MiddleStart(m_handed.left, m_handed.right, Width(child));
        MoveAcross(child, WrappingDifference(left, child.left));
    }
}

void PanePlacement::PlaceDown(UINT flags, CRect& child) {
    if (flags & ItemGrowY) {
        child.bottom = WrappingSum(child.bottom, m_gainY);
        if (!m_isRow)
            m_offsetY = WrappingSum(m_offsetY, m_gainY);
    } else if (m_isRow) {
        MoveDown(child, m_gainY); // kept: no flag is asked
    } else if (flags & ItemAlignBottom) {
        MoveDown(child, WrappingDifference(m_handed.bottom, child.bottom));
    } else if (flags & ItemAlignTop) {
        MoveDown(child, WrappingDifference(m_handed.top, child.top));
    } else if (flags & ItemAlignCenterY) {
        const int top = MiddleStart(m_handed.top, m_handed.bottom, Height(child));
        MoveDown(child, WrappingDifference(top, child.top));
    }
}

} // namespace korvel::internal
