#include "korvel/editors/combo_tree.h"

#include "korvel/editors/combo_label_index.h"

#include <new>
#include <utility>
#include <vector>

namespace korvel::internal {

namespace {

// Whether `left` comes before `right` in the order of the rows; both are in one tree.
template <class Order>
bool ComesBefore(const ComboTreeItem* left, const ComboTreeItem* right, Order orderOf) {
    const bool leftIsDeeper = left->GetLevel() > right->GetLevel();
    while (left->GetLevel() > right->GetLevel())
        left = left->GetParent();
    while (right->GetLevel() > left->GetLevel())
        right = right->GetParent();
    if (left == right)
        return !leftIsDeeper; // a parent comes first
    while (left->GetParent() != right->GetParent()) {
        left = left->GetParent();
        right = right->GetParent();
    }
    return orderOf(left) < orderOf(right);
}

} // namespace

ComboTreeItem* ComboTree::NextShownUnder(const ComboTreeItem& item, const ComboTreeItem& top) {
    if (item.m_isExpanded && item.m_firstChild)
        return item.m_firstChild;
    const ComboTreeItem* level = &item;
    while (level != &top && !level->m_nextSibling)
        level = level->m_parent;
    return level != &top ? level->m_nextSibling : nullptr;
}

bool ComboTree::ById::operator()(const ComboTreeItem* left, const ComboTreeItem* right) const {
    if (left == right || left->m_id != right->m_id)
        return left->m_id < right->m_id;
    return ComesBefore(left, right, [](const ComboTreeItem* item) { return item->m_order; });
}

ComboTree::ComboTree() {
    m_root.m_isExpanded = true;
}

ComboTree::~ComboTree() {
    Clear();
}

ComboTreeItem& ComboTree::AddValue(ComboTreeItem& parent, long id, CVariantValue&& value, std::string label) {
    auto child = std::make_unique<ComboTreeItem>();
    child->m_isValue = true;
    child->m_id = id;
    child->m_value = std::move(value);
    child->m_label = std::move(label);
    child->m_unchecked = 1;
    ComboTreeItem& item = AddChild(parent, std::move(child));
    ChangeCounts(parent, 0, 1);
    try {
        if (m_index)
            m_index->insert(&item);
    } catch (const std::bad_alloc&) {
        m_index.reset(); // built anew by the next search
    }
    return item;
}

ComboTreeItem& ComboTree::AddGroup(ComboTreeItem& parent, std::string label) {
    auto child = std::make_unique<ComboTreeItem>();
    child->m_label = std::move(label);
    return AddChild(parent, std::move(child));
}

ComboTreeItem& ComboTree::AddChild(ComboTreeItem& parent, std::unique_ptr<ComboTreeItem> child) {
    ComboTreeItem& item = *child;
    item.m_level = parent.m_level + 1;
    item.m_order = ++m_itemsMade;
    ShowNewChild(parent, item);
    item.m_parent = &parent;
    item.m_previousSibling = std::exchange(parent.m_lastChild, child.release());
    (item.m_previousSibling ? item.m_previousSibling->m_nextSibling : parent.m_firstChild) = &item;
    AddToIndex(parent, item);
    return item;
}

void ComboTree::AddToIndex(ComboTreeItem& parent, ComboTreeItem& child) {
    try {
        if (parent.m_index)
            parent.m_index->Add(child);
    } catch (const std::bad_alloc&) {
        parent.m_index.reset(); // built anew by the next search
    }
}

void ComboTree::ShowNewChild(const ComboTreeItem& parent, ComboTreeItem& child) {
    if (&parent != &m_root && !(parent.HasRow() && parent.m_isExpanded)) {
        child.m_row = parent.GetRow();
        return;
    }
    ComboTreeItem* const items[] = {&child};
    if (&parent == &m_root) {
        m_rows.Insert(m_rows.Size(), items);
    } else {
        const ComboTreeItem* previous = parent.m_lastChild;
        m_rows.Insert((previous ? previous->GetLastVisibleRow() : parent.GetRow()) + 1, items);
    }
}

ComboTreeItem* ComboTree::FindChild(ComboTreeItem& parent, std::string_view label) {
    // The entries of a group mostly come one after the other.
    if (m_lastFound && m_lastFound->m_parent == &parent && m_lastFound->m_label == label)
        return m_lastFound;
    if (!parent.m_index) {
        auto index = std::make_unique<ComboLabelIndex>();
        for (ComboTreeItem* child = parent.m_firstChild; child; child = child->m_nextSibling)
            index->Add(*child);
        parent.m_index = std::move(index);
    }
    m_lastFound = parent.m_index->Find(label);
    return m_lastFound;
}

ComboTreeItem* ComboTree::FindValue(long id) {
    if (!m_index)
        BuildIndex();
    const auto found = m_index->lower_bound(id);
    return found != m_index->end() && (*found)->m_id == id ? *found : nullptr;
}

void ComboTree::BuildIndex() {
    auto index = std::make_unique<IdIndex>();
    for (ComboTreeItem* item = m_root.m_firstChild; item; item = item->GetNextUnder(m_root))
        if (item->m_isValue)
            index->insert(item);
    m_index = std::move(index);
}

void ComboTree::ForgetId(ComboTreeItem& item) {
    if (m_index && item.m_isValue)
        m_index->erase(&item);
}

ComboTree::RowRange ComboTree::RemoveValue(ComboTreeItem& item) {
    if (!item.HasChildren())
        return RemoveSubTree(item);
    ForgetId(item);
    ChangeCounts(item, item.m_isSelected ? -1 : 0, item.m_isSelected ? 0 : -1);
    item.m_isValue = false;
    item.m_isSelected = false;
    item.m_id = -1;
    item.m_value = CVariantValue();
    return {};
}

ComboTree::RowRange ComboTree::RemoveSubTree(ComboTreeItem& item) {
    RowRange rows;
    if (item.HasRow()) {
        rows.first = item.GetRow();
        rows.count = item.GetLastVisibleRow() + 1 - rows.first;
        m_rows.Erase(rows.first, rows.first + rows.count);
    }
    for (ComboTreeItem* under = &item; under; under = under->GetNextUnder(item))
        ForgetId(*under);
    ChangeCounts(*item.m_parent, -item.m_checked, -item.m_unchecked);
    Unlink(item);
    ReleaseSubTree(item);
    return rows;
}

void ComboTree::Unlink(ComboTreeItem& item) {
    m_lastFound = nullptr;
    ComboTreeItem& parent = *item.m_parent;
    if (parent.m_index)
        parent.m_index->Remove(item);
    ComboTreeItem* previous = item.m_previousSibling;
    ComboTreeItem* next = item.m_nextSibling;
    (previous ? previous->m_nextSibling : parent.m_firstChild) = next;
    (next ? next->m_previousSibling : parent.m_lastChild) = previous;
}

// Without recursion: a path may be deeper than the stack.
void ComboTree::ReleaseSubTree(ComboTreeItem& top) {
    top.m_parent = nullptr;
    for (ComboTreeItem* item = &top; item;) {
        if (ComboTreeItem* child = item->m_firstChild) {
            item->m_firstChild = child->m_nextSibling;
            item = child;
        } else {
            Release(std::exchange(item, item->m_parent));
        }
    }
}

void ComboTree::Release(ComboTreeItem* item) const {
    if (m_keepers == 0) {
        delete item;
        return;
    }
    item->m_parent = item->m_firstChild = item->m_lastChild = nullptr;
    item->m_nextSibling = nullptr;
    item->m_previousSibling = std::exchange(m_removed, item);
    item->m_index.reset();
}

void ComboTree::EndKeeping() const {
    if (--m_keepers > 0)
        return;
    while (m_removed)
        delete std::exchange(m_removed, m_removed->m_previousSibling);
}

void ComboTree::Clear() {
    m_lastFound = nullptr;
    m_index.reset();
    m_root.m_index.reset();
    m_rows.Erase(0, m_rows.Size());
    while (ComboTreeItem* item = m_root.m_firstChild) {
        m_root.m_firstChild = item->m_nextSibling;
        ReleaseSubTree(*item);
    }
    m_root.m_lastChild = nullptr;
    m_root.m_checked = m_root.m_unchecked = 0;
}

ComboTree::RowRange ComboTree::Expand(ComboTreeItem& item) {
    std::vector<ComboTreeItem*> shown;
    if (!item.m_isExpanded && item.HasRow())
        for (ComboTreeItem* under = item.m_firstChild; under; under = NextShownUnder(*under, item))
            shown.push_back(under);
    const int row = item.GetRow() + 1;
    m_rows.Insert(row, shown);
    item.m_isExpanded = true;
    return {row, static_cast<int>(shown.size())};
}

ComboTree::RowRange ComboTree::Collapse(ComboTreeItem& item) {
    if (!item.m_isExpanded || &item == &m_root)
        return {};
    RowRange rows;
    if (item.HasRow()) {
        rows.first = item.GetRow() + 1;
        rows.count = item.GetLastVisibleRow() + 1 - rows.first;
        m_rows.Erase(rows.first, rows.first + rows.count);
    }
    item.m_isExpanded = false;
    return rows;
}

void ComboTree::SetCheck(ComboTreeItem& item, bool check) {
    if (item.m_isValue && std::exchange(item.m_isSelected, check) != check)
        ChangeCounts(item, check ? 1 : -1, check ? -1 : 1);
}

void ComboTree::ChangeCounts(ComboTreeItem& item, int checked, int unchecked) {
    if (checked == 0 && unchecked == 0)
        return; // a path of empty groups can be of any length
    for (ComboTreeItem* level = &item; level; level = level->m_parent) {
        level->m_checked += checked;
        level->m_unchecked += unchecked;
    }
}

void ComboTree::SetLabel(ComboTreeItem& item, int column, std::string text) {
    if (column != 0) {
        if (!item.m_furtherLabels)
            item.m_furtherLabels = std::make_unique<std::map<int, std::string>>();
        (*item.m_furtherLabels)[column] = std::move(text);
        return;
    }
    m_lastFound = nullptr;
    ComboLabelIndex* index = item.m_parent ? item.m_parent->m_index.get() : nullptr;
    if (index)
        index->Remove(item);
    item.m_label = std::move(text);
    if (index)
        AddToIndex(*item.m_parent, item);
}

} // namespace korvel::internal
