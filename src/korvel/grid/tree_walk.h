#pragma once

#include "korvel/grid/tree_item.h"

#include <vector>

namespace korvel::internal {

/// The nodes below one node, parents before their children and siblings in order. The tree must not change
/// meanwhile. Keeps its own stack: trees may be deeper than the program's.
class TreeWalk {
public:
    TreeWalk() = default;
    explicit TreeWalk(const ChildList& family) { Enter(family); }

    /// The next node, null after the last.
    grid::CTreeItem* Next() {
        while (!m_open.empty() && m_open.back().next == m_open.back().end)
            m_open.pop_back();
        return m_open.empty() ? nullptr : *m_open.back().next++;
    }
    /// Goes on with the children of the node that came last.
    void Enter(const ChildList& family) {
        if (!family.empty())
            m_open.push_back({family.begin(), family.end()});
    }

private:
    struct Family {
        ChildList::Iterator next;
        ChildList::Iterator end;
    };
    std::vector<Family> m_open;
};

} // namespace korvel::internal
