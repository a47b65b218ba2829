#include "korvel/grid/super_grid_ctrl.h"

#include <algorithm>

namespace korvel {

// The square of the node's own depth, in front of its check box and icon.
CRect CSuperGridCtrl::GetSignRect(const CTreeItem& node, int row) const {
    CRect square;
    if (!GetItemRect(row, &square))
        return {};
    const int end = square.left + GetColumnWidth(0);
    square.left = std::min(square.left + (node.indent() - 1) * iconWidth, end);
    square.right = std::min(square.left + iconWidth, end);
    return square;
}

void CSuperGridCtrl::OnLButtonDown(UINT flags, CPoint point) {
    SetFocus();
    LVHITTESTINFO hit;
    hit.pt = point;
    CTreeItem* node = NodeAtRow(SubItemHitTest(&hit));
    if (!node) {
        Default();
        return;
    }
    if (!OnRowClick(hit))
        return;
    Default();
    if (NodeAtRow(hit.iItem) != node)
        return; // a handler has changed the rows
    if (TakeCheck(*node, hit))
        return;
    if (hit.iSubItem == 0 && node->CanExpand() && GetSignRect(*node, hit.iItem).PtInRect(point)) {
        Toggle(node, ToggledBy::Sign);
        return;
    }
    currentColumn = hit.iSubItem;
    ShowColumn(currentColumn);
    RedrawItems(hit.iItem, hit.iItem);
    OnControlLButtonDown(flags, point, hit);
}

// The list has toggled its mark where its check box was pressed; the node follows.
bool CSuperGridCtrl::TakeCheck(CTreeItem& node, const LVHITTESTINFO& hit) {
    if (!HasCheckBoxes() || hit.flags != LVHT_ONITEMSTATEICON)
        return false;
    node.info->checked = GetCheck(hit.iItem);
    RedrawItems(hit.iItem, hit.iItem);
    return true;
}

void CSuperGridCtrl::OnLButtonDblClk(CPoint point) {
    LVHITTESTINFO hit;
    hit.pt = point;
    CTreeItem* node = NodeAtRow(SubItemHitTest(&hit));
    Default();
    if (!node || NodeAtRow(hit.iItem) != node || TakeCheck(*node, hit) || !node->CanExpand())
        return;
    const bool onSign = hit.iSubItem == 0 && GetSignRect(*node, hit.iItem).PtInRect(point);
    Toggle(node, onSign ? ToggledBy::Sign : ToggledBy::DoubleClick);
}

void CSuperGridCtrl::Toggle(CTreeItem* node, ToggledBy by) {
    const int row = RowOfNode(node);
    int seen = row;
    if (node->collapsed()) {
        if (!OnNodeExpanding(node, row) || NodeAtRow(row) != node)
            return;
        seen = ExpandNode(node, row);
        OnNodeExpanded(node, row);
    } else {
        if (!OnNodeCollapsing(node) || NodeAtRow(row) != node)
            return;
        CollapseNode(node);
        OnNodeCollapsed(node);
        // Kept: a double click that collapses scrolls a long list to its top, the sign does not.
        if (by == ToggledBy::DoubleClick)
            seen = 0;
    }
    RedrawItems(row, row);
    EnsureVisible(seen, false);
}

} // namespace korvel
