#include "korvel/grid/row_checks.h"

#include "korvel/grid/tree_rows.h"
#include "korvel/platform/first_failure.h"

#include <vector>

namespace korvel::internal {

namespace {

std::vector<const grid::CTreeItem*> NodesToggledWith(const TreeGridList& list, const TreeRows& tree,
                                                     int row) {
    if (!list.GetItemState(row, LVIS_SELECTED))
        return {tree.NodeAt(row)};
    std::vector<const grid::CTreeItem*> nodes;
    for (int next = -1; (next = list.GetNextItem(next, LVNI_SELECTED)) >= 0;)
        nodes.push_back(tree.NodeAt(next));
    return nodes;
}

void FollowMark(TreeGridList& list, const TreeRows& tree, int row) {
    const grid::CTreeItem* node = tree.NodeAt(row);
    const bool mark = list.GetCheck(row);
    if (!node || (node->info->checked != 0) == mark)
        return;
    node->info->checked = mark;
    list.RedrawItems(row, row);
}

} // namespace

void ToggleChecks(TreeGridList& list, const TreeRows& tree, int row, const std::function<void()>& toggle) {
    const std::vector<const grid::CTreeItem*> nodes = NodesToggledWith(list, tree, row);
    // First the nodes, from which a row that goes and comes in between takes its mark.
    const bool check = !list.GetCheck(row);
    for (const grid::CTreeItem* node : nodes)
        if (node)
            node->info->checked = check;
    const LossWatch rows = tree.Watch();
    FirstFailure failure;
    failure.Try(toggle);
    if (rows)
        for (const grid::CTreeItem* node : nodes)
            FollowMark(list, tree, tree.RowOf(node));
    else // it is not known which of the nodes are left
        for (int left = 0; left < list.GetItemCount(); ++left)
            FollowMark(list, tree, left);
    failure.Rethrow();
}

} // namespace korvel::internal
