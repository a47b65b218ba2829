#include "editors/combo_model.h"

#include "editors/combo_enum_walk.h"
#include "editors/path_name.h"

#include <utility>

namespace korvel {

void ComboModel::SetValue(const CVariantValue& value) {
    m_Value = value;
    m_pEnumValue = value.EnumValue;
}

CComboTreeItem* ComboModel::Open() {
    m_bOpen = true;
    m_bBuilding = true;
    const ComboTree::Keep keep(m_Tree);
    const unsigned binding = m_binding;
    try {
        CComboTreeItem* const selected = InsertEntries();
        m_bBuilding = false;
        return selected && selected->GetParent() ? selected : nullptr;
    } catch (...) {
        if (binding == m_binding) {
            Close();
        }
        throw;
    }
}

CComboTreeItem* ComboModel::InsertEntries() {
    CComboTreeItem* selected = nullptr;
    const unsigned binding = m_binding;
    WalkEntries([&](long id) {
        CVariantValue name;
        if (!m_pEnumValue->GetName(id, name) || binding != m_binding) {
            return;
        }
        CComboTreeItem* const item = InsertItem(nullptr, id, std::move(name));
        if (!m_pEnumValue->IsValue(id, m_Value) || binding != m_binding || !item->GetParent()) {
            return;
        }
        m_Tree.SetCheck(*item, true);
        ExpandParent(item->GetParent());
        selected = item;
    });
    return binding == m_binding ? selected : nullptr;
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
    const char* const separator = m_pEnumValue ? m_pEnumValue->GetSeparator(HasFlag(ENF_Tree)) : nullptr;
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
    for (; item; item = item->GetParent()) {
        Expand(*item);
    }
}

CComboTreeItem* ComboModel::InsertItem(CComboTreeItem* parent, long id, CVariantValue value) {
    const std::string text = value.ToText();
    CComboTreeItem* under = parent ? parent : &m_Tree.Root();
    std::string_view label = text; // a text without any segment stays whole
    if (IsTreePreview()) {
        const char separator = Separator();
        std::string_view rest = text;
        std::string_view segment = TakeSegment(rest, separator);
        while (!segment.empty()) {
            label = segment;
            segment = TakeSegment(rest, separator);
            if (!segment.empty()) {
                under = InsertItem(under, label);
            }
        }
    }
    CComboTreeItem& item = m_Tree.AddValue(*under, id, std::move(value), std::string(label));
    TellNew(item);
    return &item;
}

CComboTreeItem* ComboModel::InsertItem(CComboTreeItem* parent, std::string_view name) {
    CComboTreeItem& under = parent ? *parent : m_Tree.Root();
    if (CComboTreeItem* const known = m_Tree.FindChild(under, name)) {
        return known;
    }
    CComboTreeItem& item = m_Tree.AddGroup(under, std::string(name));
    TellNew(item);
    return &item;
}

void ComboModel::TellNew(const CComboTreeItem& item) {
    if (!m_bBuilding && item.HasRow()) {
        m_sink.OnRowsCame({item.GetRow(), 1});
    }
}

CComboTreeItem* ComboModel::AddValue(const std::string& name, const std::string& group) {
    const ComboTree::Keep keep(m_Tree);
    const unsigned binding = m_binding;
    const long id = m_pEnumValue->AddValue(name, group);
    if (id == -1 || binding != m_binding) {
        return nullptr;
    }
    // An enumeration that tells its sinks itself has had the item made already.
    CComboTreeItem* const known = m_Tree.FindValue(id);
    return known ? known : EntryCame(id);
}

CComboTreeItem* ComboModel::EntryCame(long id) {
    const ComboTree::Keep keep(m_Tree);
    const unsigned binding = m_binding;
    CVariantValue name;
    if (!m_pEnumValue->GetName(id, name) || binding != m_binding) {
        return nullptr;
    }
    CComboTreeItem* const item = InsertItem(nullptr, id, std::move(name));
    ExpandParent(item->GetParent());
    return item;
}

void ComboModel::EntryWent(long id) {
    if (CComboTreeItem* const item = m_Tree.FindValue(id)) {
        Went(m_Tree.RemoveValue(*item));
    }
}

void ComboModel::DestroySubTree(CComboTreeItem& item) {
    const ComboTree::Keep keep(m_Tree);
    const unsigned binding = m_binding;
    std::vector<CComboTreeItem*> values;
    for (CComboTreeItem* under = &item; under; under = under->GetNextUnder(item)) {
        if (under->IsValue()) {
            values.push_back(under);
        }
    }
    // An item with entries under it comes after them.
    for (auto value = values.rbegin(); value != values.rend(); ++value) {
        if ((*value)->GetParent()) {
            RemoveEntry(**value);
        }
        if (binding != m_binding) {
            return;
        }
    }
    const bool isEmptied = item.GetChecked() + item.GetUnchecked() == 0;
    if (item.GetParent() && isEmptied) {
        Went(m_Tree.RemoveSubTree(item));
    }
}

/// An entry that the enumeration does not know any more only loses its row.
void ComboModel::RemoveEntry(CComboTreeItem& item) {
    const unsigned binding = m_binding;
    const long id = item.GetId();
    CVariantValue name;
    if (m_pEnumValue->GetName(id, name) && binding == m_binding) {
        m_pEnumValue->RemoveValue(id);
    }
    if (binding == m_binding && item.GetParent() && item.IsValue()) {
        Went(m_Tree.RemoveValue(item));
    }
}

void ComboModel::RefreshLabels() {
    for (CComboTreeItem* item = &m_Tree.Root(); item; item = item->GetNextUnder(m_Tree.Root())) {
        if (item->IsValue() && item->GetValue().Type != DT_Group) {
            m_Tree.SetLabel(*item, 0, LabelOf(item->GetValue()));
        }
    }
}

std::string ComboModel::LabelOf(const CVariantValue& value) const {
    std::string text = value.ToText();
    std::list<std::string> segments = Segments(text);
    return segments.empty() ? text : std::move(segments.back());
}

std::list<std::string> ComboModel::Segments(const std::string& text) const {
    return IsTreePreview() ? SplitPathName(text, Separator()) : std::list<std::string>();
}

void ComboModel::Came(ComboTree::RowRange rows) {
    if (rows.count > 0 && !m_bBuilding) {
        m_sink.OnRowsCame(rows);
    }
}

void ComboModel::Went(ComboTree::RowRange rows) {
    if (rows.count > 0 && !m_bBuilding) {
        m_sink.OnRowsWent(rows);
    }
}

} // namespace korvel
