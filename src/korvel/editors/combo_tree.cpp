#include "korvel/editors/combo_tree.h"

#include <utility>

namespace korvel {

namespace {

/// Whether `left` comes before `right` in the order of the rows; both stand in one tree.
template <class Order>
bool ComesBefore(const CComboTreeItem* left, const CComboTreeItem* right, Order orderOf) {
    const bool leftIsDeeper = left->GetLevel() > right->GetLevel();
    while (left->GetLevel() > right->GetLevel())
        left = left->GetParent();
    while (right->GetLevel() > left->GetLevel())
        right = right->GetParent();
    if (left == right)
        return !leftIsDeeper; // what stands above comes first
    while (left->GetParent() != right->GetParent()) {
        left = left->GetParent();
        right = right->GetParent();
    }
    return orderOf(left) < orderOf(right);
}

} // namespace

CComboTreeItem* ComboTree::NextShownUnder(const CComboTreeItem& item, const CComboTreeItem& top) {
    if (item.m_bExpanded && item.m_pFirstChild)
        return item.m_pFirstChild;
    const CComboTreeItem* level = &item;
    while (level != &top && !level->m_pNextSibling)
        level = level->m_pParent;
    return level != &top ? level->m_pNextSibling : nullptr;
}

bool ComboTree::ById::operator()(const CComboTreeItem* left, const CComboTreeItem* right) const {
    if (left == right || left->m_Id != right->m_Id)
        return left->m_Id < right->m_Id;
    return ComesBefore(left, right, [](const CComboTreeItem* item) { return item->m_order; });
}

ComboTree::ComboTree() {
    m_Root.m_bExpanded = true;
}

ComboTree::~ComboTree() {
    Clear();
}

CComboTreeItem& ComboTree::AddValue(CComboTreeItem& parent, long id, CVariantValue&& value,
                                    std::string label) {
    auto child = std::make_unique<CComboTreeItem>();
    child->m_bIsValue = true;
    child->m_Id = id;
    child->m_Value = std::move(value);
    child->m_strLabel = std::move(label);
    child->m_nUnchecked = 1;
    CComboTreeItem& item = AddChild(parent, std::move(child));
    ChangeCounts(parent, 0, 1);
    if (m_pIndex)
        m_pIndex->insert(&item);
    return item;
}

CComboTreeItem& ComboTree::AddGroup(CComboTreeItem& parent, std::string label) {
    auto child = std::make_unique<CComboTreeItem>();
    child->m_strLabel = std::move(label);
    return AddChild(parent, std::move(child));
}

CComboTreeItem& ComboTree::AddChild(CComboTreeItem& parent, std::unique_ptr<CComboTreeItem> child) {
    CComboTreeItem& item = *child;
    item.m_nLevel = parent.m_nLevel + 1;
    item.m_order = ++m_born;
    if (parent.m_pIndex)
        parent.m_pIndex->insert(&item);
    item.m_pParent = &parent;
    item.m_pPreviousSibling = std::exchange(parent.m_pLastChild, child.release());
    (item.m_pPreviousSibling ? item.m_pPreviousSibling->m_pNextSibling : parent.m_pFirstChild) = &item;
    ShowNewChild(item);
    return item;
}

void ComboTree::ShowNewChild(CComboTreeItem& child) {
    const CComboTreeItem& parent = *child.m_pParent;
    if (&parent != &m_Root && !(parent.HasRow() && parent.m_bExpanded)) {
        child.m_nRow = parent.GetRow();
        return;
    }
    CComboTreeItem* const items[] = {&child};
    if (&parent == &m_Root) {
        m_rows.Insert(m_rows.Size(), items);
    } else {
        const CComboTreeItem* const previous = child.m_pPreviousSibling;
        m_rows.Insert((previous ? previous->GetLastVisibleRow() : parent.GetRow()) + 1, items);
    }
}

CComboTreeItem* ComboTree::FindChild(CComboTreeItem& parent, std::string_view label) {
    // The entries of a group mostly come one after the other.
    if (m_pLastFound && m_pLastFound->m_pParent == &parent && m_pLastFound->m_strLabel == label)
        return m_pLastFound;
    if (!parent.m_pIndex) {
        parent.m_pIndex = std::make_unique<CComboTreeItem::LabelIndex>();
        for (CComboTreeItem* child = parent.m_pFirstChild; child; child = child->m_pNextSibling)
            parent.m_pIndex->insert(child);
    }
    const auto found = parent.m_pIndex->lower_bound(label);
    m_pLastFound = found != parent.m_pIndex->end() && (*found)->m_strLabel == label ? *found : nullptr;
    return m_pLastFound;
}

CComboTreeItem* ComboTree::FindValue(long id) {
    if (!m_pIndex)
        BuildIndex();
    const auto found = m_pIndex->lower_bound(id);
    return found != m_pIndex->end() && (*found)->m_Id == id ? *found : nullptr;
}

void ComboTree::BuildIndex() {
    m_pIndex = std::make_unique<IdIndex>();
    for (CComboTreeItem* item = m_Root.m_pFirstChild; item; item = item->GetNextUnder(m_Root))
        if (item->m_bIsValue)
            m_pIndex->insert(item);
}

void ComboTree::ForgetId(CComboTreeItem& item) {
    if (m_pIndex && item.m_bIsValue)
        m_pIndex->erase(&item);
}

ComboTree::RowRange ComboTree::RemoveValue(CComboTreeItem& item) {
    if (!item.HasChildren())
        return RemoveSubTree(item);
    ForgetId(item);
    ChangeCounts(item, item.m_bSelected ? -1 : 0, item.m_bSelected ? 0 : -1);
    item.m_bIsValue = false;
    item.m_bSelected = false;
    item.m_Id = -1;
    item.m_Value = CVariantValue();
    return {};
}

ComboTree::RowRange ComboTree::RemoveSubTree(CComboTreeItem& item) {
    RowRange rows;
    if (item.HasRow()) {
        rows.first = item.GetRow();
        rows.count = item.GetLastVisibleRow() + 1 - rows.first;
        m_rows.Erase(rows.first, rows.first + rows.count);
    }
    std::vector<CComboTreeItem*> removed;
    for (CComboTreeItem* under = &item; under; under = under->GetNextUnder(item)) {
        removed.push_back(under);
        ForgetId(*under);
    }
    ChangeCounts(*item.m_pParent, -item.m_nChecked, -item.m_nUnchecked);
    Unlink(item);
    for (CComboTreeItem* const under : removed)
        Bury(*under);
    return rows;
}

void ComboTree::Unlink(CComboTreeItem& item) {
    m_pLastFound = nullptr;
    CComboTreeItem& parent = *item.m_pParent;
    if (parent.m_pIndex)
        parent.m_pIndex->erase(&item);
    CComboTreeItem* const previous = item.m_pPreviousSibling;
    CComboTreeItem* const next = item.m_pNextSibling;
    (previous ? previous->m_pNextSibling : parent.m_pFirstChild) = next;
    (next ? next->m_pPreviousSibling : parent.m_pLastChild) = previous;
}

void ComboTree::Bury(CComboTreeItem& item) {
    item.m_pParent = item.m_pFirstChild = item.m_pLastChild = nullptr;
    item.m_pPreviousSibling = item.m_pNextSibling = nullptr;
    item.m_pIndex.reset();
    std::unique_ptr<CComboTreeItem> owned(&item);
    if (m_keeping > 0)
        m_removed.push_back(std::move(owned));
}

void ComboTree::EndKeeping() const {
    if (--m_keeping == 0)
        m_removed.clear();
}

void ComboTree::Clear() {
    m_pLastFound = nullptr;
    m_pIndex.reset();
    m_Root.m_pIndex.reset();
    m_rows.Erase(0, m_rows.Size());
    std::vector<CComboTreeItem*> removed;
    for (CComboTreeItem* item = m_Root.m_pFirstChild; item; item = item->GetNextUnder(m_Root))
        removed.push_back(item);
    for (CComboTreeItem* const item : removed)
        Bury(*item);
    m_Root.m_pFirstChild = m_Root.m_pLastChild = nullptr;
    m_Root.m_nChecked = m_Root.m_nUnchecked = 0;
}

ComboTree::RowRange ComboTree::Expand(CComboTreeItem& item) {
    if (std::exchange(item.m_bExpanded, true) || !item.HasRow() || !item.HasChildren())
        return {};
    std::vector<CComboTreeItem*> shown;
    for (CComboTreeItem* under = item.m_pFirstChild; under; under = NextShownUnder(*under, item))
        shown.push_back(under);
    const int row = item.GetRow() + 1;
    m_rows.Insert(row, shown);
    return {row, static_cast<int>(shown.size())};
}

ComboTree::RowRange ComboTree::Collapse(CComboTreeItem& item) {
    if (!item.m_bExpanded || &item == &m_Root)
        return {};
    RowRange rows;
    if (item.HasRow()) {
        rows.first = item.GetRow() + 1;
        rows.count = item.GetLastVisibleRow() + 1 - rows.first;
        m_rows.Erase(rows.first, rows.first + rows.count);
    }
    item.m_bExpanded = false;
    return rows;
}

void ComboTree::SetCheck(CComboTreeItem& item, bool check) {
    if (item.m_bIsValue && std::exchange(item.m_bSelected, check) != check)
        ChangeCounts(item, check ? 1 : -1, check ? -1 : 1);
}

void ComboTree::ChangeCounts(CComboTreeItem& item, int checked, int unchecked) {
    if (checked == 0 && unchecked == 0)
        return; // a path of empty groups can be of any length
    for (CComboTreeItem* level = &item; level; level = level->m_pParent) {
        level->m_nChecked += checked;
        level->m_nUnchecked += unchecked;
    }
}

void ComboTree::SetLabel(CComboTreeItem& item, int column, std::string text) {
    if (column != 0) {
        if (!item.m_pFurtherLabels)
            item.m_pFurtherLabels = std::make_unique<std::map<int, std::string>>();
        (*item.m_pFurtherLabels)[column] = std::move(text);
        return;
    }
    m_pLastFound = nullptr;
    CComboTreeItem::LabelIndex* const index = item.m_pParent ? item.m_pParent->m_pIndex.get() : nullptr;
    if (index)
        index->erase(&item);
    item.m_strLabel = std::move(text);
    if (index)
        index->insert(&item);
}

} // namespace korvel
