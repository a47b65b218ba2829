#pragma once

#include "korvel/platform/export.h"
#include "korvel/values/variant_value.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>

namespace korvel {

namespace internal {
class ComboLabelIndex;
class ComboRows;
class ComboTree;
struct ComboRowBlock;
} // namespace internal

/// One row of a CComboList: an entry of the enumeration, or a group of entries. A value that other entries
/// are under is both. The list owns its items; children are in the order in which they were added.
class KORVEL_API ComboTreeItem {
public:
    ComboTreeItem();
    ~ComboTreeItem();
    ComboTreeItem(const ComboTreeItem&) = delete;
    ComboTreeItem& operator=(const ComboTreeItem&) = delete;

    /// True for an entry, false for a group.
    bool IsValue() const { return m_isValue; }
    /// Of the entry; -1 for a group and for the root.
    long GetId() const { return m_id; }
    /// The entry's name as the enumeration gave it; empty for a group.
    const CVariantValue& GetValue() const { return m_value; }
    bool IsExpanded() const { return m_isExpanded; }
    /// The root is 0, its children 1.
    int GetLevel() const { return m_level; }

    /// Entries at or under this item that are checked.
    int GetChecked() const { return m_checked; }
    /// Entries at or under this item that are not.
    int GetUnchecked() const { return m_unchecked; }

    /// The row in the list. Without one: -1 after a Collapse took it away; the row that its parent had, when
    /// it was added to a closed group. HasRow says which.
    int GetRow() const;
    bool HasRow() const { return m_block != nullptr; }
    /// The row of the last item that is shown at or under this one.
    int GetLastVisibleRow() const;

    /// Null for the root and for a removed item.
    ComboTreeItem* GetParent() const { return m_parent; }
    /// Null when there is none.
    ComboTreeItem* GetFirstChild() const { return m_firstChild; }
    /// Null for the last child.
    ComboTreeItem* GetNextSibling() const { return m_nextSibling; }
    bool HasChildren() const { return m_firstChild != nullptr; }
    /// The next item among those that are shown, or null.
    ComboTreeItem* GetNext() const;
    /// The next item in the whole tree under `top`, shown or not, or null. The order is that of the rows.
    ComboTreeItem* GetNextUnder(const ComboTreeItem& top) const;

    /// Column 0 is the label. A column without a text of its own is empty.
    const std::string& GetLabel(int column = 0) const;
    /// Whether the column has a text of its own; column 0 always has.
    bool HasLabel(int column) const;

private:
    friend class internal::ComboLabelIndex;
    friend class internal::ComboRows;
    friend class internal::ComboTree;

    bool m_isValue = false;
    bool m_isSelected = false; // a value's own check
    bool m_isExpanded = false;
    long m_id = -1;
    CVariantValue m_value;
    int m_level = 0;
    int m_row = -1; // while it has no row
    int m_checked = 0;
    int m_unchecked = 0;
    std::string m_label;
    std::unique_ptr<std::map<int, std::string>> m_furtherLabels; // hardly any item has one

    ComboTreeItem* m_parent = nullptr;
    ComboTreeItem* m_firstChild = nullptr;
    ComboTreeItem* m_lastChild = nullptr;
    ComboTreeItem* m_previousSibling = nullptr;
    ComboTreeItem* m_nextSibling = nullptr;
    internal::ComboRowBlock* m_block = nullptr;         // where its row is kept
    std::uint64_t m_order = 0;                          // grows with every item of the tree: orders siblings
    std::unique_ptr<internal::ComboLabelIndex> m_index; // of the children, from the first search on
};

} // namespace korvel
