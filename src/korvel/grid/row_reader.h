#pragma once

#include "korvel/grid/row_watch.h"
#include "korvel/grid/tree_grid_list.h"
#include "korvel/window/base/list_view.h"

namespace korvel::internal {

/// Says of a cell of a tree grid what its list does not know: what RowPainter draws, for whoever does not see it.
class RowReader {
public:
    RowReader(TreeGridList& list, const TreeRows& tree) : m_list(list), m_tree(tree) {}

    /// Adds to what the list has filled in. Asks the host for flags. False: the row is not there any more.
    bool Complete(view::CellView& cell) const;

private:
    void ReadTree(const grid::CTreeItem& node, view::CellView& cell) const;
    void ReadValue(const grid::CTreeItem& node, view::CellView& cell) const;

    TreeGridList& m_list;
    const TreeRows& m_tree;
};

} // namespace korvel::internal
