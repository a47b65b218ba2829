#include "korvel/grid/tree_item.h"

#include "korvel/grid/child_block.h"

#include <vector>

namespace korvel::grid {

using internal::ChildBlock;
using internal::FamilyTally;

CTreeItem::CTreeItem(CItemInfo* content) : info(content) {}

// Without recursion and without memory: a chain of nodes may be deeper than the stack.
CTreeItem::~CTreeItem() {
    CTreeItem* node = this;
    while (true) {
        if (!node->m_children.empty()) {
            node = node->m_children.PopBack();
            continue;
        }
        if (node == this)
            return;
        CTreeItem* parent = node->m_parent;
        delete node->info;
        delete node;
        node = parent;
    }
}

std::unique_ptr<CTreeItem> CTreeItem::MakeForest() {
    auto forest = std::make_unique<CTreeItem>(nullptr);
    forest->m_indent = 0;
    forest->m_collapsed = false;
    return forest;
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
        before += node->m_parent->m_children.RowsBefore(*node) + 1;
    }
    return node->IsForest() ? before : -1;
}

int CTreeItem::rows() const {
    return m_collapsed ? 1 : 1 + m_children.GetTally().rows;
}

bool CTreeItem::IsLastChild() const {
    return !m_parent || m_parent->m_children.back() == this;
}

const CTreeItem* CTreeItem::Top() const {
    const CTreeItem* node = this;
    while (node->m_parent)
        node = node->m_parent;
    return node;
}

FamilyTally CTreeItem::GetTally() const {
    return {rows(), !m_collapsed, !m_children.empty()};
}

void CTreeItem::CountAnew(FamilyTally former) {
    for (CTreeItem* node = this; node->m_parent; node = node->m_parent) {
        const FamilyTally change = node->GetTally() - former;
        if (change == FamilyTally())
            return;
        former = node->m_parent->GetTally();
        node->m_run->Count(0, change);
    }
}

void CTreeItem::InsertChild(int position, CTreeItem* child) {
    const FamilyTally former = GetTally();
    if (position < 0 || position > m_children.size())
        position = m_children.size();
    m_children.Insert(position, child);
    child->MoveUnder(this);
    CountAnew(former);
}

void CTreeItem::MoveUnder(CTreeItem* newParent) {
    m_parent = newParent;
    m_indent = newParent->m_indent + 1;
    if (m_children.empty())
        return;
    std::vector<CTreeItem*> open{this};
    while (!open.empty()) {
        const CTreeItem* node = open.back();
        open.pop_back();
        for (CTreeItem* child : node->m_children) {
            child->m_indent = node->m_indent + 1;
            if (!child->m_children.empty())
                open.push_back(child);
        }
    }
}

void CTreeItem::RemoveChild(CTreeItem* child) {
    const FamilyTally former = GetTally();
    m_children.Erase(child);
    child->m_parent = nullptr;
    child->m_indent = -1;
    CountAnew(former);
}

void CTreeItem::SetCollapsed(bool collapse) {
    const FamilyTally former = GetTally();
    m_collapsed = collapse;
    CountAnew(former);
}

void CTreeItem::CollapseBelow() {
    std::vector<CTreeItem*> open{this};
    while (!open.empty()) {
        CTreeItem* node = open.back();
        open.pop_back();
        for (const ChildBlock* run = node->m_children.FirstRun(); run; run = run->NextRun()) {
            if (run->tally.open == 0)
                continue;
            for (CTreeItem* child : run->items) {
                if (child->m_collapsed)
                    continue;
                open.push_back(child);
                child->SetCollapsed(true);
            }
        }
    }
}

} // namespace korvel::grid
