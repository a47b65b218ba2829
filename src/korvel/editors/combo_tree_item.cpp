#include "korvel/editors/combo_tree_item.h"

namespace korvel {

int CComboTreeItem::GetLastVisibleRow() const {
    const CComboTreeItem* item = this;
    while (item->m_bExpanded && item->m_pLastChild)
        item = item->m_pLastChild;
    return item->GetRow();
}

CComboTreeItem* CComboTreeItem::GetNext() const {
    if (m_bExpanded && m_pFirstChild)
        return m_pFirstChild;
    const CComboTreeItem* item = this;
    while (item && !item->m_pNextSibling)
        item = item->m_pParent;
    return item ? item->m_pNextSibling : nullptr;
}

CComboTreeItem* CComboTreeItem::GetNextUnder(const CComboTreeItem& top) const {
    if (m_pFirstChild)
        return m_pFirstChild;
    const CComboTreeItem* item = this;
    while (item && item != &top && !item->m_pNextSibling)
        item = item->m_pParent;
    return item && item != &top ? item->m_pNextSibling : nullptr;
}

const std::string& CComboTreeItem::GetLabel(int column) const {
    static const std::string empty;
    if (column == 0)
        return m_strLabel;
    return HasLabel(column) ? m_pFurtherLabels->at(column) : empty;
}

bool CComboTreeItem::HasLabel(int column) const {
    return column == 0 || (m_pFurtherLabels && m_pFurtherLabels->count(column) != 0);
}

bool CComboTreeItem::ByLabel::operator()(const CComboTreeItem* left, const CComboTreeItem* right) const {
    const int order = left->m_strLabel.compare(right->m_strLabel);
    return order != 0 ? order < 0 : left->m_order < right->m_order;
}

bool CComboTreeItem::ByLabel::operator()(const CComboTreeItem* item, std::string_view label) const {
    return item->m_strLabel < label;
}

bool CComboTreeItem::ByLabel::operator()(std::string_view label, const CComboTreeItem* item) const {
    return label < item->m_strLabel;
}

} // namespace korvel
