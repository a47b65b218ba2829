#include "korvel/window/controls/combo_entries.h"

#include "korvel/platform/code_page.h"

#include <iterator>
#include <utility>

namespace korvel::internal {

namespace {

constexpr std::size_t LargestBlock = 512;

bool Matches(const CString& text, const CString& folded, ComboEntries::Match match) {
    const CString own = platform::FoldCase(text);
    return match == ComboEntries::Match::Whole ? own == folded : platform::BeginsWith(own, folded);
}

} // namespace

PrefixSums::Place ComboEntries::PlaceOf(int index) const {
    if (index < m_size)
        return m_index.Find(index);
    return {static_cast<int>(m_blocks.size()) - 1, static_cast<int>(m_blocks.back().size())};
}

void ComboEntries::InsertBlock(int at, Block block) {
    m_index.Reserve(static_cast<int>(m_blocks.size()) + 1);
    m_blocks.insert(m_blocks.begin() + at, std::move(block));
    RebuildIndex();
}

void ComboEntries::RebuildIndex() {
    m_index.Rebuild(
        static_cast<int>(m_blocks.size()),
        [&](int block) { return static_cast<int>(m_blocks[block].size()); });
}

ComboEntry& ComboEntries::operator[](int index) {
    const PrefixSums::Place place = PlaceOf(index);
    return m_blocks[place.entry][place.offset];
}

const ComboEntry& ComboEntries::operator[](int index) const {
    const PrefixSums::Place place = PlaceOf(index);
    return m_blocks[place.entry][place.offset];
}

void ComboEntries::Insert(int index, CString text) {
    if (m_blocks.empty())
        InsertBlock(0, {});
    PrefixSums::Place place = PlaceOf(index);
    if (m_blocks[place.entry].size() >= LargestBlock) {
        // At the end a new block begins, so that entries that are appended fill theirs.
        const int kept = static_cast<int>(index == m_size ? LargestBlock : LargestBlock / 2);
        Block tail;
        tail.reserve(LargestBlock - kept + 1);
        InsertBlock(place.entry + 1, std::move(tail));
        Block& full = m_blocks[place.entry];
        Block& added = m_blocks[place.entry + 1];
        std::move(full.begin() + kept, full.end(), std::back_inserter(added));
        full.resize(kept);
        RebuildIndex();
        if (place.offset > kept || index == m_size)
            place = {place.entry + 1, place.offset - kept};
    }
    Block& block = m_blocks[place.entry];
    block.insert(block.begin() + place.offset, {std::move(text)});
    m_index.Add(place.entry, 1);
    ++m_size;
}

void ComboEntries::Erase(int index) {
    const PrefixSums::Place place = PlaceOf(index);
    Block& block = m_blocks[place.entry];
    block.erase(block.begin() + place.offset);
    m_index.Add(place.entry, -1);
    if (block.empty()) {
        m_blocks.erase(m_blocks.begin() + place.entry);
        RebuildIndex();
    }
    --m_size;
}

void ComboEntries::Clear() {
    m_blocks.clear();
    RebuildIndex();
    m_size = 0;
}

int ComboEntries::SortedPlace(const CString& text) const {
    const CString folded = platform::FoldCase(text);
    int low = 0;
    int high = m_size;
    while (low < high) {
        const int middle = low + (high - low) / 2;
        if (folded < platform::FoldCase((*this)[middle].text))
            high = middle;
        else
            low = middle + 1;
    }
    return low;
}

int ComboEntries::Find(int after, const CString& text, Match match) const {
    if (text.empty())
        return None;
    const CString folded = platform::FoldCase(text);
    int index = 0;
    int before = None; // the first one up to `after`
    for (const Block& block : m_blocks)
        for (const ComboEntry& entry : block) {
            if ((before == None || index > after) && Matches(entry.text, folded, match)) {
                if (index > after)
                    return index;
                before = index;
            }
            ++index;
        }
    return before;
}

} // namespace korvel::internal
