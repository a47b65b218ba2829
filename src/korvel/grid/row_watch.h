#pragma once

#include "korvel/grid/tree_rows.h"

namespace korvel::internal {

/// Says whether a row of a tree still shows the node that it showed when the watch began: look after every
/// call of the host that is asked about one row, which may remove it or move it.
///
///     const RowWatch row(tree, 3);
///     if (grid.OnExpandKey(row.Node(), 3) && row)
///         tree.Expand(row.Node(), 3);
class RowWatch {
public:
    RowWatch(const TreeRows& tree, int row) : m_tree(tree), m_row(row), m_node(tree.NodeAt(row)) {}

    grid::CTreeItem* Node() const { return m_node; }
    /// False also for a row that showed no node.
    explicit operator bool() const { return m_node && m_tree.NodeAt(m_row) == m_node; }

private:
    const TreeRows& m_tree;
    const int m_row;
    grid::CTreeItem* const m_node;
};

} // namespace korvel::internal
