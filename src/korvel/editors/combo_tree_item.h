#pragma once

#include "korvel/editors/combo_rows.h"
#include "korvel/platform/export.h"
#include "korvel/values/variant_value.h"

#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>

namespace korvel {

/// One row of the tree behind a CComboList: an entry of the enumeration, or a group of entries. A value that
/// other entries stand under is both. Made and changed by the ComboTree that owns it; children stand in the
/// order in which they came.
class KORVEL_API ComboTreeItem {
public:
    ComboTreeItem() = default;
    ComboTreeItem(const ComboTreeItem&) = delete;
    ComboTreeItem& operator=(const ComboTreeItem&) = delete;

    bool IsValue() const { return m_bIsValue; }
    long GetId() const { return m_Id; } ///< -1 for a group and for the root
    const CVariantValue& GetValue() const { return m_Value; }
    bool IsExpanded() const { return m_bExpanded; }
    int GetLevel() const { return m_nLevel; } ///< the root is 0

    /// Entries that are checked, or not, at or under this item.
    int GetChecked() const { return m_nChecked; }
    int GetUnchecked() const { return m_nUnchecked; }

    /// The row in the list. Without one: -1 when a Collapse took it away; the row that its parent had when it
    /// came, when it came under a closed group. So it does not tell whether there is a row: HasRow does.
    int GetRow() const;
    bool HasRow() const { return m_block != nullptr; }
    /// The row of the last item that is shown at or under this one.
    int GetLastVisibleRow() const;

    ComboTreeItem* GetParent() const { return m_pParent; } ///< null for the root and for a removed item
    ComboTreeItem* GetFirstChild() const { return m_firstChild; }
    ComboTreeItem* GetNextSibling() const { return m_nextSibling; }
    bool HasChildren() const { return m_firstChild != nullptr; }
    /// The item after this one among those that are shown, or null.
    ComboTreeItem* GetNext() const;
    /// The item after this one in the whole tree under `top`, or null. The order is that of the rows.
    ComboTreeItem* GetNextUnder(const ComboTreeItem& top) const;

    /// Column 0 is the label. A column without a text of its own is empty.
    const std::string& GetLabel(int column = 0) const;
    bool HasLabel(int column) const;

private:
    friend class ComboTree;
    friend class ComboRows;

    struct ByLabel {
        using is_transparent = void;
        bool operator()(const ComboTreeItem* left, const ComboTreeItem* right) const;
        bool operator()(const ComboTreeItem* item, std::string_view label) const;
        bool operator()(std::string_view label, const ComboTreeItem* item) const;
    };
    using LabelIndex = std::set<ComboTreeItem*, ByLabel>;

    bool m_bIsValue = false;
    bool m_isSelected = false; // a value's own check
    bool m_bExpanded = false;
    long m_Id = -1;
    CVariantValue m_Value;
    int m_nLevel = 0;
    int m_nRow = -1; // while it has no row
    int m_nChecked = 0;
    int m_nUnchecked = 0;
    std::string m_strLabel;
    std::unique_ptr<std::map<int, std::string>> m_furtherLabels; // hardly any item has one

    ComboTreeItem* m_pParent = nullptr;
    ComboTreeItem* m_firstChild = nullptr;
    ComboTreeItem* m_lastChild = nullptr;
    ComboTreeItem* m_previousSibling = nullptr;
    ComboTreeItem* m_nextSibling = nullptr;
    ComboRows::Block* m_block = nullptr; // where its row is kept
    std::uint64_t m_order = 0;           // counts on with every item of the tree: orders siblings
    std::unique_ptr<LabelIndex> m_index; // the children by label, from the first search on
};

} // namespace korvel
