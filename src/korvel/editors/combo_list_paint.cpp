#include "korvel/editors/combo_list.h"
#include "korvel/editors/combo_row_painter.h"

namespace korvel {

void CComboList::DrawItem(DRAWITEMSTRUCT* item) {
    ComboRowPainter(*this, *item->hDC).Draw(static_cast<int>(item->itemID), item->itemState);
}

std::optional<ComboRowGeometry> CComboList::GetRowGeometry(int row) const {
    const CTreeItem* item = GetTreeItem(row);
    ComboRowGeometry place;
    if (!item || !GetItemRect(row, &place.bounds))
        return std::nullopt;
    place.level = item->GetLevel();
    place.columnWidth = GetColumnWidth(0);
    place.hasChecks = HasCheckBoxes();
    place.hasIcons = HasTree();
    return place;
}

CRect CComboList::GetRectTreeBox(int row) const {
    const auto place = GetRowGeometry(row);
    return place ? place->TreeBox() : CRect();
}

CRect CComboList::GetRectCheckBox(int row) const {
    const auto place = GetRowGeometry(row);
    return place ? place->CheckBox() : CRect();
}

CRect CComboList::GetIconRect(int row) const {
    const auto place = GetRowGeometry(row);
    return place ? place->Icon() : CRect();
}

CRect CComboList::GetRectLabel(int row) const {
    const auto place = GetRowGeometry(row);
    return place ? place->Label() : CRect();
}

CString CComboList::GetColumnText(const CTreeItem& item, int column) const {
    if (item.HasLabel(column))
        return item.GetLabel(column);
    const auto named = m_Columns.find(column);
    const CVariantValue& value = item.GetValue();
    if (named == m_Columns.end() || value.Type != DT_Group || !value.Value.Dispatch)
        return {};
    const std::string member = named->second; // who is asked may end the binding, and the column with it
    CVariantValue cell;
    return value.Value.Dispatch->GetMember(member, cell) ? cell.ToText() : CString();
}

} // namespace korvel
