#include "editors/combo_enum_walk.h"
#include "editors/combo_model.h"

namespace korvel {

namespace {

CVariantValue EmptyText() {
    CVariantValue value;
    value.Type = DT_String;
    return value;
}

} // namespace

/// Groups compare equal whatever their object is. To the letter, one row of a table would select them all,
/// the last one last; so their objects must agree as well, here and nowhere else.
void ComboModel::Apply(const CComboTreeItem* item) {
    const ComboTree::Keep keep(m_Tree);
    const CVariantValue wanted = item ? item->GetValue() : EmptyText();
    const unsigned binding = m_binding;
    const bool isTable = IsTable();
    WalkEntries([&](long id) {
        CVariantValue name;
        if (!m_pEnumValue->GetName(id, name) || binding != m_binding) {
            return;
        }
        const bool sameObject =
            !isTable || name.Type != DT_Group || name.Value.Dispatch == wanted.Value.Dispatch;
        if (sameObject && name == wanted) {
            m_pEnumValue->Select(id, m_Value);
        }
    });
}

void ComboModel::ToggleCheck(CComboTreeItem& item) {
    const ComboTree::Keep keep(m_Tree);
    if (item.IsValue()) {
        CheckValue(item, !ComboTree::IsChecked(item));
    }
}

void ComboModel::SetCheck(CComboTreeItem& item, bool check) {
    const ComboTree::Keep keep(m_Tree);
    const unsigned binding = m_binding;
    std::vector<CComboTreeItem*> values;
    for (CComboTreeItem* under = &item; under; under = under->GetNextUnder(item)) {
        if (under->IsValue() && ComboTree::IsChecked(*under) != check) {
            values.push_back(under);
        }
    }
    for (CComboTreeItem* const value : values) {
        if (value->GetParent() && value->IsValue()) { // the host may have removed it meanwhile
            CheckValue(*value, check);
        }
        if (binding != m_binding) {
            return;
        }
    }
}

/// The counts come first, so that a host that looks at the list while it selects finds them changed. A host
/// that throws has selected nothing.
void ComboModel::CheckValue(CComboTreeItem& item, bool check) {
    const unsigned binding = m_binding;
    m_Tree.SetCheck(item, check);
    try {
        if (check) {
            m_pEnumValue->Select(item.GetId(), m_Value);
        } else {
            m_pEnumValue->Deselect(item.GetId(), m_Value);
        }
    } catch (...) {
        if (binding == m_binding && item.GetParent()) {
            m_Tree.SetCheck(item, !check);
        }
        throw;
    }
}

} // namespace korvel
