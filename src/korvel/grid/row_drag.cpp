#include "korvel/grid/row_drag.h"

#include "korvel/grid/branch_copies.h"
#include "korvel/grid/tree_rows.h"
#include "korvel/platform/first_failure.h"

#include <utility>

namespace korvel::internal {

RowDrag::RowDrag(TreeGridList& list, TreeRows& tree, BranchCopies& copies)
    : m_list(list), m_tree(tree), m_copies(copies) {}

RowDrag::~RowDrag() = default;

void RowDrag::Begin(int row) {
    Stop();
    grid::CTreeItem* node = m_tree.NodeAt(row);
    if (!m_list.m_allowDrag || !node)
        return;
    const LossWatch rows = m_tree.Watch();
    auto image = m_list.CreateRowDragImage(row);
    if (!image || !rows)
        return;
    m_image = std::move(image);
    m_node = node;
    SetCapture(m_list.m_hWnd);
}

void RowDrag::Move(CPoint point) {
    grid::CTreeItem* target = m_tree.NodeAt(m_list.HitTest(point));
    const grid::CTreeItem* former = std::exchange(m_target, target);
    if (former == target)
        return;
    const LossWatch rows = m_tree.Watch();
    Redraw(former);
    if (rows)
        Redraw(target);
}

void RowDrag::Drop(CPoint point) {
    grid::CTreeItem* node = m_node;
    const LossWatch rows = m_tree.Watch();
    Stop();
    if (!rows)
        return;
    grid::CTreeItem* target = m_tree.NodeAt(m_list.HitTest(point));
    if (!target || target == node->parent())
        return;
    const TreeGridList::RedrawPause pause(m_list);
    m_copies.MoveUnder(target, node);
}

void RowDrag::Stop() {
    if (!std::exchange(m_node, nullptr))
        return;
    m_image.reset();
    const grid::CTreeItem* target = std::exchange(m_target, nullptr);
    FirstFailure failure;
    failure.Try([&] { Redraw(target); });
    failure.Try([&] {
        if (GetCapture() == m_list.m_hWnd)
            ReleaseCapture();
    });
    failure.Rethrow();
}

void RowDrag::Redraw(const grid::CTreeItem* node) {
    m_list.RedrawRow(m_tree.RowOf(node));
}

} // namespace korvel::internal
