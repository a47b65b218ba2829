#include "korvel/grid/node_copy.h"

#include <utility>
#include <vector>

namespace korvel::internal {

using grid::CTreeItem;
using grid::NodePtr;

namespace {

NodePtr MakeNode(CItemInfo* info) {
    std::unique_ptr<CItemInfo> content(info ? info : new CItemInfo);
    NodePtr node(new CTreeItem(content.get()));
    static_cast<void>(content.release());
    return node;
}

} // namespace

NodePtr CopyNode(RowList& list, const LossWatch& rows, const CTreeItem& source) {
    NodePtr copy = MakeNode(list.CopyInfo(source.info));
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
            NodePtr copy = MakeNode(list.CopyInfo(child->info));
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
