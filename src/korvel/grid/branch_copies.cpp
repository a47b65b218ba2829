#include "korvel/grid/branch_copies.h"

#include "korvel/grid/tree_rows.h"
#include "korvel/grid/tree_walk.h"
#include "korvel/platform/first_failure.h"

#include <utility>
#include <vector>

namespace korvel::internal {

grid::NodePtr BranchCopies::CopyInfoOf(const CTreeItem& source) {
    return TreeRows::MakeNode(std::unique_ptr<CItemInfo>(m_list.CopyInfo(source.info)));
}

bool BranchCopies::CopyChildren(CTreeItem& target, const CTreeItem& source) {
    const LossWatch rows = m_tree.Watch();
    std::vector<std::pair<CTreeItem*, const CTreeItem*>> open{{&target, &source}};
    while (!open.empty()) {
        const auto [parent, original] = open.back();
        open.pop_back();
        const std::vector<CTreeItem*> children(original->children().begin(),
                                               original->children().end()); // the host may add some
        for (const CTreeItem* child : children) {
            grid::NodePtr copy = CopyInfoOf(*child);
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

grid::CTreeItem* BranchCopies::Link(CTreeItem* target, const CTreeItem* source) {
    if (!target || !source || IsWithin(*source, target))
        return nullptr;
    const LossWatch rows = m_tree.Watch();
    grid::NodePtr copy = CopyInfoOf(*source);
    if (!rows || !CopyChildren(*copy, *source))
        return nullptr;
    return m_tree.Attach(target, std::move(copy), -1);
}

bool BranchCopies::CopyUnder(CTreeItem* target, const CTreeItem* source) {
    const CTreeItem* copy = Link(target, source);
    if (copy)
        m_tree.Show(copy);
    return copy;
}

void BranchCopies::MoveUnder(CTreeItem* target, CTreeItem* node) {
    const NodeWatch moved = m_tree.Watch(node);
    const CTreeItem* copy = Link(target, node);
    if (!copy)
        return;
    const NodeWatch arrived = m_tree.Watch(copy);
    FirstFailure failure;
    failure.Try([&] { m_tree.Show(copy); });
    if (moved && arrived) // who removes the copy keeps the node
        failure.Try([&] { m_tree.Remove(node); });
    failure.Rethrow();
}

void BranchCopies::CopyBelow(CTreeItem* target, const CTreeItem* source) {
    if (!target || !source || source->children().empty() || IsWithin(*source, target))
        return;
    const LossWatch rows = m_tree.Watch();
    CTreeItem copies(nullptr);
    if (!CopyChildren(copies, *source))
        return;
    m_tree.Collapse(target);
    if (rows)
        m_tree.AttachChildren(*target, copies);
}

} // namespace korvel::internal
