#pragma once

#include "korvel/grid/tree_item.h"

#include <span>
#include <vector>

namespace korvel::internal {

/// Nodes of one depth whose rows come one below the other, good until the tree changes. The depth stands
/// beside them, so that none of them has to be fetched from memory.
struct NodeRun {
    std::span<grid::CTreeItem* const> nodes;
    int indent = 0;
};
/// No run of them is empty.
using NodeRuns = std::vector<NodeRun>;

std::size_t CountOf(const NodeRuns& runs);
/// Cuts nodes of several depths where the depth changes.
NodeRuns RunsOf(std::span<grid::CTreeItem* const> nodes);

} // namespace korvel::internal
