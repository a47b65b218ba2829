#include "window/row_blocks.h"

#include <algorithm>
#include <iterator>

namespace korvel {

namespace {

constexpr int BlockCapacity = 512; // 12 KB: what one insertion moves at most
// The number of blocks changes only after that many rows came or went, so that the index is not built
// anew for every row.
constexpr int HalfBlock = BlockCapacity / 2;
constexpr int FewRows = BlockCapacity / 8; // a block that has no more left looks for one to join

} // namespace

RowRecord& RowBlocks::At(int row) {
    const auto place = PlaceOf(row);
    return m_blocks[place.block].rows.At(place.offset);
}

BlockIndex::Place RowBlocks::PlaceOf(int row) const {
    if (m_found.block >= 0) {
        const int offset = row - m_found.start;
        if (offset >= 0 && offset < m_blocks[m_found.block].rows.Size())
            return {m_found.block, offset};
    }
    const auto place = m_index.Find(row);
    m_found = {place.block, row - place.offset};
    return place;
}

void RowBlocks::Insert(int row, int count, const Maker& make) {
    if (count <= 0)
        return;
    if (m_blocks.empty()) {
        m_blocks.emplace_back();
        RebuildIndex();
    }
    auto place = PlaceToInsert(row);
    const bool isAppend = row == m_size;
    const int blockSize = m_blocks[place.block].rows.Size();
    m_size += count;
    if (blockSize + count <= BlockCapacity) {
        InsertIntoBlock(place, count, make);
    } else if (count > HalfBlock || isAppend) {
        InsertBlocks(place, count, make);
    } else {
        const int half = blockSize / 2;
        SplitAt({place.block, half});
        RebuildIndex();
        if (place.offset > half)
            place = {place.block + 1, place.offset - half};
        InsertIntoBlock(place, count, make);
    }
}

BlockIndex::Place RowBlocks::PlaceToInsert(int row) const {
    if (row < m_size)
        return PlaceOf(row);
    return {static_cast<int>(m_blocks.size()) - 1, m_blocks.back().rows.Size()};
}

void RowBlocks::InsertIntoBlock(BlockIndex::Place place, int count, const Maker& make) {
    auto& rows = m_blocks[place.block].rows;
    rows.Insert(place.offset, count);
    for (int index = 0; index < count; ++index) {
        RowRecord& row = rows.At(place.offset + index);
        row = make(index);
        row.selected = false;
    }
    m_index.Add(place.block, count);
}

void RowBlocks::InsertBlocks(BlockIndex::Place place, int count, const Maker& make) {
    std::vector<Block> added;
    added.reserve(static_cast<std::size_t>(count / BlockCapacity + 1));
    for (int index = 0; index < count; ++index) {
        const int offset = index % BlockCapacity;
        if (offset == 0)
            added.emplace_back().rows.Insert(0, std::min(count - index, BlockCapacity));
        RowRecord& row = added.back().rows.At(offset);
        row = make(index);
        row.selected = false;
    }
    const int at = SplitAt(place);
    m_blocks.insert(m_blocks.begin() + at, std::make_move_iterator(added.begin()),
                    std::make_move_iterator(added.end()));
    JoinSmall(at + static_cast<int>(added.size()) - 1);
    JoinSmall(at - 1);
    RebuildIndex();
}

int RowBlocks::SplitAt(BlockIndex::Place place) {
    if (place.offset == 0)
        return place.block;
    Block& block = m_blocks[place.block];
    if (place.offset == block.rows.Size())
        return place.block + 1;
    Block tail;
    tail.selectedCount = CountSelected(block, place.offset, block.rows.Size());
    tail.rows.Take(block.rows, place.offset);
    block.selectedCount -= tail.selectedCount;
    m_blocks.insert(m_blocks.begin() + place.block + 1, std::move(tail));
    return place.block + 1;
}

void RowBlocks::Erase(int first, int last) {
    if (first >= last)
        return;
    const auto end = PlaceOf(last - 1);
    const auto begin = PlaceOf(first); // the block found last: it begins where it did
    m_size -= last - first;
    for (int block = begin.block; block <= end.block; ++block)
        EraseInBlock(block, block == begin.block ? begin.offset : 0,
                     block == end.block ? end.offset + 1 : m_blocks[block].rows.Size());
    if (m_blocks[begin.block].rows.Size() <= FewRows || begin.block != end.block)
        Tidy(begin.block, end.block);
}

void RowBlocks::Tidy(int first, int last) {
    const auto stop = m_blocks.begin() + last + 1;
    const auto kept = std::remove_if(m_blocks.begin() + first, stop,
                                     [](const Block& block) { return block.rows.Size() == 0; });
    const bool dropped = kept != stop;
    m_blocks.erase(kept, stop);
    const bool joinedBehind = JoinSmall(first);
    const bool joinedBefore = JoinSmall(first - 1);
    if (dropped || joinedBehind || joinedBefore)
        RebuildIndex();
}

int RowBlocks::CountSelected(const Block& block, int first, int last) {
    int selected = 0;
    for (int row = first; row < last && selected < block.selectedCount; ++row)
        selected += block.rows.At(row).selected;
    return selected;
}

void RowBlocks::EraseInBlock(int number, int first, int last) {
    Block& block = m_blocks[number];
    const int selected = CountSelected(block, first, last);
    block.selectedCount -= selected;
    m_selectedCount -= selected;
    block.rows.Erase(first, last);
    m_index.Add(number, first - last);
}

void RowBlocks::Select(int row, bool selected) {
    const auto place = PlaceOf(row);
    auto& block = m_blocks[place.block];
    auto& record = block.rows.At(place.offset);
    const int difference = static_cast<int>(selected) - static_cast<int>(record.selected);
    record.selected = selected;
    block.selectedCount += difference;
    m_selectedCount += difference;
}

int RowBlocks::FindSelected(int row) const {
    if (m_selectedCount == 0 || row >= m_size)
        return -1;
    auto place = PlaceOf(std::max(row, 0));
    for (; place.block < static_cast<int>(m_blocks.size()); ++place.block, place.offset = 0) {
        const auto& block = m_blocks[place.block];
        if (block.selectedCount == 0)
            continue;
        for (; place.offset < block.rows.Size(); ++place.offset)
            if (block.rows.At(place.offset).selected)
                return m_index.Start(place.block) + place.offset;
    }
    return -1;
}

bool RowBlocks::JoinSmall(int block) {
    const bool joins = CanJoin(block);
    if (joins)
        Join(block);
    return joins;
}

bool RowBlocks::CanJoin(int block) const {
    return block >= 0 && block + 1 < static_cast<int>(m_blocks.size()) &&
           m_blocks[block].rows.Size() + m_blocks[block + 1].rows.Size() <= HalfBlock;
}

void RowBlocks::Join(int block) {
    auto& target = m_blocks[block];
    auto& source = m_blocks[block + 1];
    target.rows.Take(source.rows, 0);
    target.selectedCount += source.selectedCount;
    m_blocks.erase(m_blocks.begin() + block + 1);
}

void RowBlocks::RebuildIndex() {
    std::vector<int> sizes(m_blocks.size());
    std::transform(m_blocks.begin(), m_blocks.end(), sizes.begin(),
                   [](const Block& block) { return block.rows.Size(); });
    m_index.Rebuild(sizes);
    m_found = {};
}

} // namespace korvel
