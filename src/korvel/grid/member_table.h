#pragma once

#include "korvel/grid/tree_item.h"
#include "korvel/output/format_notification.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

namespace korvel::internal {

/// A member that is filed: the row that shows it, and what its text depends on.
struct MemberEntry {
    grid::CTreeItem* node = nullptr; // null: a free slot
    std::uint32_t hash = 0;          // of the member's name
    std::uint32_t name : 28 = 0;   // 0: the row's own text; else the number of a name that is kept elsewhere
    std::uint32_t service : 4 = 0; // FormatService

    FormatService Service() const { return static_cast<FormatService>(service); }
};

/// The members of one object by their names: a flat hash table with linear probing. The caller, who knows
/// the names, says what is a match.
class MemberTable {
public:
    static constexpr std::size_t NotFound = static_cast<std::size_t>(-1);

    std::size_t Size() const { return m_used; }
    void Reserve(std::size_t entries) {
        std::size_t slots = m_slots.empty() ? FewestSlots : m_slots.size();
        while (IsTooFull(m_used + entries, slots))
            slots *= 2;
        if (slots != m_slots.size())
            Resize(slots);
    }

    /// The slot of the first entry with this hash that `matches`, or NotFound.
    template <typename Matches>
    std::size_t Find(std::uint32_t hash, Matches matches) const {
        if (m_slots.empty())
            return NotFound;
        const std::size_t mask = m_slots.size() - 1;
        for (std::size_t slot = hash & mask; m_slots[slot].node; slot = (slot + 1) & mask)
            if (m_slots[slot].hash == hash && matches(m_slots[slot]))
                return slot;
        return NotFound;
    }

    void Add(const MemberEntry& entry) {
        Reserve(1);
        Place(entry);
        ++m_used;
    }
    void Remove(std::size_t slot);

    MemberEntry& At(std::size_t slot) { return m_slots[slot]; }
    const MemberEntry& At(std::size_t slot) const { return m_slots[slot]; }
    /// All slots, free ones included.
    const std::vector<MemberEntry>& Slots() const { return m_slots; }

private:
    static constexpr std::size_t FewestSlots = 4;

    // Of 4 slots 3 are used at most, so that a search meets a free one soon.
    static bool IsTooFull(std::size_t used, std::size_t slots) { return used * 4 > slots * 3; }
    void Resize(std::size_t slots);
    void Place(const MemberEntry& entry);

    std::vector<MemberEntry> m_slots; // as many as a power of two
    std::size_t m_used = 0;
};

} // namespace korvel::internal
