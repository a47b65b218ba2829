#include "korvel/grid/row_keys.h"

#include "korvel/grid/list_edit_ctrl.h"
#include "korvel/grid/row_watch.h"
#include "korvel/grid/rows_watch.h"

#include <algorithm>

namespace korvel::internal {

bool RowKeys::Translate(UINT key) {
    switch (key) {
    case VK_LEFT:
        MoveColumn(Step::Left);
        return true;
    case VK_RIGHT:
        MoveColumn(Step::Right);
        return true;
    case VK_RETURN:
        return !m_grid.OnVkReturn() && StartCellEdit();
    default:
        return false;
    }
}

void RowKeys::MoveColumn(Step step) {
    const int last = std::max(0, m_grid.GetColumnCount() - 1);
    m_grid.currentColumn = std::clamp(m_grid.currentColumn + static_cast<int>(step), 0, last);
    m_grid.ShowColumn(m_grid.currentColumn);
    m_grid.RedrawNode(m_grid.GetSelectedNode());
}

bool RowKeys::StartCellEdit() {
    const int row = m_grid.GetNextItem(-1, LVNI_SELECTED);
    if (!m_grid.NodeAtRow(row) || m_grid.currentColumn >= m_grid.GetColumnCount())
        return false;
    m_grid.EnsureVisible(row, false);
    m_grid.ShowColumn(m_grid.currentColumn);
    if (!m_grid.m_cellEdit)
        m_grid.m_cellEdit = std::make_unique<CListEditCtrl>(m_grid);
    return m_grid.m_cellEdit->Start(row, m_grid.currentColumn);
}

bool RowKeys::Press(UINT key) {
    const struct {
        UINT key;
        void (RowKeys::*act)(const RowWatch& row, int number);
    } actions[] = {{VK_DELETE, &RowKeys::Delete},
                   {VK_MULTIPLY, &RowKeys::ExpandAll},
                   {VK_ADD, &RowKeys::Expand},
                   {VK_SUBTRACT, &RowKeys::Collapse},
                   {VK_SPACE, &RowKeys::ToggleChecks}};
    const int number = m_grid.GetNextItem(-1, LVNI_SELECTED);
    const RowWatch row(m_grid, number);
    const auto action = std::find_if(std::begin(actions), std::end(actions),
                                     [=](const auto& entry) { return entry.key == key; });
    if (!row || action == std::end(actions))
        return false;
    (this->*action->act)(row, number);
    return true;
}

// All selected rows take the new state of the first; a refusal is the list's, and the node follows.
void RowKeys::ToggleChecks(const RowWatch& first, int number) {
    if (!m_grid.HasCheckBoxes())
        return;
    const int checked = !first.Node()->info->checked;
    for (int next = number; next >= 0; next = m_grid.GetNextItem(next, LVNI_SELECTED)) {
        const RowWatch row(m_grid, next);
        if (!row)
            continue;
        row.Node()->info->checked = checked;
        m_grid.SetCheck(next, checked != 0);
        if (row)
            row.Node()->info->checked = m_grid.GetCheck(next);
        m_grid.RedrawItems(next, next);
    }
}

void RowKeys::Delete(const RowWatch& row, int number) {
    if (!m_grid.m_allowDeleteKey || !m_grid.OnRowDeleting(row.Node(), number) || !row)
        return;
    {
        const CSuperGridCtrl::RedrawPause pause(m_grid);
        m_grid.TakeNode(row.Node());
        if (number > 0)
            m_grid.SelectRow(number < m_grid.GetItemCount() ? number : number - 1);
    }
    m_grid.Invalidate();
}

void RowKeys::ExpandAll(const RowWatch& row, int number) {
    if (!m_grid.OnExpandAllKey(row.Node(), number) || !row)
        return;
    int last = number;
    SetCursor(IDC_WAIT);
    m_grid.ExpandSubtree(row.Node(), &last);
    SetCursor(IDC_ARROW);
    m_grid.RedrawItems(number, last);
    m_grid.EnsureVisible(last, false);
}

void RowKeys::Expand(const RowWatch& row, int number) {
    if (!m_grid.OnExpandKey(row.Node(), number) || !row)
        return;
    const int last = m_grid.ExpandNode(row.Node(), number);
    m_grid.RedrawItems(number, number);
    m_grid.EnsureVisible(last, false);
}

void RowKeys::Collapse(const RowWatch& row, int number) {
    if (!m_grid.OnCollapseKey(row.Node(), number) || !row)
        return;
    m_grid.CollapseNode(row.Node());
    m_grid.RedrawItems(number, number);
}

} // namespace korvel::internal
