#include "korvel/grid/child_list.h"

#include "korvel/grid/child_block.h"
#include "korvel/grid/tree_item.h"

#include <algorithm>

namespace korvel {

using internal::ChildBlock;
using internal::FamilyTally;

void ChildList::Iterator::Enter(const ChildBlock* run) {
    m_run = run;
    m_item = run ? run->items.data() : nullptr;
    m_end = run ? m_item + run->items.size() : nullptr;
}

void ChildList::Iterator::EnterNextRun() {
    Enter(m_run->NextRun());
}

ChildList::ChildList() = default;
ChildList::~ChildList() = default;
ChildList::ChildList(ChildList&& other) noexcept = default;
ChildList& ChildList::operator=(ChildList&& other) noexcept = default;

int ChildList::size() const {
    return m_top ? m_top->size : 0;
}

ChildList::Iterator ChildList::begin() const {
    return Iterator(FirstRun());
}

const ChildBlock* ChildList::FirstRun() const {
    return m_top ? &m_top->FirstRun() : nullptr;
}

grid::CTreeItem* ChildList::front() const {
    return m_top->FirstRun().items.front();
}

grid::CTreeItem* ChildList::back() const {
    return m_top->LastRun().items.back();
}

grid::CTreeItem* ChildList::operator[](int position) const {
    const ChildBlock* block = m_top.get();
    while (!block->IsRun()) {
        auto part = block->parts.begin();
        for (; position >= (*part)->size; ++part)
            position -= (*part)->size;
        block = part->get();
    }
    return block->items[static_cast<std::size_t>(position)];
}

ChildList::Iterator ChildList::After(const grid::CTreeItem& child) {
    Iterator after(child.m_run);
    after.m_item = std::find(after.m_item, after.m_end, &child);
    return ++after;
}

std::span<grid::CTreeItem* const> ChildList::TakeRun(Iterator& next) {
    const bool hasFamilies = next.m_run->tally.families > 0;
    const std::span<grid::CTreeItem* const> run(next.m_item, hasFamilies ? next.m_item + 1 : next.m_end);
    next.m_item += run.size() - 1;
    ++next;
    return run;
}

const FamilyTally& ChildList::GetTally() const {
    static const FamilyTally none;
    return m_top ? m_top->tally : none;
}

int ChildList::RowsBefore(const grid::CTreeItem& child) const {
    const ChildBlock* block = child.m_run;
    const auto place = std::find(block->items.begin(), block->items.end(), &child);
    int rows = 0;
    if (block->tally.rows == block->size) // one each
        rows = static_cast<int>(place - block->items.begin());
    else
        for (auto sibling = block->items.begin(); sibling != place; ++sibling)
            rows += (*sibling)->rows();
    for (; block->above; block = block->above)
        for (auto part = block->above->parts.begin(); part->get() != block; ++part)
            rows += (*part)->tally.rows;
    return rows;
}

void ChildList::Insert(int position, grid::CTreeItem* child) {
    if (!m_top) {
        auto only = std::make_unique<ChildBlock>();
        only->items.reserve(1);
        m_top = std::move(only);
    }
    ChildBlock* block = m_top.get();
    int place = position;
    while (!block->IsRun()) {
        if (place == block->size) { // the usual case, without a look at each part
            block = block->parts.back().get();
            place = block->size;
            continue;
        }
        auto part = block->parts.begin();
        for (; place > (*part)->size; ++part)
            place -= (*part)->size;
        block = part->get();
    }
    if (block->IsFull())
        block = MakeRoom(*block, place, position);
    block->items.insert(block->items.begin() + place, child);
    child->m_run = block;
    block->Count(1, child->GetTally());
}

// The run that takes a child instead of a full one, at `place` in it. Families that grow at one of their
// ends fill whole runs.
ChildBlock* ChildList::MakeRoom(ChildBlock& full, int& place, int position) {
    if (position > 0 && position < size()) {
        Split(full);
        if (place <= full.size)
            return &full;
        place -= full.size;
        return full.above->parts[full.above->PlaceOf(full) + 1].get();
    }
    MakeRoomAbove(full);
    auto added = ChildBlock::MakeRun();
    ChildBlock* run = added.get();
    full.above->Adopt(position == 0 ? 0 : full.above->parts.size(), std::move(added));
    place = 0;
    return run;
}

void ChildList::MakeRoomAbove(ChildBlock& block) {
    if (!block.above) {
        auto top = ChildBlock::MakeAbove();
        top->size = block.size;
        top->tally = block.tally;
        top->Adopt(0, std::move(m_top));
        m_top = std::move(top);
    } else if (block.above->IsFull()) {
        Split(*block.above);
    }
}

void ChildList::Split(ChildBlock& block) {
    MakeRoomAbove(block);
    auto half = block.IsRun() ? ChildBlock::MakeRun() : ChildBlock::MakeAbove();
    block.GiveHalf(*half);
    block.above->Adopt(block.above->PlaceOf(block) + 1, std::move(half));
}

void ChildList::Erase(grid::CTreeItem* child) {
    ChildBlock* run = child->m_run;
    run->items.erase(std::find(run->items.begin(), run->items.end(), child));
    child->m_run = nullptr;
    run->Count(-1, FamilyTally() - child->GetTally());
    if (run->items.empty())
        Drop(run);
}

grid::CTreeItem* ChildList::PopBack() {
    ChildBlock& run = m_top->LastRun();
    grid::CTreeItem* child = run.items.back();
    run.items.pop_back();
    if (run.items.empty())
        Drop(&run);
    return child;
}

// Removes an empty block, and those above that it leaves empty or with nothing to join.
void ChildList::Drop(ChildBlock* block) {
    while (block->above && block->above->parts.size() == 1)
        block = block->above;
    if (!block->above) {
        m_top.reset();
        return;
    }
    auto& parts = block->above->parts;
    parts.erase(parts.begin() + static_cast<std::ptrdiff_t>(block->above->PlaceOf(*block)));
    while (m_top->parts.size() == 1) {
        std::unique_ptr<ChildBlock> only = std::move(m_top->parts.front());
        only->above = nullptr;
        m_top = std::move(only);
    }
}

} // namespace korvel
