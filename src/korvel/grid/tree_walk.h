#pragma once

#include "korvel/grid/node_runs.h"

namespace korvel::internal {

/// Whether a node is another one or lies below it. Null is within nothing.
inline bool IsWithin(const grid::CTreeItem& root, const grid::CTreeItem* node) {
    while (node && node != &root)
        node = node->parent();
    return node != nullptr;
}

/// The nodes below one node, parents before their children and siblings in order. The tree must not change
/// meanwhile. Needs no memory: trees may be deep, and memory may be short.
///
///     TreeWalk walk(group);
///     while (CTreeItem* node = walk.Next())
///         if (!node->collapsed())
///             walk.Enter(*node);
class TreeWalk {
public:
    explicit TreeWalk(const grid::CTreeItem& top) : m_top(top) { Enter(top); }

    /// The next node, null after the last.
    grid::CTreeItem* Next() {
        FindNext();
        return m_next == ChildList::Iterator() ? nullptr : *m_next++;
    }
    /// As many of the next siblings as lie together and have no children, else the next node alone; empty
    /// after the last. So hardly any node is looked at.
    NodeRun NextRun() {
        FindNext();
        if (m_next == ChildList::Iterator())
            return {};
        return {ChildList::TakeRun(m_next), m_family->indent() + 1};
    }
    /// Goes on with the children of the node that came last.
    void Enter(const grid::CTreeItem& node) {
        m_family = &node;
        m_next = node.children().begin();
    }

    /// Calls `visit` for a node and all below it that are shown when it is, parents before their children and
    /// siblings in order.
    template <class Visit>
    static void VisitShown(grid::CTreeItem& top, Visit visit) {
        visit(top);
        if (top.collapsed())
            return;
        TreeWalk walk(top);
        while (grid::CTreeItem* node = walk.Next()) {
            visit(*node);
            if (!node->collapsed())
                walk.Enter(*node);
        }
    }
    /// Calls `visit` for a node and all below it, children before their parents and siblings in order.
    template <class Visit>
    static void VisitUpward(grid::CTreeItem& top, Visit visit) {
        grid::CTreeItem* node = FirstLeaf(&top);
        while (true) {
            visit(*node);
            if (node == &top)
                return;
            const ChildList::Iterator next = ChildList::After(*node);
            node = next == ChildList::Iterator() ? node->parent() : FirstLeaf(*next);
        }
    }

private:
    // Where a family ends, its parent's siblings come.
    void FindNext() {
        while (m_next == ChildList::Iterator() && m_family != &m_top) {
            m_next = ChildList::After(*m_family);
            m_family = Above(*m_family, m_top);
        }
    }
    // Roots have no parent but the unseen top.
    static const grid::CTreeItem* Above(const grid::CTreeItem& node, const grid::CTreeItem& top) {
        const grid::CTreeItem* parent = node.parent();
        return parent ? parent : &top;
    }
    static grid::CTreeItem* FirstLeaf(grid::CTreeItem* node) {
        while (!node->children().empty())
            node = node->children().front();
        return node;
    }

    const grid::CTreeItem& m_top;
    const grid::CTreeItem* m_family = nullptr; // whose children come
    ChildList::Iterator m_next;
};

} // namespace korvel::internal
