#include "korvel/grid/tree_item.h"

#include <vector>

namespace korvel::grid {

CTreeItem::CTreeItem(CItemInfo* content) : info(content) {}

// Not by recursion: a chain of nodes may be deeper than the stack.
CTreeItem::~CTreeItem() {
    std::vector<std::unique_ptr<ChildList>> open;
    open.push_back(std::move(m_children));
    while (!open.empty()) {
        const std::unique_ptr<ChildList> family = std::move(open.back());
        open.pop_back();
        if (!family)
            continue;
        for (CTreeItem* child : *family) {
            if (child->m_children)
                open.push_back(std::move(child->m_children));
            delete child->info;
            delete child;
        }
    }
}

std::unique_ptr<CTreeItem> CTreeItem::MakeForest() {
    auto forest = std::make_unique<CTreeItem>(nullptr);
    forest->m_indent = 0;
    forest->m_collapsed = false;
    return forest;
}

const ChildList& CTreeItem::children() const {
    static const ChildList none;
    return m_children ? *m_children : none;
}

CTreeItem* CTreeItem::parent() const {
    return m_parent && !m_parent->IsForest() ? m_parent : nullptr;
}

int CTreeItem::row() const {
    int before = -1; // the forest above the roots takes none
    const CTreeItem* node = this;
    for (; node->m_parent; node = node->m_parent) {
        if (node->m_parent->m_collapsed)
            return -1;
        before += node->m_parent->m_children->RowsBefore(*node) + 1;
    }
    return node->IsForest() ? before : -1;
}

bool CTreeItem::IsLastChild() const {
    return !m_parent || m_parent->m_children->back() == this;
}

const CTreeItem* CTreeItem::Top() const {
    const CTreeItem* node = this;
    while (node->m_parent)
        node = node->m_parent;
    return node;
}

FamilyTally CTreeItem::GetTally() const {
    return {rows(), !m_collapsed, m_children ? 1 : 0};
}

void CTreeItem::Report(FamilyTally former) {
    for (CTreeItem* node = this; node->m_parent; node = node->m_parent) {
        const FamilyTally change = node->GetTally() - former;
        if (change == FamilyTally())
            return;
        former = node->m_parent->GetTally();
        node->m_parent->m_children->Adjust(*node->m_block, change);
    }
}

void CTreeItem::InsertChild(int position, CTreeItem* child) {
    const FamilyTally former = GetTally();
    if (!m_children)
        m_children = std::make_unique<ChildList>();
    if (position < 0 || position > m_children->size())
        position = m_children->size();
    child->Settle(this);
    m_children->Insert(position, child);
    Report(former);
}

// A node that is given a place may bring children along; their depth follows.
void CTreeItem::Settle(CTreeItem* newParent) {
    m_parent = newParent;
    m_indent = newParent->m_indent + 1;
    if (!m_children)
        return;
    std::vector<CTreeItem*> open{this};
    while (!open.empty()) {
        const CTreeItem* node = open.back();
        open.pop_back();
        for (CTreeItem* child : node->children()) {
            child->m_indent = node->m_indent + 1;
            open.push_back(child);
        }
    }
}

void CTreeItem::RemoveChild(CTreeItem* child) {
    const FamilyTally former = GetTally();
    m_children->Erase(child);
    if (m_children->empty())
        m_children.reset();
    child->m_parent = nullptr;
    child->m_indent = -1;
    Report(former);
}

void CTreeItem::SetCollapsed(bool collapse) {
    const FamilyTally former = GetTally();
    m_collapsed = collapse;
    Report(former);
}

void CTreeItem::CollapseBelow() {
    std::vector<CTreeItem*> open{this};
    while (!open.empty()) {
        CTreeItem* node = open.back();
        open.pop_back();
        for (const auto& block : node->children().GetBlocks()) {
            if (block->tally.open == 0)
                continue;
            for (CTreeItem* child : block->items) {
                if (child->m_collapsed)
                    continue;
                open.push_back(child);
                child->SetCollapsed(true);
            }
        }
    }
}

} // namespace korvel::grid
