#include "korvel/grid/list_edit_ctrl.h"
#include "korvel/grid/super_grid_ctrl.h"

#include <algorithm>

namespace korvel {

bool CSuperGridCtrl::PreTranslateMessage(MSG& message) {
    if (message.message == WM_KEYDOWN && message.hwnd == m_hWnd && GetFocus() == m_hWnd) {
        switch (message.wParam) {
        case VK_LEFT:
            return MoveColumn(Step::Left);
        case VK_RIGHT:
            return MoveColumn(Step::Right);
        case VK_RETURN:
            if (!OnVkReturn() && StartCellEdit())
                return true;
            break;
        default:
            break;
        }
    }
    return CListCtrl::PreTranslateMessage(message);
}

bool CSuperGridCtrl::MoveColumn(Step step) {
    const int last = std::max(0, GetColumnCount() - 1);
    currentColumn = std::clamp(currentColumn + static_cast<int>(step), 0, last);
    ShowColumn(currentColumn);
    RedrawNode(GetSelectedNode());
    return true;
}

void CSuperGridCtrl::ShowColumn(int column) {
    int left = 0;
    for (int before = 0; before < column; ++before)
        left += GetColumnWidth(before);
    CRect cell;
    if (GetItemCount() == 0 || !GetItemRect(GetTopIndex(), &cell))
        return;
    const int width = GetClientRect().Width();
    const int start = cell.left + left;
    const int end = start + GetColumnWidth(column);
    if (start < 0)
        Scroll({start, 0});
    else if (end > width)
        Scroll({std::min(end - width, start), 0});
}

bool CSuperGridCtrl::StartCellEdit() {
    const int row = GetNextItem(-1, LVNI_SELECTED);
    CTreeItem* node = NodeAtRow(row);
    if (!node || currentColumn >= GetColumnCount())
        return false;
    EnsureVisible(row, false);
    ShowColumn(currentColumn);
    if (!m_cellEdit)
        m_cellEdit = std::make_unique<CListEditCtrl>(*this);
    return m_cellEdit->Start(row, currentColumn);
}

bool CSuperGridCtrl::OnKeyDown(UINT key) {
    const int row = GetNextItem(-1, LVNI_SELECTED);
    CTreeItem* node = NodeAtRow(row);
    if (!node)
        return false;
    switch (key) {
    case VK_SPACE:
        ToggleCheck(*node);
        return true;
    case VK_DELETE:
        if (m_allowDeleteKey && OnRowDeleting(node, row) && NodeAtRow(row) == node)
            DeleteSelectedRow(node, row);
        return true;
    case VK_MULTIPLY:
        if (OnExpandAllKey(node, row) && NodeAtRow(row) == node)
            ExpandAllBelow(node, row);
        return true;
    case VK_ADD:
        if (OnExpandKey(node, row) && NodeAtRow(row) == node) {
            const int last = ExpandNode(node, row);
            RedrawItems(row, row);
            EnsureVisible(last, false);
        }
        return true;
    case VK_SUBTRACT:
        if (OnCollapseKey(node, row) && NodeAtRow(row) == node) {
            CollapseNode(node);
            RedrawItems(row, row);
        }
        return true;
    default:
        return false;
    }
}

// The list toggles its own mark behind this notification.
void CSuperGridCtrl::ToggleCheck(CTreeItem& node) {
    if (HasCheckBoxes() && node.info)
        node.info->checked = !node.info->checked;
}

void CSuperGridCtrl::ExpandAllBelow(CTreeItem* node, int row) {
    int last = row;
    SetCursor(IDC_WAIT);
    ExpandSubtree(node, &last);
    SetCursor(IDC_ARROW);
    RedrawItems(row, last);
    EnsureVisible(last, false);
}

void CSuperGridCtrl::DeleteSelectedRow(CTreeItem* node, int row) {
    {
        const RedrawPause pause(*this);
        TakeNode(node);
        if (row - 1 >= 0)
            SelectRow(row < GetItemCount() ? row : row - 1);
    }
    Invalidate();
}

} // namespace korvel
