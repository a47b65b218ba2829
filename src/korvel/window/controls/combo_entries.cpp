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

ComboEntries::Place ComboEntries::PlaceOf(int index) const {
    auto offset = static_cast<std::size_t>(index);
    std::size_t block = 0;
    while (block + 1 < m_blocks.size() && offset >= m_blocks[block].size())
        offset -= m_blocks[block++].size();
    return {block, offset};
}

ComboEntry& ComboEntries::operator[](int index) {
    const Place place = PlaceOf(index);
    return m_blocks[place.block][place.offset];
}

const ComboEntry& ComboEntries::operator[](int index) const {
    const Place place = PlaceOf(index);
    return m_blocks[place.block][place.offset];
}

void ComboEntries::Insert(int index, CString text) {
    if (m_blocks.empty())
        m_blocks.emplace_back();
    Place place = PlaceOf(index);
    if (m_blocks[place.block].size() >= LargestBlock) {
        // At the end a new block begins, so that entries that are appended fill theirs.
        const std::size_t kept = index == m_size ? LargestBlock : LargestBlock / 2;
        const auto added = m_blocks.emplace(m_blocks.begin() + static_cast<std::ptrdiff_t>(place.block) + 1);
        Block& full = m_blocks[place.block];
        const auto middle = full.begin() + static_cast<std::ptrdiff_t>(kept);
        added->assign(std::make_move_iterator(middle), std::make_move_iterator(full.end()));
        full.erase(middle, full.end());
        if (place.offset > kept || kept == LargestBlock)
            place = {place.block + 1, place.offset - kept};
    }
    Block& block = m_blocks[place.block];
    block.insert(block.begin() + static_cast<std::ptrdiff_t>(place.offset), {std::move(text)});
    ++m_size;
}

void ComboEntries::Erase(int index) {
    const Place place = PlaceOf(index);
    Block& block = m_blocks[place.block];
    block.erase(block.begin() + static_cast<std::ptrdiff_t>(place.offset));
    if (block.empty())
        m_blocks.erase(m_blocks.begin() + static_cast<std::ptrdiff_t>(place.block));
    --m_size;
}

void ComboEntries::Clear() {
    m_blocks.clear();
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
