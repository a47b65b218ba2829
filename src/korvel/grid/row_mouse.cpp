#include "korvel/grid/row_mouse.h"

#include "korvel/editors/cell_geometry.h"
#include "korvel/grid/row_checks.h"
#include "korvel/grid/row_watch.h"
#include "korvel/grid/seen_cell.h"
#include "korvel/window/list/list_mouse.h"

#include <algorithm>

namespace korvel::internal {

void RowMouse::Press(UINT flags, CPoint point) {
    const bool hadFocus = GetFocus() == m_list.m_hWnd;
    if (!BeginPress(m_list.m_hWnd))
        return;
    LVHITTESTINFO hit;
    hit.pt = point;
    const RowWatch row(m_tree, m_list.SubItemHitTest(&hit));
    if (!row) {
        m_list.Default();
        return;
    }
    if (!m_list.OnRowClick(hit))
        return;
    if (PassOn(row, hit) || !row)
        return;
    if (!hadFocus || IsOnSign(*row.Node(), hit))
        ForgetLabelClick(m_list.m_hWnd);
    if (IsOnSign(*row.Node(), hit)) {
        Toggle(row, hit.iItem, ToggledBy::Sign);
        return;
    }
    m_list.currentColumn = hit.iSubItem;
    const CRect before = CellRect(m_list, hit.iItem, hit.iSubItem);
    m_list.ShowColumn(hit.iSubItem);
    m_list.RedrawItems(hit.iItem, hit.iItem);
    if (!row)
        return;
    hit.pt.x += CellRect(m_list, hit.iItem, hit.iSubItem).left - before.left; // the place that was pressed
    m_list.OnControlLButtonDown(flags, hit.pt, hit);
}

void RowMouse::DoubleClick(UINT flags, CPoint point) {
    if (WasPressRefused(m_list.m_hWnd))
        return;
    LVHITTESTINFO hit;
    hit.pt = point;
    const RowWatch row(m_tree, m_list.SubItemHitTest(&hit));
    if (row && IsOnFlag(*row.Node(), hit))
        return Press(flags, point); // two presses
    if (PassOn(row, hit) || !row || !row.Node()->CanExpand())
        return;
    Toggle(row, hit.iItem, IsOnSign(*row.Node(), hit) ? ToggledBy::Sign : ToggledBy::DoubleClick);
}

// Gives the press to the list. Where its check box was pressed, marks toggle and nothing else happens.
bool RowMouse::PassOn(const RowWatch& row, const LVHITTESTINFO& hit) {
    const bool isCheck = row && hit.flags == LVHT_ONITEMSTATEICON;
    if (isCheck)
        ToggleChecks(m_list, m_tree, hit.iItem, [&] { m_list.Default(); });
    else
        m_list.Default();
    return isCheck;
}

// The sign has the square of the node's own depth, in front of its check box and icon.
bool RowMouse::IsOnSign(const grid::CTreeItem& node, const LVHITTESTINFO& hit) const {
    CRect square;
    if (hit.iSubItem != 0 || !node.CanExpand() || !m_list.GetItemRect(hit.iItem, &square))
        return false;
    const int end = square.left + m_list.GetColumnWidth(0);
    square.left = std::min(square.left + (node.indent() - 1) * m_list.iconWidth, end);
    square.right = std::min(square.left + m_list.iconWidth, end);
    return square.PtInRect(hit.pt);
}

bool RowMouse::IsOnFlag(const grid::CTreeItem& node, const LVHITTESTINFO& hit) const {
    return hit.iSubItem > 0 && node.info &&
           node.info->GetControlType(hit.iSubItem - 1) == CItemInfo::ctCheck &&
           LeftSquare(CellRect(m_list, hit.iItem, hit.iSubItem)).PtInRect(hit.pt);
}

void RowMouse::Toggle(const RowWatch& row, int number, ToggledBy by) {
    grid::CTreeItem* node = row.Node();
    int seen = number;
    if (node->collapsed()) {
        if (!m_list.OnNodeExpanding(node, number) || !row)
            return;
        seen = m_tree.Expand(node, number);
        if (row)
            m_list.OnNodeExpanded(node, number);
    } else {
        if (!m_list.OnNodeCollapsing(node) || !row)
            return;
        m_tree.Collapse(node);
        if (row)
            m_list.OnNodeCollapsed(node);
        // Kept: a double click that collapses scrolls a long list to its top, the sign does not.
        if (by == ToggledBy::DoubleClick)
            seen = 0;
    }
    m_list.RedrawItems(number, number);
    m_list.EnsureVisible(seen, false);
}

} // namespace korvel::internal
