#pragma once

#include "korvel/editors/combo_binding.h"
#include "korvel/editors/combo_row_sink.h"
#include "korvel/editors/combo_tree.h"

#include <string>
#include <string_view>

namespace korvel::internal {

/// The entries of an enumeration as a tree of items, and their rows. It knows no window.
///
///     ComboModel model(eDropDown, sink);
///     model.Binding().SetValue(value);        // "fills/sand" is what it selects
///     model.Open();
///     model.InsertEntries()->GetLabel();      // "sand"; its group is open
///     model.Collapse(*model.Tree().ItemAt(0)) // the sink is told of one row
///
/// The enumeration may change, or the model be closed, while it is asked: what was under way then stops. What
/// it throws passes through, and leaves rows and counts that agree.
class ComboModel {
public:
    ComboModel(EComboListMode mode, ComboRowSink& sink) : m_binding(mode), m_sink(sink) {}

    ComboBinding& Binding() { return m_binding; }
    const ComboBinding& Binding() const { return m_binding; }
    ComboTree& Tree() { return m_tree; }
    const ComboTree& Tree() const { return m_tree; }

    /// Begins a binding. The sink is told nothing until all entries are there.
    void Open();
    /// Makes the tree; expands it down to what the value selects, and returns the last such entry, or null.
    ComboTreeItem* InsertEntries();
    void Close();

    void Expand(ComboTreeItem& item);
    void Collapse(ComboTreeItem& item);
    /// The item and everything above it.
    void ExpandParent(ComboTreeItem* item);

    /// An entry, in the groups that its name asks for; a null parent is the root. Null when the host has
    /// ended the binding, or taken the parent away, meanwhile.
    ComboTreeItem* InsertItem(ComboTreeItem* parent, long id, CVariantValue&& value);
    /// The child of this label, found or made.
    ComboTreeItem& InsertGroup(ComboTreeItem& parent, std::string_view name);
    /// Has the enumeration make an entry and returns its item; null when it refuses.
    ComboTreeItem* AddValue(const std::string& name, const std::string& group);
    /// Has the enumeration remove every entry at and under the item, then removes the groups.
    void DestroySubTree(ComboTreeItem& item);
    /// Takes an entry out of the tree, or a group with all that is under it.
    void Remove(ComboTreeItem& item);

    /// `to` has been made for what `from` was, which may be removed next.
    void ItemMoved(const ComboTreeItem& from, ComboTreeItem& to);

    /// The enumeration has a new entry: returns its item, shown, or null when it does not know the entry.
    ComboTreeItem* EntryAdded(long id);
    void EntryRemoved(long id);

    /// Of the entry in a row; empty for a group, and when there is none.
    std::string ImagePath(int row) const;

private:
    ComboTreeItem& GroupUnder(ComboTreeItem& parent, std::string_view name, ComboTreeItem*& firstNew);
    void RemoveEntry(ComboTreeItem& item);
    void ReportNew(const ComboTreeItem& item);

    ComboBinding m_binding;
    ComboTree m_tree;
    ComboRowSink& m_sink;
    bool m_isBuilding = false;
};

} // namespace korvel::internal
