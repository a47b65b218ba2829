#include "korvel/editors/combo_tree_item.h"

namespace korvel {

int ComboTreeItem::GetLastVisibleRow() const {
    const ComboTreeItem* item = this;
    while (item->m_bExpanded && item->m_lastChild)
        item = item->m_lastChild;
    return item->GetRow();
}

ComboTreeItem* ComboTreeItem::GetNext() const {
    if (m_bExpanded && m_firstChild)
        return m_firstChild;
    const ComboTreeItem* item = this;
    while (item && !item->m_nextSibling)
        item = item->m_pParent;
    return item ? item->m_nextSibling : nullptr;
}

ComboTreeItem* ComboTreeItem::GetNextUnder(const ComboTreeItem& top) const {
    if (m_firstChild)
        return m_firstChild;
    const ComboTreeItem* item = this;
    while (item && item != &top && !item->m_nextSibling)
        item = item->m_pParent;
    return item && item != &top ? item->m_nextSibling : nullptr;
}

const std::string& ComboTreeItem::GetLabel(int column) const {
    static const std::string empty;
    if (column == 0)
        return m_strLabel;
    return HasLabel(column) ? m_furtherLabels->at(column) : empty;
}

bool ComboTreeItem::HasLabel(int column) const {
    return column == 0 || (m_furtherLabels && m_furtherLabels->count(column) != 0);
}

bool ComboTreeItem::ByLabel::operator()(const ComboTreeItem* left, const ComboTreeItem* right) const {
    const int order = left->m_strLabel.compare(right->m_strLabel);
    return order != 0 ? order < 0 : left->m_order < right->m_order;
}

bool ComboTreeItem::ByLabel::operator()(const ComboTreeItem* item, std::string_view label) const {
    return item->m_strLabel < label;
}

bool ComboTreeItem::ByLabel::operator()(std::string_view label, const ComboTreeItem* item) const {
    return label < item->m_strLabel;
}

} // namespace korvel
