#include "korvel/grid/chosen_member.h"

#include "korvel/grid/attribute_rows.h"

namespace korvel::internal {

namespace {

IMemberDispatch* OwnerOf(const AttributeRows& rows, const grid::CTreeItem& node) {
    return node.parent() ? node.parent()->info->disp : rows.GetRoot();
}

} // namespace

ChosenMember MemberOf(const grid::CTreeItem* row, const AttributeRows& rows) {
    return row && row->info ? ChosenMember{OwnerOf(rows, *row), row->info->text} : ChosenMember();
}

ChosenMember ValueIn(const grid::CTreeItem* row, int column, const AttributeRows& rows) {
    const std::string name =
        rows.layout.RowsAreObjects() && column > 0 ? rows.layout.NameOf(column) : std::string();
    return name.empty() ? MemberOf(row, rows) : ChosenMember{rows.ObjectOf(row), name};
}

ChosenMember SelectedMember(const CSuperGridCtrl& grid, const AttributeRows& rows) {
    return MemberOf(grid.GetSelectedNode(), rows);
}

ChosenMember SelectedValue(const CSuperGridCtrl& grid, const AttributeRows& rows) {
    return ValueIn(grid.GetSelectedNode(), grid.GetCurrentColumn(), rows);
}

ChosenMember LabelOf(const grid::CTreeItem* row, const AttributeRows& rows) {
    ChosenMember member = MemberOf(row, rows);
    if (!rows.layout.RowsAreObjects())
        return member;
    const LossWatch noLoss = rows.WatchRows();
    if (const IMemberDispatch* object = rows.ObjectOf(row))
        member.name = object->GetIdent();
    return noLoss ? member : ChosenMember();
}

int ColumnUnderPointer(const CListCtrl& list) {
    LVHITTESTINFO hit;
    hit.pt = ScreenToClient(list.m_hWnd, GetCursorPos());
    list.SubItemHitTest(&hit);
    return hit.iSubItem;
}

} // namespace korvel::internal
