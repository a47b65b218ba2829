#include "korvel/editors/combo_model.h"

#include "korvel/editors/combo_enum_walk.h"
#include "korvel/editors/path_name.h"

#include <utility>

namespace korvel {

namespace {

ComboTreeItem* Innermost(ComboTreeItem* item) {
    while (item->HasChildren())
        item = item->GetFirstChild();
    return item;
}

// The items at and under `top`, each behind what stands under it.
std::vector<ComboTreeItem*> ChildrenFirst(ComboTreeItem& top) {
    std::vector<ComboTreeItem*> items = {Innermost(&top)};
    while (items.back() != &top) {
        ComboTreeItem* next = items.back()->GetNextSibling();
        items.push_back(next ? Innermost(next) : items.back()->GetParent());
    }
    return items;
}

} // namespace

void ComboModel::SetValue(const CVariantValue& value) {
    m_value = value;
    m_enumeration = value.EnumValue;
}

void ComboModel::Begin() {
    m_isOpen = true;
    m_isBuilding = true;
}

ComboTreeItem* ComboModel::InsertEntries() {
    const ComboTree::Keep keep(m_tree);
    const unsigned binding = m_binding;
    ComboTreeItem* selected = nullptr;
    WalkEntries([&](long id) {
        CVariantValue name;
        if (!m_enumeration->GetName(id, name) || binding != m_binding)
            return;
        ComboTreeItem* item = InsertItem(nullptr, id, std::move(name));
        if (!item || !m_enumeration->IsValue(id, m_value) || binding != m_binding || !item->GetParent())
            return;
        m_tree.SetCheck(*item, true);
        ExpandParent(item->GetParent());
        selected = item;
    });
    if (binding != m_binding)
        return nullptr;
    m_isBuilding = false;
    return selected && selected->GetParent() ? selected : nullptr;
}

void ComboModel::Close() {
    ++m_binding;
    m_isOpen = false;
    m_isBuilding = false;
    m_enumeration = nullptr;
    m_tree.Clear();
}

bool ComboModel::HasFlag(EnumFlags flag) const {
    return m_enumeration && (m_enumeration->GetEnumFlags() & flag) != 0;
}

bool ComboModel::IsTable() const {
    return m_enumeration && m_enumeration->GetDataType() == DT_Group;
}

char ComboModel::Separator() const {
    const bool hasTree = HasFlag(ENF_Tree); // who ends the binding here is asked nothing more
    const char* separator = m_enumeration ? m_enumeration->GetSeparator(hasTree) : nullptr;
    return separator ? *separator : '\0';
}

void ComboModel::Expand(ComboTreeItem& item) {
    Came(m_tree.Expand(item));
}

void ComboModel::Collapse(ComboTreeItem& item) {
    Went(m_tree.Collapse(item));
}

// From the inside out: what is not shown yet only remembers, and all rows come at once.
void ComboModel::ExpandParent(ComboTreeItem* item) {
    const ComboTree::Keep keep(m_tree);
    for (; item; item = item->GetParent())
        Expand(*item);
}

// The sink hears when all is there. At most one row came: what stands under a new group is not shown.
ComboTreeItem* ComboModel::InsertItem(ComboTreeItem* parent, long id, CVariantValue&& value) {
    const ComboTree::Keep keep(m_tree);
    const unsigned binding = m_binding;
    const auto separator = PathSeparator();
    // A string is not copied to be split. A list asks its host.
    const bool isString = value.Type == DT_String;
    const std::string converted = isString ? std::string() : value.ToText();
    const std::string_view text = isString ? value.Text : converted;
    if (binding != m_binding || (parent && !IsInTree(*parent)))
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
    TellNew(newGroup ? *newGroup : item);
    return &item;
}

ComboTreeItem* ComboModel::InsertItem(ComboTreeItem* parent, std::string_view name) {
    ComboTreeItem* newGroup = nullptr;
    ComboTreeItem& group = GroupUnder(parent ? *parent : m_tree.Root(), name, newGroup);
    if (newGroup)
        TellNew(group);
    return &group;
}

ComboTreeItem& ComboModel::GroupUnder(ComboTreeItem& parent, std::string_view name,
                                      ComboTreeItem*& firstNew) {
    if (ComboTreeItem* const known = m_tree.FindChild(parent, name))
        return *known;
    ComboTreeItem& group = m_tree.AddGroup(parent, std::string(name));
    firstNew = firstNew ? firstNew : &group;
    return group;
}

void ComboModel::TellNew(const ComboTreeItem& item) {
    if (!m_isBuilding && item.HasRow())
        m_sink.OnRowsCame({item.GetRow(), 1});
}

ComboTreeItem* ComboModel::AddValue(const std::string& name, const std::string& group) {
    const ComboTree::Keep keep(m_tree);
    const unsigned binding = m_binding;
    const long id = m_enumeration->AddValue(name, group);
    if (id == -1 || binding != m_binding)
        return nullptr;
    // An enumeration that tells its sinks itself has had the item made already.
    ComboTreeItem* known = m_tree.FindValue(id);
    return known ? known : EntryCame(id);
}

// Opened all the way up, not its own group alone: a new entry becomes the current row.
ComboTreeItem* ComboModel::EntryCame(long id) {
    const ComboTree::Keep keep(m_tree);
    const unsigned binding = m_binding;
    CVariantValue name;
    if (!m_enumeration->GetName(id, name) || binding != m_binding)
        return nullptr;
    ComboTreeItem* item = InsertItem(nullptr, id, std::move(name));
    if (item)
        ExpandParent(item->GetParent());
    return item;
}

void ComboModel::EntryWent(long id) {
    if (ComboTreeItem* const item = m_tree.FindValue(id))
        Went(m_tree.RemoveValue(*item));
}

void ComboModel::DestroySubTree(ComboTreeItem& item) {
    const ComboTree::Keep keep(m_tree);
    const unsigned binding = m_binding;
    for (ComboTreeItem* const under : ChildrenFirst(item)) {
        if (under->IsValue())
            RemoveEntry(*under);
        else if (under->GetParent() && !under->HasChildren())
            Went(m_tree.RemoveSubTree(*under));
        if (binding != m_binding)
            return;
    }
}

// An entry that the enumeration does not know any more only loses its row.
void ComboModel::RemoveEntry(ComboTreeItem& item) {
    if (!item.GetParent())
        return; // the host has taken it away meanwhile
    const unsigned binding = m_binding;
    const long id = item.GetId();
    CVariantValue name;
    if (m_enumeration->GetName(id, name) && binding == m_binding)
        m_enumeration->RemoveValue(id);
    if (binding == m_binding && item.GetParent() && item.IsValue())
        Went(m_tree.RemoveValue(item));
}

void ComboModel::RefreshLabels() {
    const ComboTree::Keep keep(m_tree);
    const unsigned binding = m_binding;
    const auto separator = PathSeparator();
    for (ComboTreeItem* item = &m_tree.Root(); item && binding == m_binding;
         item = item->GetNextUnder(m_tree.Root())) {
        if (!item->IsValue() || item->GetValue().Type == DT_Group)
            continue;
        const CVariantValue value = item->GetValue(); // a list asks its host, who may take the entry away
        const std::string text = value.ToText();
        if (binding == m_binding)
            m_tree.SetLabel(*item, 0, Segments(text, separator).back());
    }
}

std::list<std::string> ComboModel::Segments(const std::string& text, std::optional<char> separator) {
    std::list<std::string> segments;
    if (separator)
        segments = SplitPathName(text, *separator);
    if (segments.empty())
        segments.push_back(text);
    return segments;
}

std::optional<char> ComboModel::PathSeparator() const {
    return IsTreePreview() ? std::optional(Separator()) : std::nullopt;
}

void ComboModel::Came(ComboTree::RowRange rows) {
    if (rows.count > 0 && !m_isBuilding)
        m_sink.OnRowsCame(rows);
}

void ComboModel::Went(ComboTree::RowRange rows) {
    if (rows.count > 0 && !m_isBuilding)
        m_sink.OnRowsWent(rows);
}

} // namespace korvel
