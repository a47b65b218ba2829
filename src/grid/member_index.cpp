#include "grid/member_index.h"

#include <functional>

namespace korvel {

namespace {

// Of 4 slots 3 are used at most, so that a search meets a free one soon.
bool IsTooFull(std::size_t used, std::size_t slots) {
    return used * 4 > slots * 3;
}

constexpr std::size_t FewestSlots = 16;

} // namespace

std::uint32_t MemberIndex::HashOf(const IMemberDispatch* disp, std::string_view name) {
    // The multiplier spreads the object's address over all bits: 2 to the 64 divided by the golden ratio.
    constexpr std::uint64_t spread = 0x9E3779B97F4A7C15;
    const auto address = static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(disp));
    const std::uint64_t hash = (std::hash<std::string_view>()(name) ^ address * spread) * spread;
    return static_cast<std::uint32_t>(hash >> 32);
}

void MemberIndex::Clear() {
    *this = MemberIndex();
}

void MemberIndex::Reserve(std::size_t entries) {
    std::size_t slots = std::max(m_slots.size(), FewestSlots);
    while (IsTooFull(m_used + entries, slots))
        slots *= 2;
    if (slots != m_slots.size())
        Resize(slots);
}

void MemberIndex::Resize(std::size_t slots) {
    std::vector<Entry> former = std::exchange(m_slots, std::vector<Entry>(slots));
    for (const Entry& entry : former)
        if (entry.node)
            Place(entry);
}

void MemberIndex::Place(const Entry& entry) {
    const std::size_t mask = m_slots.size() - 1;
    std::size_t slot = entry.hash & mask;
    while (m_slots[slot].node)
        slot = (slot + 1) & mask;
    m_slots[slot] = entry;
}

IMemberDispatch* MemberIndex::OwnerOf(const Entry& entry) const {
    if (entry.name)
        return entry.node->info->disp;
    const CTreeItem* above = entry.node->parent();
    return above ? above->info->disp : m_root;
}

std::string_view MemberIndex::NameOf(const Entry& entry) const {
    return entry.name ? std::string_view(*m_names[entry.name - 1]) : std::string_view(entry.node->info->text);
}

std::size_t MemberIndex::SlotOf(const IMemberDispatch* disp, std::string_view name,
                                std::uint32_t hash) const {
    if (m_slots.empty())
        return NotFound;
    const std::size_t mask = m_slots.size() - 1;
    for (std::size_t slot = hash & mask; m_slots[slot].node; slot = (slot + 1) & mask) {
        const Entry& entry = m_slots[slot];
        if (entry.hash == hash && OwnerOf(entry) == disp && NameOf(entry) == name)
            return slot;
    }
    return NotFound;
}

bool MemberIndex::Add(const IMemberDispatch* disp, std::string_view name, Entry entry) {
    Reserve(1);
    if (SlotOf(disp, name, entry.hash) != NotFound)
        return false;
    Place(entry);
    ++m_used;
    Count(static_cast<EFormatService>(entry.service), 1);
    return true;
}

bool MemberIndex::AddRow(IMemberDispatch* disp, std::string_view name, CTreeItem* row,
                         EFormatService service) {
    const std::uint32_t hash = HashOf(disp, name);
    const bool isAdded = Add(disp, name, {row, hash, 0, static_cast<std::uint32_t>(service)});
    if (isAdded)
        row->info->indexHash = hash;
    return isAdded;
}

bool MemberIndex::AddCell(IMemberDispatch* disp, std::string_view name, CTreeItem* row,
                          EFormatService service) {
    const std::uint32_t number = NumberOfName(name);
    if (!Add(disp, name, {row, HashOf(disp, name), number, static_cast<std::uint32_t>(service)}))
        return false;
    m_cellsOfRow[row].push_back(number);
    return true;
}

std::uint32_t MemberIndex::NumberOfName(std::string_view name) {
    if (const auto known = m_nameNumbers.find(name); known != m_nameNumbers.end())
        return known->second;
    const auto number = static_cast<std::uint32_t>(m_names.size() + 1);
    m_names.push_back(&m_nameNumbers.emplace(name, number).first->first);
    return number;
}

MemberIndex::Found MemberIndex::Find(const IMemberDispatch* disp, std::string_view name) const {
    const std::size_t slot = SlotOf(disp, name, HashOf(disp, name));
    if (slot == NotFound)
        return {};
    const Entry& entry = m_slots[slot];
    return {entry.node, static_cast<EFormatService>(entry.service), entry.name != 0};
}

bool MemberIndex::SetService(const IMemberDispatch* disp, std::string_view name, EFormatService service) {
    const std::size_t slot = SlotOf(disp, name, HashOf(disp, name));
    if (slot == NotFound)
        return false;
    Count(static_cast<EFormatService>(m_slots[slot].service), -1);
    Count(service, 1);
    m_slots[slot].service = static_cast<std::uint32_t>(service) & 0xF;
    return true;
}

bool MemberIndex::Remove(const IMemberDispatch* disp, std::string_view name) {
    const std::size_t slot = SlotOf(disp, name, HashOf(disp, name));
    if (slot == NotFound)
        return false;
    if (const Entry& entry = m_slots[slot]; entry.name) {
        auto& numbers = m_cellsOfRow[entry.node];
        std::erase(numbers, entry.name);
        if (numbers.empty())
            m_cellsOfRow.erase(entry.node);
    }
    RemoveSlot(slot);
    return true;
}

void MemberIndex::RemoveAllOf(const CTreeItem& row) {
    if (m_slots.empty())
        return;
    const std::size_t mask = m_slots.size() - 1;
    for (std::size_t slot = row.info->indexHash & mask; m_slots[slot].node; slot = (slot + 1) & mask)
        if (m_slots[slot].node == &row && m_slots[slot].name == 0) {
            RemoveSlot(slot);
            break;
        }
    const auto cells = m_cellsOfRow.find(&row);
    if (cells == m_cellsOfRow.end())
        return;
    for (const std::uint32_t number : cells->second) {
        const std::string_view name = *m_names[number - 1];
        if (const std::size_t slot = SlotOf(row.info->disp, name, HashOf(row.info->disp, name));
            slot != NotFound)
            RemoveSlot(slot);
    }
    m_cellsOfRow.erase(cells);
}

// The entries behind close up, so that none of them is cut off from where its search begins.
void MemberIndex::RemoveSlot(std::size_t slot) {
    Count(static_cast<EFormatService>(m_slots[slot].service), -1);
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
    m_slots[gap] = Entry();
}

void MemberIndex::Count(EFormatService service, int change) {
    m_counts[static_cast<std::size_t>(service)] += static_cast<std::size_t>(change);
}

std::vector<std::pair<IMemberDispatch*, std::string>> MemberIndex::MembersOf(EFormatService service) const {
    std::vector<std::pair<IMemberDispatch*, std::string>> members;
    members.reserve(CountOf(service));
    for (const Entry& entry : m_slots)
        if (entry.node && entry.service == static_cast<std::uint32_t>(service))
            members.emplace_back(OwnerOf(entry), NameOf(entry));
    return members;
}

} // namespace korvel
