#pragma once

#include "korvel/grid/tree_item.h"

#include <span>
#include <vector>

namespace korvel::internal {

/// Nodes whose rows come one below the other, in runs that are good until the tree changes. The nodes of a run
/// are of one depth; no run is empty.
using NodeRun = std::span<grid::CTreeItem* const>;
using NodeRuns = std::vector<NodeRun>;

std::size_t CountOf(const NodeRuns& runs);
/// Cuts nodes of several depths where the depth changes.
NodeRuns RunsOf(NodeRun nodes);

} // namespace korvel::internal
