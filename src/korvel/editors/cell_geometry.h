#pragma once

#include "korvel/window/base/types.h"

#include <algorithm>

/// The squares of a cell that take clicks of their own; they are drawn where they are clicked.
namespace korvel::internal {

/// As wide as the cell is high, at its left edge; never wider than the cell.
inline CRect LeftSquare(CRect cell) {
    cell.right = std::min(cell.right, cell.left + cell.Height());
    return cell;
}

/// The same at its right edge.
inline CRect RightSquare(CRect cell) {
    cell.left = std::max(cell.left, cell.right - cell.Height());
    return cell;
}

/// What is left of a cell beside its right square.
inline CRect BesideRightSquare(CRect cell) {
    cell.right = RightSquare(cell).left;
    return cell;
}

/// The cell shrunk by one pixel on every side.
inline CRect InsideOfCell(CRect cell) {
    cell.DeflateRect(1, 1);
    return cell;
}

} // namespace korvel::internal
