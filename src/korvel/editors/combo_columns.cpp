#include "korvel/editors/combo_columns.h"

#include <list>

namespace korvel::internal {

std::optional<ComboColumns> ComboColumns::Ask(const ComboBinding& binding) {
    const LossWatch bound = binding.Watch();
    ComboColumns columns;
    columns.m_hasTree = binding.HasFlag(ENF_Tree);
    if (!bound)
        return std::nullopt;
    const EDataTyps type = binding.Enumeration()->GetDataType();
    columns.m_isTable = type == DT_Group;
    if (!columns.m_isTable)
        columns.m_types.insert(type);
    else if (bound)
        columns.AskMembers(binding);
    return bound ? std::optional(columns) : std::nullopt;
}

void ComboColumns::AskMembers(const ComboBinding& binding) {
    const LossWatch bound = binding.Watch();
    const CVariantValue* pattern = binding.Enumeration()->GetTemplate();
    if (!bound || !pattern || pattern->Type != DT_Group || !pattern->Value.Dispatch)
        return;
    IMemberDispatch& object = *pattern->Value.Dispatch;
    std::list<std::string> names;
    object.GetMemberNames(names);
    m_members.assign(names.begin(), names.end());
    for (const std::string& name : m_members) {
        if (!bound)
            return;
        EDataTyps type = DT_Void;
        if (object.GetMemberType(name, type))
            m_types.insert(type);
    }
}

std::string ComboColumns::TextOf(const ComboTreeItem& item, int column) const {
    if (item.HasLabel(column))
        return item.GetLabel(column);
    const CVariantValue& value = item.GetValue();
    if (column < 1 || column > static_cast<int>(m_members.size()) || value.Type != DT_Group ||
        !value.Value.Dispatch)
        return {};
    // A copy: the object may end the binding, and the column with it.
    const std::string member = m_members[static_cast<std::size_t>(column) - 1];
    CVariantValue cell;
    return value.Value.Dispatch->GetMember(member, cell) ? cell.ToText() : std::string();
}

} // namespace korvel::internal
