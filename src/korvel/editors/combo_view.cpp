#include "korvel/editors/combo_view.h"

namespace korvel::internal {

// Titles are German in every language: kept, saved layouts name columns by them.
void ComboView::ShowColumns(const ComboColumns& columns) {
    m_columns = columns;
    m_control.InsertColumn(0, "Bezeichnung", 0);
    for (const std::string& name : columns.Members())
        m_control.InsertColumn(m_control.GetColumnCount(), name, 0);
    if (columns.IsTable())
        m_control.ModifyStyle(LVS_NOCOLUMNHEADER, 0);
    else
        m_control.ModifyStyle(0, LVS_NOCOLUMNHEADER);
    LayColumns();
}

void ComboView::RemoveColumns() {
    while (m_control.GetColumnCount() > 0)
        m_control.DeleteColumn(0);
    m_columns = {};
}

void ComboView::LayColumns() {
    const int count = m_control.GetColumnCount();
    for (int column = 0; column < count; ++column)
        m_control.SetColumnWidth(column, m_control.GetClientRect().Width() / count);
}

std::optional<ComboRowGeometry> ComboView::GeometryOf(int row) const {
    const ComboTreeItem* item = ItemAt(row);
    ComboRowGeometry geometry;
    if (!item || !m_control.GetItemRect(row, &geometry.bounds))
        return std::nullopt;
    geometry.level = item->GetLevel();
    geometry.columnWidth = m_control.GetColumnWidth(0);
    geometry.hasIcons = m_columns.HasTree();
    geometry.hasChecks = m_model.Binding().HasFlag(ENF_CheckBoxes);
    return geometry;
}

LRESULT ComboView::PassToList(UINT message, WPARAM wParam, LPARAM lParam) const {
    return m_control.CListCtrl::WindowProc(message, wParam, lParam);
}

void ComboView::RedrawRow(int row) {
    if (ItemAt(row))
        m_control.RedrawItems(row, row);
}

// The row is painted anew also when none is new: an empty group looks different when it is open.
void ComboView::Expand(ComboTreeItem& item) {
    const ComboTree::KeepItems keep(m_model.Tree());
    m_model.Expand(item);
    RedrawRow(item.HasRow() ? item.GetRow() : -1);
}

void ComboView::Collapse(ComboTreeItem& item) {
    const ComboTree::KeepItems keep(m_model.Tree());
    m_model.Collapse(item);
    RedrawRow(item.HasRow() ? item.GetRow() : -1);
}

void ComboView::Complete(view::ListView& list, int currentRow) const {
    list.current.row = currentRow;
    list.selectsMany = false;
    list.expandKey = VK_RIGHT;
    list.collapseKey = VK_LEFT;
    if (IsDropDown())
        list.keysFrom = Owner();
}

void ComboView::Complete(view::CellView& cell) const {
    const ComboTreeItem* item = ItemAt(cell.at.row);
    if (!item)
        return;
    cell.level = item->GetLevel();
    if (cell.at.column != 0)
        return;
    if (item->HasChildren())
        cell.expanded = item->IsExpanded();
    const bool isChecked = item->GetChecked() > 0;
    if (m_model.Binding().HasFlag(ENF_CheckBoxes)) // the host may take the item away meanwhile
        cell.checked = isChecked;
}

HWND ComboView::Owner() const {
    return m_owner ? m_owner : GetParent(m_control.m_hWnd);
}

void ComboView::Notify(UINT code) {
    const auto id = static_cast<unsigned>(m_control.GetDlgCtrlID());
    SendMessageA(Owner(), WM_COMMAND, MAKEWPARAM(id, code), reinterpret_cast<LPARAM>(m_control.m_hWnd));
}

} // namespace korvel::internal
