#pragma once

#include "korvel/grid/tree_grid_list.h"

#include <functional>

namespace korvel::internal {

class TreeRows;

/// Has the list toggle the mark of a row, and with it those of all selected rows when it is one of them. The
/// nodes have the new marks before a handler hears of them, and those that are left afterwards, also when a
/// handler refuses one, moves or removes rows, or throws.
void ToggleChecks(TreeGridList& list, const TreeRows& tree, int row, const std::function<void()>& toggle);

} // namespace korvel::internal
