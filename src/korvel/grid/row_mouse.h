#pragma once

#include "korvel/grid/tree_grid_list.h"

namespace korvel::internal {

class RowWatch;
class TreeRows;

/// What presses in the rows of a tree grid do; for the time of one press.
class RowMouse {
public:
    RowMouse(TreeGridList& list, TreeRows& tree) : m_list(list), m_tree(tree) {}

    void Press(UINT flags, CPoint point);
    void DoubleClick(UINT flags, CPoint point);

private:
    enum class ToggledBy { Sign, DoubleClick };

    bool PassOn(const RowWatch& row, const LVHITTESTINFO& hit);
    bool IsOnSign(const grid::CTreeItem& node, const LVHITTESTINFO& hit) const;
    bool IsOnFlag(const grid::CTreeItem& node, const LVHITTESTINFO& hit) const;
    void Toggle(const RowWatch& row, int number, ToggledBy by);

    TreeGridList& m_list;
    TreeRows& m_tree;
};

} // namespace korvel::internal
