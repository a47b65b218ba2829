#include "korvel/editors/combo_rows.h"

#include "korvel/editors/combo_tree_item.h"

#include <algorithm>

namespace korvel::internal {

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
    if (m_blocks.empty()) {
        Replace(0, items);
        return;
    }
    const PrefixSums::Place place = PlaceOf(row);
    ComboRowBlock& block = *m_blocks[place.entry];
    const auto position = block.items.begin() + place.offset;
    if (block.items.size() + items.size() <= ComboRowBlock::LargestSize) {
        block.items.insert(position, items.begin(), items.end());
        for (ComboTreeItem* item : items)
            item->m_block = &block;
        m_index.Add(place.entry, static_cast<int>(items.size()));
        m_size += static_cast<int>(items.size());
        return;
    }
    std::vector<ComboTreeItem*> all;
    all.reserve(block.items.size() + items.size());
    all.assign(block.items.begin(), position);
    all.insert(all.end(), items.begin(), items.end());
    all.insert(all.end(), position, block.items.end());
    Replace(place.entry, all);
}

PrefixSums::Place ComboRows::PlaceOf(int row) const {
    if (row < m_size)
        return m_index.Find(row);
    return {static_cast<int>(m_blocks.size()) - 1, static_cast<int>(m_blocks.back()->items.size())};
}

// As many blocks of one size as these items need.
ComboRows::Blocks ComboRows::MakeBlocks(std::span<ComboTreeItem* const> items) {
    const std::size_t count = (items.size() + ComboRowBlock::LargestSize - 1) / ComboRowBlock::LargestSize;
    Blocks blocks;
    blocks.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t begin = items.size() * i / count;
        const std::size_t end = items.size() * (i + 1) / count;
        blocks.push_back(std::make_unique<ComboRowBlock>());
        blocks.back()->items.assign(items.begin() + static_cast<std::ptrdiff_t>(begin),
                                    items.begin() + static_cast<std::ptrdiff_t>(end));
    }
    return blocks;
}

// Puts these items in the place of one block, if there is one. What can fail comes first.
void ComboRows::Replace(int block, std::span<ComboTreeItem* const> items) {
    Blocks blocks = MakeBlocks(items);
    m_blocks.reserve(m_blocks.size() + blocks.size());
    m_index.Reserve(static_cast<int>(m_blocks.size() + blocks.size()));
    auto place = m_blocks.begin() + block;
    m_size += static_cast<int>(items.size());
    if (place != m_blocks.end()) {
        m_size -= static_cast<int>((*place)->items.size());
        place = m_blocks.erase(place);
    }
    for (const auto& made : blocks)
        for (ComboTreeItem* item : made->items)
            item->m_block = made.get();
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
    if (left.items.size() + right.items.size() > ComboRowBlock::LargestSize / 2)
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
