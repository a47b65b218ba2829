#include "korvel/editors/combo_enum_walk.h"
#include "korvel/editors/combo_model.h"

namespace korvel {

namespace {

CVariantValue EmptyText() {
    CVariantValue value;
    value.Type = DT_String;
    return value;
}

} // namespace

// Groups compare equal whatever their object is. To the letter, one row of a table would select them all,
// the last one last; so their objects must agree as well, here and nowhere else.
void ComboModel::Apply(const ComboTreeItem* item) {
    const ComboTree::Keep keep(m_tree);
    const CVariantValue wanted = item ? item->GetValue() : EmptyText();
    const unsigned binding = m_binding;
    const bool isTable = IsTable();
    if (binding != m_binding)
        return;
    WalkEntries([&](long id) {
        CVariantValue name;
        if (!m_enumeration->GetName(id, name) || binding != m_binding)
            return;
        const bool sameObject =
            !isTable || name.Type != DT_Group || name.Value.Dispatch == wanted.Value.Dispatch;
        if (sameObject && name == wanted)
            m_enumeration->Select(id, m_value);
    });
}

// The host selects first, and finds the counts as they were.
void ComboModel::ToggleCheck(ComboTreeItem& item) {
    const ComboTree::Keep keep(m_tree);
    if (!item.IsValue())
        return;
    const unsigned binding = m_binding;
    const bool check = item.GetChecked() < 1;
    TellHost(item, check);
    if (binding == m_binding)
        m_tree.SetCheck(item, check);
}

// An entry changes alone, also when others stand under it, although its count has theirs in it: kept. While
// only those are checked, a press on its box deselects what is not selected, and its box stays checked.
void ComboModel::SetCheck(ComboTreeItem& item, bool check) {
    const ComboTree::Keep keep(m_tree);
    if (!item.IsValue())
        SetCheckUnder(item, check);
    else if ((item.GetChecked() > 0) != check)
        CheckValue(item, check);
}

// Every entry in the group, however deep.
void ComboModel::SetCheckUnder(ComboTreeItem& item, bool check) {
    const unsigned binding = m_binding;
    std::vector<ComboTreeItem*> values;
    for (ComboTreeItem* under = &item; under; under = under->GetNextUnder(item))
        if (under->IsValue() && ComboTree::IsChecked(*under) != check)
            values.push_back(under);
    for (ComboTreeItem* const value : values) {
        if (value->GetParent() && value->IsValue()) // the host may have removed it meanwhile
            CheckValue(*value, check);
        if (binding != m_binding)
            return;
    }
}

// Here the counts come first, so that a host that looks at the list while it selects finds them changed. A
// host that throws has selected nothing.
void ComboModel::CheckValue(ComboTreeItem& item, bool check) {
    const unsigned binding = m_binding;
    const bool former = ComboTree::IsChecked(item);
    m_tree.SetCheck(item, check);
    try {
        TellHost(item, check);
    } catch (...) {
        if (binding == m_binding)
            m_tree.SetCheck(item, former);
        throw;
    }
}

void ComboModel::TellHost(const ComboTreeItem& item, bool check) {
    if (check)
        m_enumeration->Select(item.GetId(), m_value);
    else
        m_enumeration->Deselect(item.GetId(), m_value);
}

} // namespace korvel
