#include "korvel/grid/chosen_member.h"

#include "korvel/grid/attribute_rows.h"

namespace korvel::internal {

namespace {

IMemberDispatch* OwnerOf(const AttributeRows& rows, const grid::CTreeItem& node) {
    return node.parent() ? node.parent()->info->disp : rows.GetRoot();
}

} // namespace

ChosenMember SelectedMember(const CSuperGridCtrl& grid, const AttributeRows& rows) {
    const grid::CTreeItem* node = grid.GetSelectedNode();
    return node && node->info ? ChosenMember{OwnerOf(rows, *node), node->info->text} : ChosenMember();
}

ChosenMember SelectedValue(const CSuperGridCtrl& grid, const AttributeRows& rows) {
    if (!rows.layout.RowsAreObjects())
        return SelectedMember(grid, rows);
    std::string name = rows.layout.NameOf(ColumnUnderPointer(grid));
    if (name.empty())
        name = rows.layout.NameOf(grid.GetCurrentColumn());
    return {rows.ObjectOf(grid.GetSelectedNode()), name};
}

ChosenMember SelectedLabel(const CSuperGridCtrl& grid, const AttributeRows& rows) {
    ChosenMember member = SelectedMember(grid, rows);
    if (!rows.layout.RowsAreObjects())
        return member;
    const LossWatch noLoss = rows.WatchRows();
    if (const IMemberDispatch* object = rows.ObjectOf(grid.GetSelectedNode()))
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
