#pragma once

#include "korvel/window/base/prefix_sums.h"
#include "korvel/window/base/types.h"

#include <vector>

namespace korvel::internal {

struct ComboEntry {
    CString text;
    LPARAM data = 0;
};

/// The entries of a combo box, in blocks: an insertion moves the entries of one block only.
class ComboEntries {
public:
    static constexpr int None = -1;

    int Size() const { return m_size; }
    bool Has(int index) const { return index >= 0 && index < m_size; }
    ComboEntry& operator[](int index);
    const ComboEntry& operator[](int index) const;

    /// From 0 to Size(). When memory ends, nothing has changed.
    void Insert(int index, CString text);
    void Erase(int index);
    void Clear();

    /// Where a sorted box puts a text, whatever the case of its letters: after its equals.
    int SortedPlace(const CString& text) const;
    enum class Match { Beginning, Whole };
    /// The next entry after `after` (no entry: from the first), going round, whose text matches, whatever the
    /// case of letters. None for the empty text.
    int Find(int after, const CString& text, Match match) const;

private:
    using Block = std::vector<ComboEntry>;

    /// Of an entry, or of the end.
    PrefixSums::Place PlaceOf(int index) const;
    void InsertBlock(int at, Block block);
    void RebuildIndex();

    std::vector<Block> m_blocks; // none is empty but a first one
    PrefixSums m_index;          // of their sizes
    int m_size = 0;
};

} // namespace korvel::internal
