#pragma once

#include <bit>
#include <vector>

namespace korvel::internal {

/// Sums over the first entries of a sequence of numbers that are 0 or more: a binary indexed tree (after
/// P. Fenwick, "A new data structure for cumulative frequency tables", 1994), so that each change and each
/// question takes logarithmic time. Long lists keep the sizes of their blocks in one.
///
///     const int sizes[] = {3, 5, 2};
///     PrefixSums sums;
///     sums.Rebuild(3, [&](int entry) { return sizes[entry]; });
///     sums.Find(4);        // entry 1, offset 1
///     sums.Add(0, 1);      // the first number is 4 now
///     sums.Before(2);      // 9
class PrefixSums {
public:
    struct Place {
        int entry = 0;
        int offset = 0; // in the entry
    };

    /// Makes room, so that Rebuild does not fail for so many numbers. It never does for fewer than before.
    void Reserve(int count) { m_sums.reserve(static_cast<std::size_t>(count) + 1); }
    /// Takes new numbers; costs their count.
    template <class NumberOf>
    void Rebuild(int count, const NumberOf& numberOf) {
        m_sums.assign(static_cast<std::size_t>(count) + 1, 0);
        for (int position = 1; position <= count; ++position) {
            m_sums[position] += numberOf(position - 1);
            const int parent = position + Span(position);
            if (parent <= count)
                m_sums[parent] += m_sums[position];
        }
        FindHighestStep();
    }
    /// A further number, 0, after the last.
    void Append() {
        if (m_sums.empty())
            m_sums.push_back(0);
        const int position = Count() + 1;
        m_sums.push_back(Before(position - 1) - Before(position - Span(position)));
        FindHighestStep();
    }

    void Add(int entry, int difference) {
        for (int position = entry + 1; position <= Count(); position += Span(position))
            m_sums[position] += difference;
    }
    /// The sum of the numbers before an entry.
    int Before(int entry) const {
        int sum = 0;
        for (int position = entry; position > 0; position -= Span(position))
            sum += m_sums[position];
        return sum;
    }
    /// The entry that holds a unit, counted from 0 over all numbers. `unit` is below the sum of all.
    Place Find(int unit) const {
        int position = 0;
        for (int step = m_highestStep; step > 0; step /= 2) {
            const int next = position + step;
            if (next <= Count() && m_sums[next] <= unit) {
                position = next;
                unit -= m_sums[next];
            }
        }
        return {position, unit};
    }

private:
    int Count() const { return static_cast<int>(m_sums.size()) - 1; }
    void FindHighestStep() {
        m_highestStep = static_cast<int>(std::bit_floor(static_cast<unsigned>(Count())));
    }
    /// How many numbers the sum at `position` holds.
    static int Span(int position) { return position & -position; }

    std::vector<int> m_sums; // entry i (from 1) is the sum of the numbers that end with number i - 1
    int m_highestStep = 0;   // the greatest power of two that is not above the count
};

} // namespace korvel::internal
