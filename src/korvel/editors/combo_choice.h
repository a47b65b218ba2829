#pragma once

#include "korvel/editors/combo_model.h"

namespace korvel::internal {

/// What the user chooses in a list: has the enumeration select and deselect entries in the list's value, and
/// keeps the checks of the items in step.
///
///     ComboChoice(model).Apply(model.Tree().ItemAt(3));   // the value now selects that entry
class ComboChoice {
public:
    explicit ComboChoice(ComboModel& model)
        : m_binding(model.Binding()), m_tree(model.Tree()), m_keep(model.Tree()) {}

    /// Selects every entry whose name equals that of the item (null: the empty text); in a table, of those
    /// with the same object.
    void Apply(const ComboTreeItem* item);
    /// Of an entry; a group stays as it is.
    void ToggleCheck(ComboTreeItem& item);
    /// Of an entry alone, or of every entry in the group.
    void SetCheck(ComboTreeItem& item, bool check);

private:
    void SetCheckUnder(ComboTreeItem& group, bool check);
    void CheckValue(ComboTreeItem& item, bool check);
    void SelectInHost(const ComboTreeItem& item, bool select);

    ComboBinding& m_binding;
    ComboTree& m_tree;
    const ComboTree::KeepItems m_keep;
};

} // namespace korvel::internal
