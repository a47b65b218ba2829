#include "korvel/grid/rows_watch.h"
#include "korvel/grid/super_grid_ctrl.h"
#include "korvel/grid/tree_walk.h"

#include <utility>

namespace korvel {

namespace {

// Where a new sibling goes; -1: behind the last.
int PlaceOf(const int* position) {
    return position ? *position : -1;
}

} // namespace

CSuperGridCtrl::CTreeItem* CSuperGridCtrl::AddRootNode(CItemInfo* info, const int* position) {
    CTreeItem* node = LinkNode(nullptr, info, PlaceOf(position));
    ShowNode(node);
    return node;
}

CSuperGridCtrl::CTreeItem* CSuperGridCtrl::AddChildNode(CTreeItem* parent, CItemInfo* info, int,
                                                        const int* position) {
    if (!parent)
        return nullptr;
    CTreeItem* node = LinkNode(parent, info, PlaceOf(position));
    ShowNode(node);
    return node;
}

CSuperGridCtrl::CTreeItem* CSuperGridCtrl::LinkNode(CTreeItem* parent, CItemInfo* info, int position) {
    auto* node = new CTreeItem(info ? info : new CItemInfo);
    (parent ? parent : m_forest.get())->InsertChild(position, node);
    return node;
}

int CSuperGridCtrl::RemoveNode(CTreeItem* node) {
    return node && node->parent() && Unlink(node);
}

int CSuperGridCtrl::RemoveRootNode(CTreeItem* node) {
    return node && !node->parent() && Unlink(node);
}

CSuperGridCtrl::NodePtr CSuperGridCtrl::Unlink(CTreeItem* node) {
    if (node->Top() != m_forest.get() || node == m_forest.get())
        return nullptr;
    ++m_removals;
    StopDrag();
    ForgetRowsOf(*node);
    CTreeItem* parent = node->parent();
    (parent ? parent : m_forest.get())->RemoveChild(node);
    NodePtr unlinked(node);
    OnNodeUnlinked(*node, parent);
    return unlinked;
}

CSuperGridCtrl::NodePtr CSuperGridCtrl::TakeNode(CTreeItem* node) {
    CTreeItem* parent = node->parent();
    const internal::RowsWatch rows = WatchRows();
    if (const int row = RowOfNode(node); row >= 0 && NodeAtRow(row) == node)
        DeleteRows(row, row + node->rows());
    if (!rows)
        return nullptr; // who heard of the rows has removed nodes; this one may be gone
    NodePtr taken = Unlink(node);
    RenumberRows();
    if (parent && parent->children().empty())
        RefreshRowTexts(parent); // its sign goes
    return taken;
}

void CSuperGridCtrl::DeleteAllNodes() {
    ++m_removals;
    StopDrag();
    const RedrawPause pause(*this);
    DeleteAllItems();
    const std::unique_ptr<CTreeItem> former = std::exchange(m_forest, CTreeItem::MakeForest());
}

bool CSuperGridCtrl::IsNodeInSubtree(const CTreeItem* root, const CTreeItem* candidate) {
    while (root && candidate && candidate != root)
        candidate = candidate->parent();
    return root && candidate;
}

int CSuperGridCtrl::CopyNodeUnder(CTreeItem* target, const CTreeItem* src) {
    if (!target || !src || IsNodeInSubtree(src, target))
        return 0;
    CTreeItem* copy = LinkNode(target, CopyItemInfo(src->info), -1);
    ShowNode(copy);
    CopySubtree(copy, src);
    return 1;
}

void CSuperGridCtrl::CopySubtree(CTreeItem* dest, const CTreeItem* src) {
    if (!dest || !src || src->children().empty() || IsNodeInSubtree(src, dest))
        return;
    CollapseNode(dest);
    dest->SetCollapsed(true); // copies get no rows, also below a node that lost its children while expanded
    std::vector<std::pair<CTreeItem*, const CTreeItem*>> open{{dest, src}};
    while (!open.empty()) {
        const auto [parent, original] = open.back();
        open.pop_back();
        for (const CTreeItem* child : original->children()) {
            auto* copy = new CTreeItem(CopyItemInfo(child->info));
            if (!copy->info)
                copy->info = new CItemInfo;
            parent->InsertChild(-1, copy);
            if (!child->children().empty())
                open.emplace_back(copy, child);
        }
    }
    RefreshRowTexts(dest);
}

} // namespace korvel
