#pragma once

#include "korvel/window/base/types.h"

#include <algorithm>

namespace korvel::internal {

/// How far the sides of a control are from those of the cell that it lies over, and moves with.
struct CellOffsets {
    int left = 0, top = 0, right = 0, bottom = 0;

    static CellOffsets Of(const CRect& control, const CRect& cell) {
        return {control.left - cell.left, control.top - cell.top, control.right - cell.right,
                control.bottom - cell.bottom};
    }
    CRect Around(const CRect& cell) const {
        return {cell.left + left, cell.top + top, std::max(cell.left + left, cell.right + right),
                cell.bottom + bottom};
    }
};

} // namespace korvel::internal
