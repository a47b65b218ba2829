#include "korvel/grid/member_table.h"

namespace korvel::internal {

void MemberTable::Resize(std::size_t slots) {
    const std::vector<MemberEntry> former = std::exchange(m_slots, std::vector<MemberEntry>(slots));
    for (const MemberEntry& entry : former)
        if (entry.node)
            Place(entry);
}

void MemberTable::Place(const MemberEntry& entry) {
    const std::size_t mask = m_slots.size() - 1;
    std::size_t slot = entry.hash & mask;
    while (m_slots[slot].node)
        slot = (slot + 1) & mask;
    m_slots[slot] = entry;
}

// The entries after it close up, so that none of them is cut off from where its search begins.
void MemberTable::Remove(std::size_t slot) {
    --m_used;
    const std::size_t mask = m_slots.size() - 1;
    std::size_t gap = slot;
    for (std::size_t next = (gap + 1) & mask; m_slots[next].node; next = (next + 1) & mask) {
        const std::size_t home = m_slots[next].hash & mask;
        const bool mayMove = ((next - home) & mask) >= ((next - gap) & mask);
        if (!mayMove)
            continue;
        m_slots[gap] = m_slots[next];
        gap = next;
    }
    m_slots[gap] = MemberEntry();
}

} // namespace korvel::internal
