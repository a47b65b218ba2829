#include "korvel/editors/combo_model.h"

#include "korvel/editors/combo_enum_walk.h"
#include "korvel/editors/path_name.h"

#include <utility>

namespace korvel {

namespace {

CComboTreeItem* Innermost(CComboTreeItem* item) {
    while (item->HasChildren())
        item = item->GetFirstChild();
    return item;
}

/// The items at and under `top`, each behind what stands under it.
std::vector<CComboTreeItem*> ChildrenFirst(CComboTreeItem& top) {
    std::vector<CComboTreeItem*> items = {Innermost(&top)};
    while (items.back() != &top) {
        CComboTreeItem* const next = items.back()->GetNextSibling();
        items.push_back(next ? Innermost(next) : items.back()->GetParent());
    }
    return items;
}

} // namespace

void ComboModel::SetValue(const CVariantValue& value) {
    m_Value = value;
    m_pEnumValue = value.EnumValue;
}

void ComboModel::Begin() {
    m_bOpen = true;
    m_bBuilding = true;
}

CComboTreeItem* ComboModel::InsertEntries() {
    const ComboTree::Keep keep(m_Tree);
    const unsigned binding = m_binding;
    CComboTreeItem* selected = nullptr;
    WalkEntries([&](long id) {
        CVariantValue name;
        if (!m_pEnumValue->GetName(id, name) || binding != m_binding)
            return;
        CComboTreeItem* const item = InsertItem(nullptr, id, std::move(name));
        if (!item || !m_pEnumValue->IsValue(id, m_Value) || binding != m_binding || !item->GetParent())
            return;
        m_Tree.SetCheck(*item, true);
        ExpandParent(item->GetParent());
        selected = item;
    });
    if (binding != m_binding)
        return nullptr;
    m_bBuilding = false;
    return selected && selected->GetParent() ? selected : nullptr;
}

void ComboModel::Close() {
    ++m_binding;
    m_bOpen = false;
    m_bBuilding = false;
    m_pEnumValue = nullptr;
    m_Tree.Clear();
}

bool ComboModel::HasFlag(EEnumFlags flag) const {
    return m_pEnumValue && (m_pEnumValue->GetEnumFlags() & flag) != 0;
}

bool ComboModel::IsTable() const {
    return m_pEnumValue && m_pEnumValue->GetDataType() == DT_Group;
}

char ComboModel::Separator() const {
    const bool hasTree = HasFlag(ENF_Tree); // who ends the binding here is asked nothing more
    const char* const separator = m_pEnumValue ? m_pEnumValue->GetSeparator(hasTree) : nullptr;
    return separator ? *separator : '\0';
}

void ComboModel::Expand(CComboTreeItem& item) {
    Came(m_Tree.Expand(item));
}

void ComboModel::Collapse(CComboTreeItem& item) {
    Went(m_Tree.Collapse(item));
}

/// From the inside out: what is not shown yet only remembers, and all rows come at once.
void ComboModel::ExpandParent(CComboTreeItem* item) {
    const ComboTree::Keep keep(m_Tree);
    for (; item; item = item->GetParent())
        Expand(*item);
}

/// The sink hears when all is there. At most one row came: what stands under a new group is not shown.
CComboTreeItem* ComboModel::InsertItem(CComboTreeItem* parent, long id, CVariantValue&& value) {
    const ComboTree::Keep keep(m_Tree);
    const unsigned binding = m_binding;
    const auto separator = PathSeparator();
    // A string is not copied to be split. A list asks its host.
    const bool isString = value.Type == DT_String;
    const std::string converted = isString ? std::string() : value.ToText();
    const std::string_view text = isString ? value.Text : converted;
    if (binding != m_binding || (parent && !IsInTree(*parent)))
        return nullptr;
    CComboTreeItem* under = parent ? parent : &m_Tree.Root();
    CComboTreeItem* newGroup = nullptr;
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
    CComboTreeItem& item = m_Tree.AddValue(*under, id, std::move(value), std::string(label));
    TellNew(newGroup ? *newGroup : item);
    return &item;
}

CComboTreeItem* ComboModel::InsertItem(CComboTreeItem* parent, std::string_view name) {
    CComboTreeItem* newGroup = nullptr;
    CComboTreeItem& group = GroupUnder(parent ? *parent : m_Tree.Root(), name, newGroup);
    if (newGroup)
        TellNew(group);
    return &group;
}

CComboTreeItem& ComboModel::GroupUnder(CComboTreeItem& parent, std::string_view name,
                                       CComboTreeItem*& firstNew) {
    if (CComboTreeItem* const known = m_Tree.FindChild(parent, name))
        return *known;
    CComboTreeItem& group = m_Tree.AddGroup(parent, std::string(name));
    firstNew = firstNew ? firstNew : &group;
    return group;
}

void ComboModel::TellNew(const CComboTreeItem& item) {
    if (!m_bBuilding && item.HasRow())
        m_sink.OnRowsCame({item.GetRow(), 1});
}

CComboTreeItem* ComboModel::AddValue(const std::string& name, const std::string& group) {
    const ComboTree::Keep keep(m_Tree);
    const unsigned binding = m_binding;
    const long id = m_pEnumValue->AddValue(name, group);
    if (id == -1 || binding != m_binding)
        return nullptr;
    // An enumeration that tells its sinks itself has had the item made already.
    CComboTreeItem* const known = m_Tree.FindValue(id);
    return known ? known : EntryCame(id);
}

/// Opened all the way up, not its own group alone: a new entry becomes the current row.
CComboTreeItem* ComboModel::EntryCame(long id) {
    const ComboTree::Keep keep(m_Tree);
    const unsigned binding = m_binding;
    CVariantValue name;
    if (!m_pEnumValue->GetName(id, name) || binding != m_binding)
        return nullptr;
    CComboTreeItem* const item = InsertItem(nullptr, id, std::move(name));
    if (item)
        ExpandParent(item->GetParent());
    return item;
}

void ComboModel::EntryWent(long id) {
    if (CComboTreeItem* const item = m_Tree.FindValue(id))
        Went(m_Tree.RemoveValue(*item));
}

void ComboModel::DestroySubTree(CComboTreeItem& item) {
    const ComboTree::Keep keep(m_Tree);
    const unsigned binding = m_binding;
    for (CComboTreeItem* const under : ChildrenFirst(item)) {
        if (under->IsValue())
            RemoveEntry(*under);
        else if (under->GetParent() && !under->HasChildren())
            Went(m_Tree.RemoveSubTree(*under));
        if (binding != m_binding)
            return;
    }
}

/// An entry that the enumeration does not know any more only loses its row.
void ComboModel::RemoveEntry(CComboTreeItem& item) {
    if (!item.GetParent())
        return; // the host has taken it away meanwhile
    const unsigned binding = m_binding;
    const long id = item.GetId();
    CVariantValue name;
    if (m_pEnumValue->GetName(id, name) && binding == m_binding)
        m_pEnumValue->RemoveValue(id);
    if (binding == m_binding && item.GetParent() && item.IsValue())
        Went(m_Tree.RemoveValue(item));
}

void ComboModel::RefreshLabels() {
    const ComboTree::Keep keep(m_Tree);
    const unsigned binding = m_binding;
    const auto separator = PathSeparator();
    for (CComboTreeItem* item = &m_Tree.Root(); item && binding == m_binding;
         item = item->GetNextUnder(m_Tree.Root())) {
        if (!item->IsValue() || item->GetValue().Type == DT_Group)
            continue;
        const CVariantValue value = item->GetValue(); // a list asks its host, who may take the entry away
        const std::string text = value.ToText();
        if (binding == m_binding)
            m_Tree.SetLabel(*item, 0, Segments(text, separator).back());
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
    if (rows.count > 0 && !m_bBuilding)
        m_sink.OnRowsCame(rows);
}

void ComboModel::Went(ComboTree::RowRange rows) {
    if (rows.count > 0 && !m_bBuilding)
        m_sink.OnRowsWent(rows);
}

} // namespace korvel
