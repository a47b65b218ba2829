#include "korvel/editors/combo_rows.h"

#include "korvel/editors/combo_tree_item.h"

#include <algorithm>

namespace korvel::internal {

namespace {

constexpr std::size_t LargestBlock = 256;

} // namespace

ComboTreeItem* ComboRows::At(int row) const {
    if (row < 0 || row >= m_size)
        return nullptr;
    const PrefixSums::Place place = m_index.Find(row);
    return m_blocks[place.entry]->items[place.offset];
}

int ComboRows::RowOf(const ComboTreeItem& item) const {
    const ComboRowBlock& block = *item.m_block;
    // From the end: while a list is built, it is the last row that is asked for.
    const auto found = std::find(block.items.rbegin(), block.items.rend(), &item);
    return m_index.Before(block.index) + static_cast<int>(block.items.rend() - found) - 1;
}

void ComboRows::Insert(int row, std::span<ComboTreeItem* const> items) {
    if (items.empty())
        return;
    const int count = static_cast<int>(items.size());
    const bool appends = row == m_size;
    if (m_blocks.empty()) {
        m_blocks.push_back(std::make_unique<ComboRowBlock>());
        RebuildIndex();
    }
    PrefixSums::Place place =
        appends ? PrefixSums::Place{static_cast<int>(m_blocks.size()) - 1, 0} : m_index.Find(row);
    ComboRowBlock& block = *m_blocks[place.entry];
    if (appends)
        place.offset = static_cast<int>(block.items.size());
    m_size += count;
    const auto position = block.items.begin() + place.offset;
    if (block.items.size() + items.size() <= LargestBlock) {
        block.items.insert(position, items.begin(), items.end());
        for (ComboTreeItem* item : items)
            item->m_block = &block;
        m_index.Add(place.entry, count);
        return;
    }
    std::vector<ComboTreeItem*> all(block.items.begin(), position);
    all.insert(all.end(), items.begin(), items.end());
    all.insert(all.end(), position, block.items.end());
    Replace(place.entry, all);
}

// Puts as many blocks of one size as these items need in the place of one block.
void ComboRows::Replace(int block, std::span<ComboTreeItem* const> items) {
    const std::size_t count = (items.size() + LargestBlock - 1) / LargestBlock;
    std::vector<std::unique_ptr<ComboRowBlock>> blocks;
    for (std::size_t i = 0; i < count; ++i) {
        auto part = std::make_unique<ComboRowBlock>();
        const std::size_t begin = items.size() * i / count;
        const std::size_t end = items.size() * (i + 1) / count;
        part->items.assign(items.begin() + static_cast<std::ptrdiff_t>(begin),
                           items.begin() + static_cast<std::ptrdiff_t>(end));
        for (ComboTreeItem* item : part->items)
            item->m_block = part.get();
        blocks.push_back(std::move(part));
    }
    const auto place = m_blocks.erase(m_blocks.begin() + block);
    m_blocks.insert(place, std::make_move_iterator(blocks.begin()), std::make_move_iterator(blocks.end()));
    RebuildIndex();
}

void ComboRows::Erase(int first, int last) {
    const int touched = first < last ? m_index.Find(first).entry : 0;
    std::size_t emptied = 0;
    for (int left = last - first; left > 0;) {
        const PrefixSums::Place place = m_index.Find(first);
        const int inBlock = static_cast<int>(m_blocks[place.entry]->items.size()) - place.offset;
        const int count = std::min(left, inBlock);
        EraseInBlock(place, count);
        emptied += m_blocks[place.entry]->items.empty();
        left -= count;
    }
    if (emptied > 0) {
        std::erase_if(m_blocks, [](const auto& block) { return block->items.empty(); });
        RebuildIndex();
    }
    JoinSmall(touched - 1);
    JoinSmall(touched);
}

void ComboRows::EraseInBlock(PrefixSums::Place place, int count) {
    std::vector<ComboTreeItem*>& items = m_blocks[place.entry]->items;
    const auto begin = items.begin() + place.offset;
    for (auto item = begin; item != begin + count; ++item) {
        (*item)->m_block = nullptr;
        (*item)->m_row = -1;
    }
    items.erase(begin, begin + count);
    m_index.Add(place.entry, -count);
    m_size -= count;
}

// Many single removals must not leave many blocks that hold next to nothing.
void ComboRows::JoinSmall(int block) {
    if (block < 0 || block + 1 >= static_cast<int>(m_blocks.size()))
        return;
    ComboRowBlock& left = *m_blocks[block];
    ComboRowBlock& right = *m_blocks[block + 1];
    if (left.items.size() + right.items.size() > LargestBlock / 2)
        return;
    for (ComboTreeItem* item : right.items) {
        item->m_block = &left;
        left.items.push_back(item);
    }
    m_blocks.erase(m_blocks.begin() + block + 1);
    RebuildIndex();
}

void ComboRows::RebuildIndex() {
    const int count = static_cast<int>(m_blocks.size());
    for (int i = 0; i < count; ++i) {
        m_blocks[i]->owner = this;
        m_blocks[i]->index = i;
    }
    m_index.Rebuild(count, [&](int block) { return static_cast<int>(m_blocks[block]->items.size()); });
}

} // namespace korvel::internal
