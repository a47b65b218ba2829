#include "korvel/grid/node_copy.h"

#include <utility>
#include <vector>

namespace korvel::internal {

using grid::CTreeItem;
using grid::NodePtr;

NodePtr MakeNode(std::unique_ptr<CItemInfo> info) {
    if (!info)
        info = std::make_unique<CItemInfo>();
    NodePtr node(new CTreeItem(info.get()));
    static_cast<void>(info.release());
    return node;
}

NodePtr CopyNode(RowList& list, const LossWatch& rows, const CTreeItem& source) {
    NodePtr copy = MakeNode(std::unique_ptr<CItemInfo>(list.CopyInfo(source.info)));
    if (!rows || !CopyChildren(list, rows, *copy, source))
        return nullptr;
    return copy;
}

bool CopyChildren(RowList& list, const LossWatch& rows, CTreeItem& target, const CTreeItem& source) {
    std::vector<std::pair<CTreeItem*, const CTreeItem*>> open{{&target, &source}};
    while (!open.empty()) {
        const auto [parent, original] = open.back();
        open.pop_back();
        const std::vector<CTreeItem*> children(original->children().begin(),
                                               original->children().end()); // the host may add some
        for (const CTreeItem* child : children) {
            NodePtr copy = MakeNode(std::unique_ptr<CItemInfo>(list.CopyInfo(child->info)));
            if (!rows)
                return false;
            parent->InsertChild(-1, copy.get());
            CTreeItem* added = copy.release();
            if (!child->children().empty())
                open.emplace_back(added, child);
        }
    }
    return true;
}

} // namespace korvel::internal
