#include "korvel/window/list/row_blocks.h"

#include <algorithm>
#include <iterator>
#include <new>

namespace korvel::internal {

namespace {

constexpr int BlockCapacity = 512; // 12 KB: what one insertion moves at most
// The number of blocks changes only after that many rows are inserted or erased, so that the index is not
// built anew for every row.
constexpr int HalfBlock = BlockCapacity / 2;
constexpr int FewRows = BlockCapacity / 8; // a block that has no more left looks for one to join

} // namespace

PrefixSums::Place RowBlocks::FindPlace(int row) const {
    const auto place = m_index.Find(row);
    m_found = {place.entry, row - place.offset};
    return place;
}

void RowBlocks::Insert(int row, int count, const Maker& make) {
    if (count <= 0)
        return;
    if (m_blocks.empty())
        AddBlocks(0, std::vector<Block>(1));
    const auto place = PlaceToInsert(row);
    const int blockSize = m_blocks[place.entry].rows.Size();
    if (blockSize + count <= BlockCapacity) {
        InsertIntoBlock(place, count, make);
    } else if (count > HalfBlock || row == m_size) {
        InsertBlocks(place, count, make);
    } else {
        SplitAt({place.entry, blockSize / 2});
        Insert(row, count, make);
    }
}

PrefixSums::Place RowBlocks::PlaceToInsert(int row) const {
    if (row < m_size)
        return PlaceOf(row);
    return {static_cast<int>(m_blocks.size()) - 1, m_blocks.back().rows.Size()};
}

void RowBlocks::InsertIntoBlock(PrefixSums::Place place, int count, const Maker& make) {
    auto& rows = m_blocks[place.entry].rows;
    rows.Insert(place.offset, count);
    try {
        for (int index = 0; index < count; ++index) {
            RowRecord& row = rows.At(place.offset + index);
            row = {};
            make(row, index);
            row.m_isSelected = false;
        }
    } catch (...) {
        rows.Erase(place.offset, place.offset + count);
        throw;
    }
    m_index.Add(place.entry, count);
    m_size += count;
}

void RowBlocks::InsertBlocks(PrefixSums::Place place, int count, const Maker& make) {
    std::vector<Block> added;
    added.reserve(static_cast<std::size_t>(count / BlockCapacity) + 1);
    for (int index = 0; index < count; ++index) {
        const int offset = index % BlockCapacity;
        if (offset == 0)
            added.emplace_back().rows.Insert(0, std::min(count - index, BlockCapacity));
        RowRecord& row = added.back().rows.At(offset);
        make(row, index);
        row.m_isSelected = false;
    }
    const int addedBlocks = static_cast<int>(added.size());
    const int at = SplitAt(place);
    AddBlocks(at, std::move(added));
    m_size += count;
    JoinSmall(at + addedBlocks - 1);
    JoinSmall(at - 1);
}

void RowBlocks::AddBlocks(int at, std::vector<Block> added) {
    m_index.Reserve(static_cast<int>(m_blocks.size() + added.size()));
    m_blocks.insert(m_blocks.begin() + at, std::make_move_iterator(added.begin()),
                    std::make_move_iterator(added.end()));
    RebuildIndex();
}

int RowBlocks::SplitAt(PrefixSums::Place place) {
    if (place.offset == 0)
        return place.entry;
    const int next = place.entry + 1;
    const int size = m_blocks[place.entry].rows.Size();
    if (place.offset == size)
        return next;
    AddBlocks(next, std::vector<Block>(1));
    Block& block = m_blocks[place.entry];
    Block& tail = m_blocks[next];
    const int selected = CountSelected(block, place.offset, size);
    tail.rows.Take(block.rows, place.offset);
    tail.selectedCount = selected;
    block.selectedCount -= selected;
    m_index.Add(place.entry, place.offset - size);
    m_index.Add(next, size - place.offset);
    return next;
}

void RowBlocks::Erase(int first, int last) {
    if (first >= last)
        return;
    const auto begin = PlaceOf(first);
    m_size -= last - first;
    int block = begin.entry;
    int offset = begin.offset;
    for (int left = last - first; left > 0; ++block, offset = 0) {
        const int erased = std::min(left, m_blocks[block].rows.Size() - offset);
        EraseInBlock(block, offset, offset + erased);
        left -= erased;
    }
    if (m_blocks[begin.entry].rows.Size() <= FewRows || block - 1 != begin.entry)
        Tidy(begin.entry, block - 1);
}

void RowBlocks::Tidy(int first, int last) {
    const auto stop = m_blocks.begin() + last + 1;
    const auto kept = std::remove_if(m_blocks.begin() + first, stop,
                                     [](const Block& block) { return block.rows.Size() == 0; });
    if (kept != stop) {
        m_blocks.erase(kept, stop);
        RebuildIndex();
    }
    JoinSmall(first);
    JoinSmall(first - 1);
}

int RowBlocks::CountSelected(const Block& block, int first, int last) {
    int selected = 0;
    for (int row = first; row < last && selected < block.selectedCount; ++row)
        selected += block.rows.At(row).m_isSelected;
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
    auto& block = m_blocks[place.entry];
    auto& record = block.rows.At(place.offset);
    const int difference = static_cast<int>(selected) - static_cast<int>(record.m_isSelected);
    record.m_isSelected = selected;
    block.selectedCount += difference;
    m_selectedCount += difference;
}

int RowBlocks::FindSelected(int row) const {
    if (m_selectedCount == 0 || row >= m_size)
        return -1;
    auto place = PlaceOf(std::max(row, 0));
    for (; place.entry < static_cast<int>(m_blocks.size()); ++place.entry, place.offset = 0) {
        const auto& block = m_blocks[place.entry];
        if (block.selectedCount == 0)
            continue;
        for (; place.offset < block.rows.Size(); ++place.offset)
            if (block.rows.At(place.offset).m_isSelected)
                return m_index.Before(place.entry) + place.offset;
    }
    return -1;
}

void RowBlocks::JoinSmall(int block) {
    if (!CanJoin(block))
        return;
    try {
        Join(block);
    } catch (const std::bad_alloc&) {
        // They stay two: only the room that one would save is lost.
    }
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
    RebuildIndex();
}

void RowBlocks::RebuildIndex() {
    m_index.Rebuild(static_cast<int>(m_blocks.size()),
                    [&](int block) { return m_blocks[block].rows.Size(); });
    m_found = {};
}

} // namespace korvel::internal
