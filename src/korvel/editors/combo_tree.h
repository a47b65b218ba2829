#pragma once

#include "korvel/editors/combo_tree_item.h"

#include <memory>
#include <set>
#include <vector>

namespace korvel {

/// The tree behind a CComboList: items, the rows of those that are shown, and the counts of checked entries.
/// It knows neither the enumeration nor the list control.
///
///     ComboTree tree;
///     auto& fills = tree.AddGroup(tree.Root(), "fills");
///     auto& sand = tree.AddValue(fills, 7, std::move(value), "sand");
///     tree.Expand(fills);          // rows 1 to before 2 came
///     tree.SetCheck(sand, true);
///     fills.GetChecked();          // 1
///
/// Every operation is linear in what it changes, whatever the number of items. A walk that calls the host
/// holds a `Keep`: items that the host has removed meanwhile are then out of the tree (GetParent is null),
/// but can still be looked at.
class KORVEL_API ComboTree {
public:
    /// The rows from `first` to before `first + count`.
    struct RowRange {
        int first = 0;
        int count = 0;
    };

    class KORVEL_API Keep {
    public:
        explicit Keep(const ComboTree& tree) : m_tree(tree) { ++m_tree.m_keeping; }
        ~Keep() { m_tree.EndKeeping(); }
        Keep(const Keep&) = delete;
        Keep& operator=(const Keep&) = delete;

    private:
        const ComboTree& m_tree;
    };

    ComboTree();
    ~ComboTree();
    ComboTree(const ComboTree&) = delete;
    ComboTree& operator=(const ComboTree&) = delete;

    ComboTreeItem& Root() { return m_root; }
    const ComboTreeItem& Root() const { return m_root; }
    int RowCount() const { return m_rows.Size(); }
    /// Null for a row that there is not.
    ComboTreeItem* ItemAt(int row) const { return m_rows.Has(row) ? m_rows.At(row) : nullptr; }

    /// A new last child of `parent`; it has a row when `parent` and everything above it is expanded.
    ComboTreeItem& AddValue(ComboTreeItem& parent, long id, CVariantValue&& value, std::string label);
    ComboTreeItem& AddGroup(ComboTreeItem& parent, std::string label);
    /// The first child with this label, group or value, or null.
    ComboTreeItem* FindChild(ComboTreeItem& parent, std::string_view label);
    /// The first value with this number, in the order of the rows, or null.
    ComboTreeItem* FindValue(long id);

    /// A value stops being an entry: it goes, or stays as a group while other entries stand under it. Answers
    /// the row that is gone.
    RowRange RemoveValue(ComboTreeItem& item);
    /// The item goes, with everything under it.
    RowRange RemoveSubTree(ComboTreeItem& item);
    /// Only the root is left.
    void Clear();

    /// Answer the rows that came or went. An item that is not shown itself only remembers.
    RowRange Expand(ComboTreeItem& item);
    RowRange Collapse(ComboTreeItem& item);

    /// Of a value: its own check, and the counts up to the root.
    void SetCheck(ComboTreeItem& item, bool check);
    static bool IsChecked(const ComboTreeItem& item) { return item.m_isSelected; }
    void SetValue(ComboTreeItem& item, const CVariantValue& value) { item.m_Value = value; }
    void SetLabel(ComboTreeItem& item, int column, std::string text);

private:
    /// By number, then in the order of the rows, which never changes between two items.
    struct ById {
        using is_transparent = void;
        bool operator()(const ComboTreeItem* left, const ComboTreeItem* right) const;
        bool operator()(const ComboTreeItem* item, long id) const { return item->m_Id < id; }
        bool operator()(long id, const ComboTreeItem* item) const { return id < item->m_Id; }
    };
    using IdIndex = std::set<ComboTreeItem*, ById>;

    ComboTreeItem& AddChild(ComboTreeItem& parent, std::unique_ptr<ComboTreeItem> child);
    void ShowNewChild(ComboTreeItem& child);
    static void ChangeCounts(ComboTreeItem& item, int checked, int unchecked);
    static ComboTreeItem* NextShownUnder(const ComboTreeItem& item, const ComboTreeItem& top);
    void Unlink(ComboTreeItem& item);
    void Bury(ComboTreeItem& item);
    void ForgetId(ComboTreeItem& item);
    void BuildIndex();
    void EndKeeping() const;

    ComboTreeItem m_root;
    ComboRows m_rows;
    std::uint64_t m_born = 0;
    ComboTreeItem* m_lastFound = nullptr; // by FindChild, while that is still its answer
    std::unique_ptr<IdIndex> m_index;     // the values, from the first search on
    mutable int m_keeping = 0;
    mutable std::vector<std::unique_ptr<ComboTreeItem>> m_removed;
};

} // namespace korvel
