#pragma once

#include "korvel/grid/tree_item.h"

namespace korvel::internal {

/// Says whether one node is still in its tree, whatever becomes of others. Lives on the stack: of several,
/// the one made last dies first.
class NodeWatch {
public:
    /// `last` is where the tree holds the watch begun last; a null node is in no tree.
    NodeWatch(NodeWatch*& last, const grid::CTreeItem* node) : m_last(last), m_outer(last), m_node(node) {
        last = this;
    }
    ~NodeWatch() { m_last = m_outer; }
    NodeWatch(const NodeWatch&) = delete;
    NodeWatch& operator=(const NodeWatch&) = delete;

    explicit operator bool() const { return m_node; }

    /// To be called when nodes have left the tree below `forest`, before they are deleted.
    static void UpdateAll(NodeWatch* last, const grid::CTreeItem& forest) {
        for (; last; last = last->m_outer)
            if (last->m_node && last->m_node->Top() != &forest)
                last->m_node = nullptr;
    }

private:
    NodeWatch*& m_last;
    NodeWatch* const m_outer;
    const grid::CTreeItem* m_node;
};

} // namespace korvel::internal
