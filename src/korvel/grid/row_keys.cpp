#include "korvel/grid/row_keys.h"

#include "korvel/grid/list_edit_ctrl.h"
#include "korvel/grid/row_checks.h"
#include "korvel/grid/row_watch.h"
#include "korvel/platform/first_failure.h"

#include <algorithm>

namespace korvel::internal {

bool RowKeys::Translate(UINT key, CListEditCtrl& edit) {
    switch (key) {
    case VK_LEFT:
        MoveColumn(Step::Left);
        return true;
    case VK_RIGHT:
        MoveColumn(Step::Right);
        return true;
    case VK_RETURN:
        return !m_list.OnVkReturn() && StartCellEdit(edit);
    default:
        return false;
    }
}

void RowKeys::MoveColumn(Step step) {
    MoveToColumn(m_list.currentColumn + static_cast<int>(step));
}

void RowKeys::MoveTo(view::CellPlace cell) {
    if (SelectedRow() == cell.row)
        MoveToColumn(cell.column);
}

void RowKeys::MoveToColumn(int column) {
    const int last = std::max(0, m_list.GetColumnCount() - 1);
    m_list.currentColumn = std::clamp(column, 0, last);
    m_list.ShowColumn(m_list.currentColumn);
    m_list.RedrawRow(SelectedRow());
}

bool RowKeys::StartCellEdit(CListEditCtrl& edit) {
    const int row = SelectedRow();
    if (!m_tree.NodeAt(row) || m_list.currentColumn >= m_list.GetColumnCount())
        return false;
    m_list.EnsureVisible(row, false);
    m_list.ShowColumn(m_list.currentColumn);
    return edit.Start(row, m_list.currentColumn);
}

bool RowKeys::Press(UINT key) {
    const struct {
        UINT key;
        void (RowKeys::*act)(const RowWatch& row, int number);
    } actions[] = {{VK_DELETE, &RowKeys::Delete},
                   {VK_MULTIPLY, &RowKeys::ExpandAll},
                   {VK_ADD, &RowKeys::Expand},
                   {VK_SUBTRACT, &RowKeys::Collapse},
                   {VK_SPACE, &RowKeys::ToggleMarks}};
    const int number = SelectedRow();
    const RowWatch row(m_tree, number);
    const auto action = std::find_if(std::begin(actions), std::end(actions),
                                     [=](const auto& entry) { return entry.key == key; });
    if (!row || action == std::end(actions))
        return false;
    (this->*action->act)(row, number);
    return true;
}

void RowKeys::ToggleMarks(const RowWatch&, int number) {
    if (m_list.HasCheckBoxes())
        ToggleChecks(
            m_list, m_tree, number, [&] { m_list.ToggleCheck(number); });
}

void RowKeys::Delete(const RowWatch& row, int number) {
    if (GetFocus() != m_list.m_hWnd) // the key is about what has it
        return;
    if (!m_list.m_allowDeleteKey || !m_list.OnRowDeleting(row.Node(), number) || !row)
        return;
    {
        const TreeGridList::RedrawPause pause(m_list);
        m_tree.Remove(row.Node());
        if (number > 0)
            m_list.SelectRow(number < m_list.GetItemCount() ? number : number - 1);
    }
    m_list.Invalidate();
}

void RowKeys::ExpandAll(const RowWatch& row, int number) {
    if (!m_list.OnExpandAllKey(row.Node(), number) || !row)
        return;
    int last = number;
    FirstFailure failure;
    SetCursor(IDC_WAIT);
    failure.Try([&] { m_tree.ExpandAll(row.Node(), &last); });
    SetCursor(IDC_ARROW);
    failure.Rethrow();
    m_list.RedrawItems(number, last);
    m_list.EnsureVisible(last, false);
}

void RowKeys::Expand(const RowWatch& row, int number) {
    if (!m_list.OnExpandKey(row.Node(), number) || !row)
        return;
    const int last = m_tree.Expand(row.Node(), number);
    m_list.RedrawItems(number, number);
    m_list.EnsureVisible(last, false);
}

void RowKeys::Collapse(const RowWatch& row, int number) {
    if (!m_list.OnCollapseKey(row.Node(), number) || !row)
        return;
    m_tree.Collapse(row.Node());
    m_list.RedrawItems(number, number);
}

} // namespace korvel::internal
