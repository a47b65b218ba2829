#pragma once

#include "korvel/editors/combo_rows.h"
#include "korvel/editors/combo_tree_item.h"

#include <memory>
#include <set>
#include <string_view>

namespace korvel::internal {

/// The tree that a list shows: items, the rows of those that are shown, and the counts of checked entries.
/// It knows neither the enumeration nor the list control.
///
///     ComboTree tree;
///     auto& fills = tree.AddGroup(tree.Root(), "fills");
///     auto& sand = tree.AddValue(fills, 7, std::move(value), "sand");
///     tree.Expand(fills);          // row 1 is new
///     tree.SetCheck(sand, true);
///     fills.GetChecked();          // 1
///
/// Every operation is linear in what it changes, whatever the number of items. When memory ends, nothing has
/// changed; what removes needs none.
class ComboTree {
public:
    /// The rows from `first` to before `first + count`.
    struct RowRange {
        int first = 0;
        int count = 0;
    };

    /// While one lives, removed items can still be looked at; GetParent is null. For
    /// code that calls the host with items at hand.
    class KeepItems {
    public:
        explicit KeepItems(const ComboTree& tree) : m_tree(tree) { ++m_tree.m_keepers; }
        ~KeepItems() { m_tree.EndKeeping(); }
        KeepItems(const KeepItems&) = delete;
        KeepItems& operator=(const KeepItems&) = delete;

    private:
        const ComboTree& m_tree;
    };

    ComboTree();
    ~ComboTree();
    ComboTree(const ComboTree&) = delete;
    ComboTree& operator=(const ComboTree&) = delete;

    ComboTreeItem& Root() { return m_root; }
    const ComboTreeItem& Root() const { return m_root; }
    /// False for an item that has been removed.
    bool Contains(const ComboTreeItem& item) const { return item.GetParent() || &item == &m_root; }
    int RowCount() const { return m_rows.Size(); }
    /// Null for no such row.
    ComboTreeItem* ItemAt(int row) const { return m_rows.At(row); }

    /// A new last child of `parent`; it has a row when `parent` and everything above it is expanded.
    ComboTreeItem& AddValue(ComboTreeItem& parent, long id, CVariantValue&& value, std::string label);
    ComboTreeItem& AddGroup(ComboTreeItem& parent, std::string label);
    /// The first child with this label, group or value, or null.
    ComboTreeItem* FindChild(ComboTreeItem& parent, std::string_view label);
    /// The first value with this number, in the order of the rows, or null.
    ComboTreeItem* FindValue(long id);

    /// A value stops being an entry: it is removed, or stays as a group while other entries are under it.
    /// Returns the row that is gone.
    RowRange RemoveValue(ComboTreeItem& item);
    /// Removes the item with everything under it.
    RowRange RemoveSubTree(ComboTreeItem& item);
    /// Only the root is left.
    void Clear();

    /// Return the rows that are new or gone. An item that is not shown itself only remembers.
    RowRange Expand(ComboTreeItem& item);
    RowRange Collapse(ComboTreeItem& item);

    /// Of a value: its own check, and the counts up to the root.
    void SetCheck(ComboTreeItem& item, bool check);
    /// The value's own check, whatever is under it.
    static bool IsChecked(const ComboTreeItem& item) { return item.m_isSelected; }
    void SetValue(ComboTreeItem& item, const CVariantValue& value) { item.m_value = value; }
    void SetLabel(ComboTreeItem& item, int column, std::string text);

private:
    /// By number, then in the order of the rows, which never changes between two items.
    struct ById {
        using is_transparent = void;
        bool operator()(const ComboTreeItem* left, const ComboTreeItem* right) const;
        bool operator()(const ComboTreeItem* item, long id) const { return item->m_id < id; }
    };
    using IdIndex = std::set<ComboTreeItem*, ById>;

    ComboTreeItem& AddChild(ComboTreeItem& parent, std::unique_ptr<ComboTreeItem> child);
    void ShowNewChild(const ComboTreeItem& parent, ComboTreeItem& child);
    static void AddToIndex(ComboTreeItem& parent, ComboTreeItem& child);
    static void ChangeCounts(ComboTreeItem& item, int checked, int unchecked);
    static ComboTreeItem* NextShownUnder(const ComboTreeItem& item, const ComboTreeItem& top);
    void Unlink(ComboTreeItem& item);
    void ReleaseSubTree(ComboTreeItem& top);
    void Release(ComboTreeItem* item) const;
    void ForgetId(ComboTreeItem& item);
    void BuildIndex();
    void EndKeeping() const;

    ComboTreeItem m_root;
    ComboRows m_rows;
    std::uint64_t m_itemsMade = 0;
    ComboTreeItem* m_lastFound = nullptr; // by FindChild, as long as that would return it again
    std::unique_ptr<IdIndex> m_index;     // the values, from the first search on
    mutable int m_keepers = 0;
    mutable ComboTreeItem* m_removed = nullptr; // while one keeps; then by m_previousSibling
};

} // namespace korvel::internal
