#pragma once

#include "korvel/grid/super_grid_ctrl.h"

namespace korvel::internal {

/// Says whether a row of a grid still shows the node that it showed when the watch began: look after every
/// call of the host that is asked about one row, which may remove it or move it.
///
///     const RowWatch row(grid, 3);
///     if (grid.OnExpandKey(row.Node(), 3) && row)
///         grid.ExpandNode(row.Node(), 3);
class RowWatch {
public:
    RowWatch(const CSuperGridCtrl& grid, int row) : m_grid(grid), m_row(row), m_node(grid.NodeAtRow(row)) {}

    grid::CTreeItem* Node() const { return m_node; }
    /// False also for a row that showed no node.
    explicit operator bool() const { return m_node && m_grid.NodeAtRow(m_row) == m_node; }

private:
    const CSuperGridCtrl& m_grid;
    const int m_row;
    grid::CTreeItem* const m_node;
};

} // namespace korvel::internal
