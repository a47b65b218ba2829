#pragma once

#include "korvel/grid/row_list.h"
#include "korvel/window/base/loss_watch.h"

namespace korvel::internal {

/// A node without a place; null makes a blank info.
grid::NodePtr MakeNode(std::unique_ptr<CItemInfo> info);

/// A collapsed copy of a node with all below, whose infos the list copies. Null when nodes of the tree went
/// meanwhile, of which `rows` says.
grid::NodePtr CopyNode(RowList& list, const LossWatch& rows, const grid::CTreeItem& source);

/// The same for all below a node, under a node without a place. False when nodes of the tree went.
bool CopyChildren(RowList& list, const LossWatch& rows, grid::CTreeItem& target,
                  const grid::CTreeItem& source);

} // namespace korvel::internal
