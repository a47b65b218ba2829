#include "korvel/grid/node_runs.h"

#include <algorithm>

namespace korvel::internal {

std::size_t CountOf(const NodeRuns& runs) {
    std::size_t count = 0;
    for (const NodeRun run : runs)
        count += run.size();
    return count;
}

NodeRuns RunsOf(NodeRun nodes) {
    NodeRuns runs;
    while (!nodes.empty()) {
        const auto isElsewhere = [&](const grid::CTreeItem* node) {
            return node->indent() != nodes.front()->indent();
        };
        const auto end = std::find_if(nodes.begin(), nodes.end(), isElsewhere);
        runs.emplace_back(nodes.begin(), end);
        nodes = NodeRun(end, nodes.end());
    }
    return runs;
}

} // namespace korvel::internal
