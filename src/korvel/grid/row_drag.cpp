#include "korvel/grid/row_drag.h"

#include "korvel/grid/rows_watch.h"
#include "korvel/grid/super_grid_ctrl.h"

#include <utility>

namespace korvel::internal {

RowDrag::RowDrag(CSuperGridCtrl& grid) : m_grid(grid) {}

RowDrag::~RowDrag() = default;

void RowDrag::Begin(int row) {
    Stop();
    grid::CTreeItem* node = m_grid.NodeAtRow(row);
    if (!m_grid.m_allowDrag || !node)
        return;
    const RowsWatch rows = m_grid.WatchRows();
    auto image = m_grid.CreateRowDragImage(row);
    if (!image || !rows)
        return;
    m_image = std::move(image);
    m_node = node;
    SetCapture(m_grid.m_hWnd);
}

void RowDrag::Move(CPoint point) {
    grid::CTreeItem* target = m_grid.NodeAtRow(m_grid.HitTest(point));
    const grid::CTreeItem* former = std::exchange(m_target, target);
    if (former == target)
        return;
    const RowsWatch rows = m_grid.WatchRows();
    m_grid.RedrawNode(former);
    if (rows)
        m_grid.RedrawNode(target);
}

void RowDrag::Drop(CPoint point) {
    grid::CTreeItem* node = m_node;
    const RowsWatch rows = m_grid.WatchRows();
    Stop();
    if (!rows)
        return;
    grid::CTreeItem* target = m_grid.NodeAtRow(m_grid.HitTest(point));
    if (!target || target == node->parent())
        return;
    const CSuperGridCtrl::RedrawPause pause(m_grid);
    if (m_grid.CopyNodeUnder(target, node) && rows)
        m_grid.TakeNode(node);
}

void RowDrag::Stop() {
    if (!std::exchange(m_node, nullptr))
        return;
    m_image.reset();
    m_grid.RedrawNode(std::exchange(m_target, nullptr));
    if (GetCapture() == m_grid.m_hWnd)
        ReleaseCapture();
}

} // namespace korvel::internal
