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

/// The square of a file cell that lets the user choose, and the one left of it, which opens the file.
inline CRect BrowseSquare(const CRect& cell) {
    return RightSquare(InsideOfCell(cell));
}
inline CRect OpenSquare(const CRect& cell) {
    return RightSquare(BesideRightSquare(InsideOfCell(cell)));
}

/// Of a cell with a spin button: one and a half times as wide as the cell is high, but not wider than it.
inline CRect SpinArea(CRect cell) {
    const int width = (3 * cell.Height() + 1) / 2;
    cell.left = std::max(cell.left, cell.right - width);
    return cell;
}

} // namespace korvel::internal
