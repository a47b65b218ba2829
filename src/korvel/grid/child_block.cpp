#include "korvel/grid/child_block.h"

#include "korvel/grid/tree_item.h"

#include <algorithm>
#include <iterator>

namespace korvel::internal {

namespace {

// Large enough that a family of a million has few runs, small enough that a walk within one is cheap.
constexpr std::size_t RunCapacity = 64;
constexpr std::size_t PartCapacity = 16;

} // namespace

std::unique_ptr<ChildBlock> ChildBlock::MakeRun() {
    auto run = std::make_unique<ChildBlock>();
    run->items.reserve(RunCapacity);
    return run;
}

std::unique_ptr<ChildBlock> ChildBlock::MakeAbove() {
    auto block = std::make_unique<ChildBlock>();
    block->parts.reserve(PartCapacity);
    return block;
}

bool ChildBlock::IsFull() const {
    return IsRun() ? items.size() >= RunCapacity : parts.size() >= PartCapacity;
}

std::size_t ChildBlock::PlaceOf(const ChildBlock& part) const {
    std::size_t place = 0;
    while (parts[place].get() != &part)
        ++place;
    return place;
}

const ChildBlock& ChildBlock::FirstRun() const {
    const ChildBlock* block = this;
    while (!block->IsRun())
        block = block->parts.front().get();
    return *block;
}

ChildBlock& ChildBlock::LastRun() {
    ChildBlock* block = this;
    while (!block->IsRun())
        block = block->parts.back().get();
    return *block;
}

const ChildBlock* ChildBlock::NextRun() const {
    const ChildBlock* block = this;
    while (block->above && block->above->parts.back().get() == block)
        block = block->above;
    if (!block->above)
        return nullptr;
    return &block->above->parts[block->above->PlaceOf(*block) + 1]->FirstRun();
}

void ChildBlock::Count(int children, const FamilyTally& change) {
    for (ChildBlock* block = this; block; block = block->above) {
        block->size += children;
        block->tally += change;
    }
}

void ChildBlock::Adopt(std::size_t place, std::unique_ptr<ChildBlock> part) {
    part->above = this;
    parts.insert(parts.begin() + static_cast<std::ptrdiff_t>(place), std::move(part));
}

void ChildBlock::GiveHalf(ChildBlock& half) {
    if (IsRun()) {
        const auto middle = items.begin() + static_cast<std::ptrdiff_t>(items.size() / 2);
        half.items.assign(middle, items.end());
        items.erase(middle, items.end());
        half.size = static_cast<int>(half.items.size());
        for (grid::CTreeItem* moved : half.items) {
            moved->m_run = &half;
            half.tally += moved->GetTally();
        }
    } else {
        const auto middle = parts.begin() + static_cast<std::ptrdiff_t>(parts.size() / 2);
        std::move(middle, parts.end(), std::back_inserter(half.parts));
        parts.erase(middle, parts.end());
        for (const auto& moved : half.parts) {
            moved->above = &half;
            half.size += moved->size;
            half.tally += moved->tally;
        }
    }
    size -= half.size;
    tally = tally - half.tally;
}

} // namespace korvel::internal
