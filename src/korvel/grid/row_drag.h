#pragma once

#include "korvel/grid/tree_grid_list.h"

#include <memory>

namespace korvel::internal {

class BranchCopies;
class TreeRows;

/// A row of a tree grid that the pointer drags, and that moves below the row on which it is dropped.
class RowDrag {
public:
    /// All must outlive it.
    RowDrag(TreeGridList& list, TreeRows& tree, BranchCopies& copies);
    ~RowDrag();

    bool IsActive() const { return m_node != nullptr; }
    void Begin(int row);
    void Move(CPoint point);
    void Drop(CPoint point);
    /// To be called before a node is deleted.
    void Stop();

private:
    void Redraw(const grid::CTreeItem* node);

    TreeGridList& m_list;
    TreeRows& m_tree;
    BranchCopies& m_copies;
    std::unique_ptr<CImageList> m_image;
    grid::CTreeItem* m_node = nullptr;
    grid::CTreeItem* m_target = nullptr; // under the pointer
};

} // namespace korvel::internal
