#pragma once

#include <cstddef>
#include <utility>
#include <vector>

namespace korvel {

/// Sums over the first entries of a sequence of numbers; each change and each question takes logarithmic
/// time (a binary indexed tree).
///
///     PrefixSums sums({3, 1, 4});
///     sums.Before(2);     // 4
///     sums.Find(3);       // 1: the fourth unit lies in the entry with index 1
///     sums.Add(0, 10);
///     sums.Before(2);     // 14
class PrefixSums {
public:
    PrefixSums() = default;
    explicit PrefixSums(std::vector<int> numbers) : m_tree(std::move(numbers)) {
        for (std::size_t i = 1; i <= m_tree.size(); ++i)
            if (const std::size_t above = i + LowBit(i); above <= m_tree.size())
                m_tree[above - 1] += m_tree[i - 1];
    }

    void Add(std::size_t index, int delta) {
        for (std::size_t i = index + 1; i <= m_tree.size(); i += LowBit(i))
            m_tree[i - 1] += delta;
    }

    /// A further number, 0, behind the last.
    void Append() {
        const std::size_t end = m_tree.size() + 1;
        m_tree.push_back(Before(end - 1) - Before(end - LowBit(end)));
    }

    int Before(std::size_t index) const {
        int sum = 0;
        for (std::size_t i = index; i > 0; i -= LowBit(i))
            sum += m_tree[i - 1];
        return sum;
    }

    /// The first entry up to whose end more than `units` are counted; the number of entries when there is
    /// none.
    std::size_t Find(int units) const {
        std::size_t index = 0;
        std::size_t step = 1;
        while (step * 2 <= m_tree.size())
            step *= 2;
        for (; step > 0; step /= 2) {
            if (index + step > m_tree.size() || m_tree[index + step - 1] > units)
                continue;
            index += step;
            units -= m_tree[index - 1];
        }
        return index;
    }

private:
    static std::size_t LowBit(std::size_t i) { return i & (~i + 1); }

    std::vector<int> m_tree;
};

} // namespace korvel
