#include "korvel/grid/child_list.h"

#include "korvel/grid/tree_item.h"

#include <algorithm>

namespace korvel {

namespace {

// Large enough that a family of a million has few blocks, small enough that a walk within one is cheap.
constexpr std::size_t BlockCapacity = 64;

} // namespace

ChildList::Iterator& ChildList::Iterator::operator++() {
    if (++m_item == m_list->m_blocks[m_block]->items.size()) {
        ++m_block;
        m_item = 0;
    }
    return *this;
}

ChildList::Iterator ChildList::Iterator::operator++(int) {
    const Iterator former = *this;
    ++*this;
    return former;
}

void ChildList::MakeSums() const {
    if (m_sumsValid)
        return;
    const int count = static_cast<int>(m_blocks.size());
    m_itemSums.Rebuild(
        count, [&](int block) { return static_cast<int>(m_blocks[block]->items.size()); });
    m_rowSums.Rebuild(count, [&](int block) { return m_blocks[block]->tally.rows; });
    m_sumsValid = true;
}

grid::CTreeItem* ChildList::operator[](int position) const {
    MakeSums();
    const auto place = m_itemSums.Find(position);
    return m_blocks[place.entry]->items[place.offset];
}

int ChildList::RowsBefore(const grid::CTreeItem& child) const {
    const ChildBlock& block = *child.m_block;
    int rows = 0;
    if (block.number > 0) {
        MakeSums();
        rows = m_rowSums.Before(static_cast<int>(block.number));
    }
    const auto place = std::find(block.items.begin(), block.items.end(), &child);
    const bool oneRowEach = block.tally.rows == static_cast<int>(block.items.size());
    if (oneRowEach)
        return rows + static_cast<int>(place - block.items.begin());
    for (auto sibling = block.items.begin(); sibling != place; ++sibling)
        rows += (*sibling)->rows();
    return rows;
}

void ChildList::Insert(int position, grid::CTreeItem* child) {
    ChildBlock* block = &BlockForInsert(position);
    if (block->items.size() == BlockCapacity) {
        Split(*block);
        if (const int half = static_cast<int>(block->items.size()); position > half) {
            position -= half;
            block = m_blocks[block->number + 1].get();
        }
    }
    block->items.insert(block->items.begin() + position, child);
    child->m_block = block;
    ++m_size;
    if (m_sumsValid)
        m_itemSums.Add(static_cast<int>(block->number), 1);
    Adjust(*block, child->GetTally());
}

ChildBlock& ChildList::BlockForInsert(int& position) {
    if (position == m_size) {
        if (m_blocks.empty() || m_blocks.back()->items.size() == BlockCapacity)
            AddBlock(m_blocks.size());
        position = static_cast<int>(m_blocks.back()->items.size());
        return *m_blocks.back();
    }
    MakeSums();
    const auto place = m_itemSums.Find(position);
    position = place.offset;
    return *m_blocks[place.entry];
}

void ChildList::Erase(grid::CTreeItem* child) {
    ChildBlock& block = *child->m_block;
    block.items.erase(std::find(block.items.begin(), block.items.end(), child));
    child->m_block = nullptr;
    --m_size;
    if (m_sumsValid)
        m_itemSums.Add(static_cast<int>(block.number), -1);
    Adjust(block, FamilyTally() - child->GetTally());
    if (block.items.empty())
        RemoveBlock(block.number);
}

void ChildList::Adjust(ChildBlock& block, const FamilyTally& change) {
    block.tally += change;
    m_tally += change;
    if (m_sumsValid)
        m_rowSums.Add(static_cast<int>(block.number), change.rows);
}

ChildBlock& ChildList::AddBlock(std::size_t number) {
    const bool isLast = number == m_blocks.size();
    m_blocks.insert(m_blocks.begin() + static_cast<std::ptrdiff_t>(number), std::make_unique<ChildBlock>());
    if (isLast && m_sumsValid) { // a family that grows at its end keeps its sums
        m_blocks.back()->number = number;
        m_itemSums.Append();
        m_rowSums.Append();
    } else {
        Renumber(number);
    }
    return *m_blocks[number];
}

void ChildList::Split(ChildBlock& block) {
    ChildBlock& behind = AddBlock(block.number + 1);
    const auto half = block.items.begin() + BlockCapacity / 2;
    behind.items.assign(half, block.items.end());
    block.items.erase(half, block.items.end());
    for (grid::CTreeItem* moved : behind.items) {
        moved->m_block = &behind;
        behind.tally += moved->GetTally();
    }
    block.tally = block.tally - behind.tally;
    m_sumsValid = false;
}

void ChildList::RemoveBlock(std::size_t number) {
    m_blocks.erase(m_blocks.begin() + static_cast<std::ptrdiff_t>(number));
    Renumber(number);
}

void ChildList::Renumber(std::size_t from) {
    for (std::size_t number = from; number < m_blocks.size(); ++number)
        m_blocks[number]->number = number;
    m_sumsValid = false;
}

} // namespace korvel
