#include "korvel/grid/row_mouse.h"

#include "korvel/grid/row_watch.h"
#include "korvel/grid/rows_watch.h"

#include <algorithm>

namespace korvel::internal {

void RowMouse::Press(UINT flags, CPoint point) {
    m_grid.SetFocus();
    LVHITTESTINFO hit;
    hit.pt = point;
    const RowWatch row(m_grid, m_grid.SubItemHitTest(&hit));
    if (!row) {
        m_grid.Default();
        return;
    }
    if (!m_grid.OnRowClick(hit))
        return;
    m_grid.Default();
    if (!row || TakeCheck(*row.Node(), hit))
        return;
    if (IsOnSign(*row.Node(), hit)) {
        Toggle(row, hit.iItem, ToggledBy::Sign);
        return;
    }
    m_grid.currentColumn = hit.iSubItem;
    m_grid.ShowColumn(hit.iSubItem);
    m_grid.RedrawItems(hit.iItem, hit.iItem);
    if (row)
        m_grid.OnControlLButtonDown(flags, point, hit);
}

void RowMouse::DoubleClick(CPoint point) {
    LVHITTESTINFO hit;
    hit.pt = point;
    const RowWatch row(m_grid, m_grid.SubItemHitTest(&hit));
    m_grid.Default();
    if (!row || TakeCheck(*row.Node(), hit) || !row.Node()->CanExpand())
        return;
    Toggle(row, hit.iItem, IsOnSign(*row.Node(), hit) ? ToggledBy::Sign : ToggledBy::DoubleClick);
}

// The list has toggled its mark where its check box was pressed; the node follows.
bool RowMouse::TakeCheck(grid::CTreeItem& node, const LVHITTESTINFO& hit) {
    if (!m_grid.HasCheckBoxes() || hit.flags != LVHT_ONITEMSTATEICON)
        return false;
    node.info->checked = m_grid.GetCheck(hit.iItem);
    m_grid.RedrawItems(hit.iItem, hit.iItem);
    return true;
}

// The sign has the square of the node's own depth, in front of its check box and icon.
bool RowMouse::IsOnSign(const grid::CTreeItem& node, const LVHITTESTINFO& hit) const {
    CRect square;
    if (hit.iSubItem != 0 || !node.CanExpand() || !m_grid.GetItemRect(hit.iItem, &square))
        return false;
    const int end = square.left + m_grid.GetColumnWidth(0);
    square.left = std::min(square.left + (node.indent() - 1) * m_grid.iconWidth, end);
    square.right = std::min(square.left + m_grid.iconWidth, end);
    return square.PtInRect(hit.pt);
}

void RowMouse::Toggle(const RowWatch& row, int number, ToggledBy by) {
    grid::CTreeItem* node = row.Node();
    int seen = number;
    if (node->collapsed()) {
        if (!m_grid.OnNodeExpanding(node, number) || !row)
            return;
        seen = m_grid.ExpandNode(node, number);
        if (row)
            m_grid.OnNodeExpanded(node, number);
    } else {
        if (!m_grid.OnNodeCollapsing(node) || !row)
            return;
        m_grid.CollapseNode(node);
        if (row)
            m_grid.OnNodeCollapsed(node);
        // Kept: a double click that collapses scrolls a long list to its top, the sign does not.
        if (by == ToggledBy::DoubleClick)
            seen = 0;
    }
    m_grid.RedrawItems(number, number);
    m_grid.EnsureVisible(seen, false);
}

} // namespace korvel::internal
