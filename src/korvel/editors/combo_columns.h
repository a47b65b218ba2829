#pragma once

#include "korvel/editors/combo_binding.h"
#include "korvel/editors/combo_tree_item.h"

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace korvel::internal {

/// The columns of a list: that of the labels and, in a table, one for each member of the template object. It
/// knows no window.
///
///     columns = ComboColumns::Ask(binding).value();
///     columns.Members();           // "height", "width": columns 1 and 2
///     columns.TextOf(item, 2);     // what the item's object says of its width
class ComboColumns {
public:
    /// As the enumeration wants them; none when the host has ended the binding meanwhile.
    static std::optional<ComboColumns> Ask(const ComboBinding& binding);

    /// The entries are in a tree: labels have lines and icons before them.
    bool HasTree() const { return m_hasTree; }
    bool IsTable() const { return m_isTable; }
    /// Of a table, in the columns from 1 on.
    const std::vector<std::string>& Members() const { return m_members; }
    /// Whose formats the texts depend on.
    const std::set<EDataTyps>& Types() const { return m_types; }
    /// Empty for a column that the item has nothing for.
    std::string TextOf(const ComboTreeItem& item, int column) const;

private:
    void AskMembers(const ComboBinding& binding);

    bool m_hasTree = false;
    bool m_isTable = false;
    std::vector<std::string> m_members;
    std::set<EDataTyps> m_types;
};

} // namespace korvel::internal
