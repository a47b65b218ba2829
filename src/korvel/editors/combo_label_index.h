#pragma once

#include "korvel/editors/combo_tree_item.h"

#include <set>
#include <string_view>

namespace korvel::internal {

/// The children of one item by label; equal labels are in the order in which the children were added.
class ComboLabelIndex {
public:
    void Add(ComboTreeItem& child) { m_children.insert(&child); }
    /// Before its label changes.
    void Remove(ComboTreeItem& child) { m_children.erase(&child); }
    /// The first child with this label, or null.
    ComboTreeItem* Find(std::string_view label) const {
        const auto found = m_children.lower_bound(label);
        return found != m_children.end() && (*found)->m_label == label ? *found : nullptr;
    }

private:
    struct Before {
        using is_transparent = void;
        bool operator()(const ComboTreeItem* left, const ComboTreeItem* right) const {
            const int order = left->m_label.compare(right->m_label);
            return order != 0 ? order < 0 : left->m_order < right->m_order;
        }
        bool operator()(const ComboTreeItem* child, std::string_view label) const {
            return child->m_label < label;
        }
    };

    std::set<ComboTreeItem*, Before> m_children;
};

} // namespace korvel::internal
