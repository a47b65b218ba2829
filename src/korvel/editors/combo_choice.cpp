#include "korvel/editors/combo_choice.h"

namespace korvel::internal {

namespace {

CVariantValue EmptyText() {
    CVariantValue value;
    value.Type = DT_String;
    return value;
}

} // namespace

// Groups compare equal whatever their object is. Left at that, one row of a table would select them all, the
// last one last; so their objects must agree as well, here and nowhere else.
void ComboChoice::Apply(const ComboTreeItem* item) {
    const CVariantValue wanted = item ? item->GetValue() : EmptyText();
    const LossWatch bound = m_binding.Watch();
    const bool isTable = m_binding.IsTable();
    if (!bound)
        return;
    m_binding.VisitEntries([&](long id) {
        CVariantValue name;
        if (!m_binding.Enumeration()->GetName(id, name) || !bound)
            return;
        const bool sameObject =
            !isTable || name.Type != DT_Group || name.Value.Dispatch == wanted.Value.Dispatch;
        if (sameObject && name == wanted)
            m_binding.Enumeration()->Select(id, m_binding.Value());
    });
}

// The host selects first, and finds the counts as they were.
void ComboChoice::ToggleCheck(ComboTreeItem& item) {
    if (!item.IsValue())
        return;
    const LossWatch bound = m_binding.Watch();
    const bool check = item.GetChecked() < 1;
    SelectInHost(item, check);
    if (bound)
        m_tree.SetCheck(item, check);
}

// An entry changes alone, also when others are under it, although its count includes theirs: kept. While only
// those are checked, a press on its box deselects what is not selected, and its box stays checked.
void ComboChoice::SetCheck(ComboTreeItem& item, bool check) {
    if (!item.IsValue())
        SetCheckUnder(item, check);
    else if ((item.GetChecked() > 0) != check)
        CheckValue(item, check);
}

// Every entry in the group, however deep.
void ComboChoice::SetCheckUnder(ComboTreeItem& group, bool check) {
    const LossWatch bound = m_binding.Watch();
    std::vector<ComboTreeItem*> values;
    for (ComboTreeItem* under = &group; under; under = under->GetNextUnder(group))
        if (under->IsValue() && ComboTree::IsChecked(*under) != check)
            values.push_back(under);
    for (ComboTreeItem* value : values) {
        if (value->GetParent() && value->IsValue()) // the host may have removed it meanwhile
            CheckValue(*value, check);
        if (!bound)
            return;
    }
}

// Here the counts change first, so that a host that looks at the list while it selects finds them changed. A
// host that throws has selected nothing.
void ComboChoice::CheckValue(ComboTreeItem& item, bool check) {
    const LossWatch bound = m_binding.Watch();
    const bool former = ComboTree::IsChecked(item);
    m_tree.SetCheck(item, check);
    try {
        SelectInHost(item, check);
    } catch (...) {
        if (bound)
            m_tree.SetCheck(item, former);
        throw;
    }
}

void ComboChoice::SelectInHost(const ComboTreeItem& item, bool select) {
    if (select)
        m_binding.Enumeration()->Select(item.GetId(), m_binding.Value());
    else
        m_binding.Enumeration()->Deselect(item.GetId(), m_binding.Value());
}

} // namespace korvel::internal
