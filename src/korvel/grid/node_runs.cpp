#include "korvel/grid/node_runs.h"

#include <algorithm>

namespace korvel::internal {

std::size_t CountOf(const NodeRuns& runs) {
    std::size_t count = 0;
    for (const NodeRun& run : runs)
        count += run.nodes.size();
    return count;
}

NodeRuns RunsOf(std::span<grid::CTreeItem* const> nodes) {
    NodeRuns runs;
    while (!nodes.empty()) {
        const int indent = nodes.front()->indent();
        const auto isElsewhere = [&](const grid::CTreeItem* node) { return node->indent() != indent; };
        const auto end = std::find_if(nodes.begin(), nodes.end(), isElsewhere);
        runs.push_back({{nodes.begin(), end}, indent});
        nodes = {end, nodes.end()};
    }
    return runs;
}

} // namespace korvel::internal
