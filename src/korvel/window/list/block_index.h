#pragma once

#include <bit>
#include <vector>

namespace korvel {

/// Where the rows of each block of a long list begin: a tree of partial sums over the sizes of the blocks
/// (after P. Fenwick, "A new data structure for cumulative frequency tables", 1994), so that a change of
/// one size and the search for a row both cost the logarithm of the number of blocks.
///
///     const int sizes[] = {3, 5, 2};
///     BlockIndex index;
///     index.Rebuild(3, [&](int block) { return sizes[block]; });
///     index.Find(4);        // block 1, offset 1
///     index.Add(0, 1);      // one row more in block 0
///     index.Start(2);       // 9
class BlockIndex {
public:
    struct Place {
        int block = 0;
        int offset = 0;
    };

    /// Makes room, so that Rebuild does not fail for so many blocks. It never does for fewer than before.
    void Reserve(int count) { m_sums.reserve(static_cast<std::size_t>(count) + 1); }
    /// Takes new sizes; costs their number.
    template <class SizeOf>
    void Rebuild(int count, const SizeOf& sizeOf) {
        m_sums.assign(static_cast<std::size_t>(count) + 1, 0);
        for (int position = 1; position <= count; ++position) {
            m_sums[position] += sizeOf(position - 1);
            const int parent = position + Span(position);
            if (parent <= count)
                m_sums[parent] += m_sums[position];
        }
        m_highestStep = static_cast<int>(std::bit_floor(static_cast<unsigned>(count)));
    }
    void Add(int block, int difference);
    /// The first row of a block.
    int Start(int block) const;
    /// The block that holds a row, and its place there. `row` is 0 or more and below the sum of all sizes.
    Place Find(int row) const;

private:
    /// The number of blocks whose sum entry `position` holds.
    static int Span(int position) { return position & -position; }

    std::vector<int> m_sums; // entry i (from 1) is the sum of the sizes that end in block i - 1
    int m_highestStep = 0;   // the greatest power of two that is not above the number of blocks
};

} // namespace korvel
