#pragma once

#include "korvel/grid/tree_grid_list.h"

#include <algorithm>
#include <optional>

namespace korvel::internal {

/// The place of a cell; empty for no such one.
inline CRect CellRect(const TreeGridList& list, int row, int column) {
    CRect cell;
    return list.GetSubItemRect(row, column, LVIR_LABEL, &cell) ? cell : CRect();
}

/// The place of a cell whose row is wholly on the screen; nothing for another one. For the control that lies
/// over it, when the cells have moved.
inline std::optional<CRect> SeenCell(const TreeGridList& list, int row, int column) {
    const int top = list.GetTopIndex();
    CRect cell;
    if (row < top || row >= top + std::max(1, list.GetCountPerPage()) ||
        !list.GetSubItemRect(row, column, LVIR_LABEL, &cell))
        return std::nullopt;
    return cell;
}

} // namespace korvel::internal
