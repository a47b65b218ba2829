#include "korvel/grid/row_reader.h"

namespace korvel::internal {

bool RowReader::Complete(view::CellView& cell) const {
    if (cell.at.row == view::TitleRow)
        return true;
    const RowWatch row(m_tree, cell.at.row);
    if (!row || !row.Node()->info)
        return true;
    cell.level = row.Node()->indent();
    cell.readOnly = cell.at.column > 0 && !row.Node()->info->IsCellEnabled(cell.at.column - 1);
    if (cell.at.column == 0)
        ReadTree(*row.Node(), cell);
    else
        ReadValue(*row.Node(), cell);
    return static_cast<bool>(row);
}

void RowReader::ReadTree(const grid::CTreeItem& node, view::CellView& cell) const {
    if (node.CanExpand())
        cell.expanded = !node.collapsed();
    if (m_list.HasCheckBoxes())
        cell.checked = node.info->checked != 0;
}

// The flag comes last: the host is asked, who may remove the row.
void RowReader::ReadValue(const grid::CTreeItem& node, view::CellView& cell) const {
    const int index = cell.at.column - 1;
    cell.invalid = m_list.IsCellMarked(cell.at.row, cell.at.column);
    if (node.info->GetControlType(index) == CItemInfo::ctCheck)
        cell.checked = (m_list.GetCheckState(&node, cell.at.column) & DFCS_CHECKED) != 0;
}

} // namespace korvel::internal
