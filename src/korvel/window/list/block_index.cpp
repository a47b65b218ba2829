#include "korvel/window/list/block_index.h"

namespace korvel {

void BlockIndex::Add(int block, int difference) {
    const int count = static_cast<int>(m_sums.size()) - 1;
    for (int position = block + 1; position <= count; position += Span(position))
        m_sums[position] += difference;
}

int BlockIndex::Start(int block) const {
    int sum = 0;
    for (int position = block; position > 0; position -= Span(position))
        sum += m_sums[position];
    return sum;
}

BlockIndex::Place BlockIndex::Find(int row) const {
    const int count = static_cast<int>(m_sums.size()) - 1;
    int position = 0;
    for (int step = m_highestStep; step > 0; step /= 2) {
        const int next = position + step;
        if (next <= count && m_sums[next] <= row) {
            position = next;
            row -= m_sums[next];
        }
    }
    return {position, row};
}

} // namespace korvel
