#include "korvel/editors/combo_model.h"

#include "korvel/editors/path_name.h"

#include <utility>
#include <vector>

namespace korvel::internal {

namespace {

ComboTreeItem* Innermost(ComboTreeItem* item) {
    while (item->HasChildren())
        item = item->GetFirstChild();
    return item;
}

// The items at and under `top`, each after what is under it.
std::vector<ComboTreeItem*> ChildrenFirst(ComboTreeItem& top) {
    std::vector<ComboTreeItem*> items = {Innermost(&top)};
    while (items.back() != &top) {
        ComboTreeItem* next = items.back()->GetNextSibling();
        items.push_back(next ? Innermost(next) : items.back()->GetParent());
    }
    return items;
}

} // namespace

void ComboModel::Open() {
    m_binding.Open();
    m_isBuilding = true;
}

ComboTreeItem* ComboModel::InsertEntries() {
    const ComboTree::KeepItems keep(m_tree);
    const LossWatch bound = m_binding.Watch();
    ComboTreeItem* selected = nullptr;
    m_binding.VisitEntries([&](long id) {
        CVariantValue name;
        if (!m_binding.Enumeration()->GetName(id, name) || !bound)
            return;
        ComboTreeItem* item = InsertItem(nullptr, id, std::move(name));
        if (!item || !m_binding.Enumeration()->IsValue(id, m_binding.Value()) || !bound || !item->GetParent())
            return;
        m_tree.SetCheck(*item, true);
        ExpandParent(item->GetParent());
        selected = item;
    });
    if (!bound)
        return nullptr;
    m_isBuilding = false;
    return selected && selected->GetParent() ? selected : nullptr;
}

void ComboModel::Close() {
    m_binding.Close();
    m_isBuilding = false;
    m_tree.Clear();
}

void ComboModel::Expand(ComboTreeItem& item) {
    const ComboTree::RowRange rows = m_tree.Expand(item);
    if (rows.count > 0 && !m_isBuilding)
        m_sink.OnRowsAdded(rows);
}

void ComboModel::Collapse(ComboTreeItem& item) {
    const ComboTree::RowRange rows = m_tree.Collapse(item);
    if (rows.count > 0 && !m_isBuilding)
        m_sink.OnRowsHidden(rows);
}

// From the inside out: what is not shown yet only remembers, and all rows are added at once.
void ComboModel::ExpandParent(ComboTreeItem* item) {
    const ComboTree::KeepItems keep(m_tree);
    for (; item; item = item->GetParent())
        Expand(*item);
}

// The sink is told when all is there. At most one row is new: what is under a new group is not shown.
ComboTreeItem* ComboModel::InsertItem(ComboTreeItem* parent, long id, CVariantValue&& value) {
    const ComboTree::KeepItems keep(m_tree);
    const LossWatch bound = m_binding.Watch();
    const auto separator = m_binding.PathSeparator();
    // A string is not copied to be split. A list asks its host.
    const bool isString = value.Type == DT_String;
    const std::string converted = isString ? std::string() : value.ToText();
    const std::string_view text = isString ? value.Text : converted;
    if (!bound || (parent && !m_tree.Contains(*parent)))
        return nullptr;
    ComboTreeItem* under = parent ? parent : &m_tree.Root();
    ComboTreeItem* newGroup = nullptr;
    std::string_view label = text; // a text without any segment stays whole
    if (separator) {
        std::string_view rest = text;
        std::string_view segment = TakeSegment(rest, *separator);
        while (!segment.empty()) {
            label = segment;
            segment = TakeSegment(rest, *separator);
            if (!segment.empty())
                under = &GroupUnder(*under, label, newGroup);
        }
    }
    ComboTreeItem& item = m_tree.AddValue(*under, id, std::move(value), std::string(label));
    ReportNew(newGroup ? *newGroup : item);
    return &item;
}

ComboTreeItem& ComboModel::InsertGroup(ComboTreeItem& parent, std::string_view name) {
    ComboTreeItem* newGroup = nullptr;
    ComboTreeItem& group = GroupUnder(parent, name, newGroup);
    if (newGroup)
        ReportNew(group);
    return group;
}

ComboTreeItem& ComboModel::GroupUnder(ComboTreeItem& parent, std::string_view name,
                                      ComboTreeItem*& firstNew) {
    if (ComboTreeItem* known = m_tree.FindChild(parent, name))
        return *known;
    ComboTreeItem& group = m_tree.AddGroup(parent, std::string(name));
    firstNew = firstNew ? firstNew : &group;
    return group;
}

void ComboModel::ReportNew(const ComboTreeItem& item) {
    if (!m_isBuilding && item.HasRow())
        m_sink.OnRowsAdded({item.GetRow(), 1});
}

ComboTreeItem* ComboModel::AddValue(const std::string& name, const std::string& group) {
    const ComboTree::KeepItems keep(m_tree);
    const LossWatch bound = m_binding.Watch();
    const long id = m_binding.Enumeration()->AddValue(name, group);
    if (id == -1 || !bound)
        return nullptr;
    // An enumeration that notifies its sinks itself has had the item made already.
    ComboTreeItem* known = m_tree.FindValue(id);
    return known ? known : EntryAdded(id);
}

void ComboModel::DestroySubTree(ComboTreeItem& item) {
    const ComboTree::KeepItems keep(m_tree);
    const LossWatch bound = m_binding.Watch();
    for (ComboTreeItem* under : ChildrenFirst(item)) {
        if (under->IsValue())
            RemoveEntry(*under);
        else if (under->GetParent() && !under->HasChildren())
            Remove(*under);
        if (!bound)
            return;
    }
}

// An entry that the enumeration does not know any more only loses its row.
void ComboModel::RemoveEntry(ComboTreeItem& item) {
    if (!item.GetParent())
        return; // the host has taken it away meanwhile
    const LossWatch bound = m_binding.Watch();
    const long id = item.GetId();
    CVariantValue name;
    if (m_binding.Enumeration()->GetName(id, name) && bound)
        m_binding.Enumeration()->RemoveValue(id);
    if (bound && item.GetParent() && item.IsValue())
        Remove(item);
}

void ComboModel::Remove(ComboTreeItem& item) {
    const ComboTree::RowRange rows = item.IsValue() ? m_tree.RemoveValue(item) : m_tree.RemoveSubTree(item);
    if (rows.count > 0 && !m_isBuilding)
        m_sink.OnRowsRemoved(rows);
}

void ComboModel::ItemMoved(const ComboTreeItem& from, ComboTreeItem& to) {
    if (!m_isBuilding && m_tree.Contains(from) && m_tree.Contains(to))
        m_sink.OnItemMoved(from, to);
}

// Opened all the way up, not its own group alone: a new entry becomes the current row.
ComboTreeItem* ComboModel::EntryAdded(long id) {
    const ComboTree::KeepItems keep(m_tree);
    const LossWatch bound = m_binding.Watch();
    CVariantValue name;
    if (!m_binding.Enumeration()->GetName(id, name) || !bound)
        return nullptr;
    ComboTreeItem* item = InsertItem(nullptr, id, std::move(name));
    if (item)
        ExpandParent(item->GetParent());
    return item;
}

void ComboModel::EntryRemoved(long id) {
    if (ComboTreeItem* item = m_tree.FindValue(id))
        Remove(*item);
}

std::string ComboModel::ImagePath(int row) const {
    const ComboTreeItem* item = m_tree.ItemAt(row);
    return item && item->IsValue() ? m_binding.ImagePath(item->GetId()) : std::string();
}

} // namespace korvel::internal
