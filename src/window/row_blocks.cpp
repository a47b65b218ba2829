#include "window/row_blocks.h"

#include <algorithm>
#include <iterator>

namespace korvel {

namespace {

constexpr int BlockCapacity = 512; // 12 KB: what one insertion moves at most
// The number of blocks changes only after that many rows came or went, so that the index is not built
// anew for every row.
constexpr int HalfBlock = BlockCapacity / 2;

void Append(std::vector<RowRecord>& target, std::vector<RowRecord>::iterator first,
            std::vector<RowRecord>::iterator last) {
    target.insert(target.end(), std::make_move_iterator(first), std::make_move_iterator(last));
}

template <class Iterator>
int SelectedIn(Iterator first, Iterator last) {
    return static_cast<int>(
        std::count_if(first, last, [](const RowRecord& row) { return row.IsSelected(); }));
}

} // namespace

RowRecord& RowBlocks::At(int row) {
    const auto place = m_index.Find(row);
    return m_blocks[place.block].rows[place.offset];
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
    const int blockSize = static_cast<int>(m_blocks[place.block].rows.size());
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
        return m_index.Find(row);
    return {static_cast<int>(m_blocks.size()) - 1, static_cast<int>(m_blocks.back().rows.size())};
}

void RowBlocks::InsertIntoBlock(BlockIndex::Place place, int count, const Maker& make) {
    auto& rows = m_blocks[place.block].rows;
    const auto formerSize = static_cast<std::ptrdiff_t>(rows.size());
    rows.resize(rows.size() + static_cast<std::size_t>(count));
    std::move_backward(rows.begin() + place.offset, rows.begin() + formerSize, rows.end());
    for (int index = 0; index < count; ++index) {
        rows[place.offset + index] = make(index);
        rows[place.offset + index].selected = false;
    }
    m_index.Add(place.block, count);
}

void RowBlocks::InsertBlocks(BlockIndex::Place place, int count, const Maker& make) {
    std::vector<Block> added;
    added.reserve(static_cast<std::size_t>(count / BlockCapacity + 1));
    for (int index = 0; index < count; ++index) {
        if (index % BlockCapacity == 0)
            added.emplace_back().rows.reserve(
                static_cast<std::size_t>(std::min(count - index, BlockCapacity)));
        added.back().rows.push_back(make(index));
        added.back().rows.back().selected = false;
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
    auto& rows = m_blocks[place.block].rows;
    if (place.offset == static_cast<int>(rows.size()))
        return place.block + 1;
    Block tail;
    Append(tail.rows, rows.begin() + place.offset, rows.end());
    rows.resize(place.offset);
    tail.selectedCount = SelectedIn(tail.rows.begin(), tail.rows.end());
    m_blocks[place.block].selectedCount -= tail.selectedCount;
    m_blocks.insert(m_blocks.begin() + place.block + 1, std::move(tail));
    return place.block + 1;
}

void RowBlocks::Erase(int first, int last) {
    if (first >= last)
        return;
    const auto begin = m_index.Find(first);
    const auto end = m_index.Find(last - 1);
    m_size -= last - first;
    for (int block = begin.block; block <= end.block; ++block) {
        auto& rows = m_blocks[block].rows;
        const auto from = rows.begin() + (block == begin.block ? begin.offset : 0);
        const auto to = block == end.block ? rows.begin() + end.offset + 1 : rows.end();
        const int selected = SelectedIn(from, to);
        m_blocks[block].selectedCount -= selected;
        m_selectedCount -= selected;
        m_index.Add(block, -static_cast<int>(to - from));
        rows.erase(from, to);
    }
    const auto isEmpty = [](const Block& block) { return block.rows.empty(); };
    const auto stop = m_blocks.begin() + end.block + 1;
    const auto kept = std::remove_if(m_blocks.begin() + begin.block, stop, isEmpty);
    const bool fewerBlocks = kept != stop;
    m_blocks.erase(kept, stop);
    const bool joinedBehind = JoinSmall(begin.block);
    const bool joinedBefore = JoinSmall(begin.block - 1);
    if (fewerBlocks || joinedBehind || joinedBefore)
        RebuildIndex();
}

void RowBlocks::Select(int row, bool selected) {
    const auto place = m_index.Find(row);
    auto& block = m_blocks[place.block];
    auto& record = block.rows[place.offset];
    const int difference = static_cast<int>(selected) - static_cast<int>(record.selected);
    record.selected = selected;
    block.selectedCount += difference;
    m_selectedCount += difference;
}

int RowBlocks::FindSelected(int row) const {
    if (m_selectedCount == 0 || row >= m_size)
        return -1;
    auto place = m_index.Find(std::max(row, 0));
    for (; place.block < static_cast<int>(m_blocks.size()); ++place.block, place.offset = 0) {
        const auto& block = m_blocks[place.block];
        if (block.selectedCount == 0)
            continue;
        const auto found = std::find_if(block.rows.begin() + place.offset, block.rows.end(),
                                        [](const RowRecord& record) { return record.selected; });
        if (found != block.rows.end())
            return m_index.Start(place.block) + static_cast<int>(found - block.rows.begin());
    }
    return -1;
}

bool RowBlocks::JoinSmall(int block) {
    if (block < 0 || block + 1 >= static_cast<int>(m_blocks.size()))
        return false;
    auto& target = m_blocks[block];
    auto& source = m_blocks[block + 1];
    if (target.rows.size() + source.rows.size() > static_cast<std::size_t>(HalfBlock))
        return false;
    Append(target.rows, source.rows.begin(), source.rows.end());
    target.selectedCount += source.selectedCount;
    m_blocks.erase(m_blocks.begin() + block + 1);
    return true;
}

void RowBlocks::RebuildIndex() {
    std::vector<int> sizes(m_blocks.size());
    std::transform(m_blocks.begin(), m_blocks.end(), sizes.begin(),
                   [](const Block& block) { return static_cast<int>(block.rows.size()); });
    m_index.Rebuild(sizes);
}

} // namespace korvel
