#include "window/row_blocks.h"

#include <algorithm>
#include <iterator>

namespace korvel {

namespace {

constexpr std::size_t BlockCapacity = 512; // 12 KB: what one insertion moves at most
// The number of blocks changes only after that many rows came or went, so that the index is not built
// anew for every row.
constexpr std::size_t HalfBlock = BlockCapacity / 2;

auto MoveIn(std::vector<RowRecord>& target, std::size_t offset, std::span<RowRecord> rows) {
    return target.insert(target.begin() + static_cast<std::ptrdiff_t>(offset),
                         std::make_move_iterator(rows.begin()), std::make_move_iterator(rows.end()));
}

int SelectedIn(std::span<const RowRecord> rows) {
    return static_cast<int>(
        std::count_if(rows.begin(), rows.end(), [](const RowRecord& row) { return row.IsSelected(); }));
}

} // namespace

RowRecord& RowBlocks::At(int row) {
    const auto place = m_index.Find(row);
    return m_blocks[place.block].rows[place.offset];
}

void RowBlocks::Insert(int row, std::span<RowRecord> rows) {
    if (rows.empty())
        return;
    for (auto& record : rows)
        record.selected = false;
    if (m_blocks.empty()) {
        m_blocks.emplace_back();
        RebuildIndex();
    }
    const auto place = PlaceToInsert(row);
    const bool isAppend = row == m_size;
    m_size += static_cast<int>(rows.size());
    const auto& target = m_blocks[place.block].rows;
    if (target.size() + rows.size() <= BlockCapacity) {
        InsertIntoBlock(place, rows);
    } else if (rows.size() > HalfBlock || isAppend) {
        InsertBlocks(place, rows);
    } else {
        const int half = static_cast<int>(target.size() / 2);
        SplitAt({place.block, half});
        RebuildIndex();
        InsertIntoBlock(
            place.offset <= half ? place : BlockIndex::Place{place.block + 1, place.offset - half}, rows);
    }
}

BlockIndex::Place RowBlocks::PlaceToInsert(int row) const {
    if (row < m_size)
        return m_index.Find(row);
    return {static_cast<int>(m_blocks.size()) - 1, static_cast<int>(m_blocks.back().rows.size())};
}

void RowBlocks::InsertIntoBlock(BlockIndex::Place place, std::span<RowRecord> rows) {
    MoveIn(m_blocks[place.block].rows, place.offset, rows);
    m_index.Add(place.block, static_cast<int>(rows.size()));
}

void RowBlocks::InsertBlocks(BlockIndex::Place place, std::span<RowRecord> rows) {
    std::vector<Block> added;
    added.reserve(rows.size() / BlockCapacity + 1);
    for (std::size_t begin = 0; begin < rows.size(); begin += BlockCapacity)
        MoveIn(added.emplace_back().rows, 0,
               rows.subspan(begin, std::min(BlockCapacity, rows.size() - begin)));
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
    MoveIn(tail.rows, 0, std::span(rows).subspan(place.offset));
    rows.resize(place.offset);
    tail.selectedCount = SelectedIn(tail.rows);
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
        const int selected = SelectedIn({from, to});
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
    if (target.rows.size() + source.rows.size() > HalfBlock)
        return false;
    MoveIn(target.rows, target.rows.size(), source.rows);
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
