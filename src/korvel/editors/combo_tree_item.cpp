#include "korvel/editors/combo_tree_item.h"

#include "korvel/editors/combo_label_index.h"
#include "korvel/editors/combo_rows.h"

namespace korvel {

ComboTreeItem::ComboTreeItem() = default;
ComboTreeItem::~ComboTreeItem() = default;

int ComboTreeItem::GetRow() const {
    return m_block ? m_block->owner->RowOf(*this) : m_row;
}

int ComboTreeItem::GetLastVisibleRow() const {
    const ComboTreeItem* item = this;
    while (item->m_isExpanded && item->m_lastChild)
        item = item->m_lastChild;
    return item->GetRow();
}

ComboTreeItem* ComboTreeItem::GetNext() const {
    if (m_isExpanded && m_firstChild)
        return m_firstChild;
    const ComboTreeItem* item = this;
    while (item && !item->m_nextSibling)
        item = item->m_parent;
    return item ? item->m_nextSibling : nullptr;
}

ComboTreeItem* ComboTreeItem::GetNextUnder(const ComboTreeItem& top) const {
    if (m_firstChild)
        return m_firstChild;
    const ComboTreeItem* item = this;
    while (item && item != &top && !item->m_nextSibling)
        item = item->m_parent;
    return item && item != &top ? item->m_nextSibling : nullptr;
}

const std::string& ComboTreeItem::GetLabel(int column) const {
    static const std::string empty;
    if (column == 0)
        return m_label;
    return HasLabel(column) ? m_furtherLabels->at(column) : empty;
}

bool ComboTreeItem::HasLabel(int column) const {
    return column == 0 || (m_furtherLabels && m_furtherLabels->count(column) != 0);
}

} // namespace korvel
