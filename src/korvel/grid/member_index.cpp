#include "korvel/grid/member_index.h"

#include <functional>

namespace korvel::internal {

std::uint32_t MemberIndex::HashOf(std::string_view name) {
    return static_cast<std::uint32_t>(std::hash<std::string_view>()(name));
}

void MemberIndex::Clear() {
    *this = MemberIndex();
}

void MemberIndex::Reserve(const IMemberDispatch* disp, std::size_t members) {
    if (members > 0)
        m_tables[disp].Reserve(members);
}

std::string_view MemberIndex::NameOf(const MemberEntry& entry) const {
    return entry.name ? std::string_view(*m_names[entry.name - 1]) : std::string_view(entry.node->info->text);
}

std::size_t MemberIndex::SlotOf(const MemberTable& table, std::string_view name, std::uint32_t hash) const {
    return table.Find(
        hash, [&](const MemberEntry& entry) { return NameOf(entry) == name; });
}

bool MemberIndex::Add(IMemberDispatch* disp, std::string_view name, const MemberEntry& entry) {
    MemberTable& table = m_tables[disp];
    if (SlotOf(table, name, entry.hash) != MemberTable::NotFound)
        return false;
    table.Add(entry);
    ++Count(entry.Service());
    return true;
}

bool MemberIndex::AddRow(IMemberDispatch* disp, std::string_view name, CTreeItem* row,
                         FormatService service) {
    const std::uint32_t hash = HashOf(name);
    const bool isAdded = Add(disp, name, {row, hash, 0, static_cast<std::uint32_t>(service) & 0xF});
    if (isAdded)
        row->info->indexHash = hash;
    return isAdded;
}

bool MemberIndex::AddCell(IMemberDispatch* disp, std::string_view name, CTreeItem* row,
                          FormatService service) {
    const std::uint32_t number = NumberOfName(name) & 0xFFFFFFF;
    return Add(disp, name, {row, HashOf(name), number, static_cast<std::uint32_t>(service) & 0xF});
}

std::uint32_t MemberIndex::NumberOfName(std::string_view name) {
    if (const auto known = m_nameNumbers.find(name); known != m_nameNumbers.end())
        return known->second;
    const auto number = static_cast<std::uint32_t>(m_names.size() + 1);
    m_names.push_back(&m_nameNumbers.emplace(name, number).first->first);
    return number;
}

MemberIndex::Found MemberIndex::Find(const IMemberDispatch* disp, std::string_view name) const {
    const auto table = m_tables.find(disp);
    if (table == m_tables.end())
        return {};
    const std::size_t slot = SlotOf(table->second, name, HashOf(name));
    if (slot == MemberTable::NotFound)
        return {};
    const MemberEntry& entry = table->second.At(slot);
    return {entry.node, entry.Service(), entry.name != 0};
}

bool MemberIndex::SetService(const IMemberDispatch* disp, std::string_view name, FormatService service) {
    const auto table = m_tables.find(disp);
    if (table == m_tables.end())
        return false;
    const std::size_t slot = SlotOf(table->second, name, HashOf(name));
    if (slot == MemberTable::NotFound)
        return false;
    MemberEntry& entry = table->second.At(slot);
    --Count(entry.Service());
    ++Count(service);
    entry.service = static_cast<std::uint32_t>(service) & 0xF;
    return true;
}

bool MemberIndex::Remove(const IMemberDispatch* disp, std::string_view name) {
    const auto table = m_tables.find(disp);
    if (table == m_tables.end())
        return false;
    const std::size_t slot = SlotOf(table->second, name, HashOf(name));
    if (slot != MemberTable::NotFound)
        RemoveSlot(table, slot);
    return slot != MemberTable::NotFound;
}

// The new entry is made before the former goes, so that a member is never without one.
void MemberIndex::Rename(IMemberDispatch* disp, const std::string& name, std::string newName,
                         FormatService service) {
    const Found found = Find(disp, name);
    if (!found.node || name == newName)
        return;
    Reserve(disp, 1);
    Remove(disp, newName);
    if (found.isCell) {
        AddCell(disp, newName, found.node, service);
        Remove(disp, name);
        return;
    }
    AddRow(disp, newName, found.node, service);
    Remove(disp, name);
    found.node->info->text.swap(newName);
}

bool MemberIndex::RemoveRow(const IMemberDispatch* disp, const CTreeItem& row) {
    const auto table = m_tables.find(disp);
    return table != m_tables.end() && RemoveRow(table, row);
}

bool MemberIndex::RemoveRow(const CTreeItem& row) {
    for (auto table = m_tables.begin(); table != m_tables.end(); ++table)
        if (RemoveRow(table, row))
            return true;
    return false;
}

bool MemberIndex::RemoveRow(Tables::iterator table, const CTreeItem& row) {
    const auto isRow = [&](const MemberEntry& entry) { return entry.node == &row && entry.name == 0; };
    const std::size_t slot = table->second.Find(row.info->indexHash, isRow);
    if (slot != MemberTable::NotFound)
        RemoveSlot(table, slot);
    return slot != MemberTable::NotFound;
}

void MemberIndex::RemoveSlot(Tables::iterator table, std::size_t slot) {
    --Count(table->second.At(slot).Service());
    table->second.Remove(slot);
    if (table->second.Size() == 0)
        m_tables.erase(table);
}

void MemberIndex::RemoveCells(const IMemberDispatch* disp, const CTreeItem& row) {
    const auto table = m_tables.find(disp);
    if (table == m_tables.end())
        return;
    for (std::size_t slot = 0; slot < table->second.Slots().size();) {
        const MemberEntry& entry = table->second.At(slot);
        if (entry.node != &row || entry.name == 0) {
            ++slot;
            continue;
        }
        const bool isLast = table->second.Size() == 1;
        RemoveSlot(table, slot); // another entry may move into the slot
        if (isLast)
            return;
    }
}

void MemberIndex::RemoveObject(const IMemberDispatch* disp) {
    const auto table = m_tables.find(disp);
    if (table == m_tables.end())
        return;
    for (const MemberEntry& entry : table->second.Slots())
        if (entry.node)
            --Count(entry.Service());
    m_tables.erase(table);
}

std::vector<std::pair<IMemberDispatch*, std::string>> MemberIndex::MembersOf(FormatService service) const {
    std::vector<std::pair<IMemberDispatch*, std::string>> members;
    members.reserve(CountOf(service));
    for (const auto& [disp, table] : m_tables)
        for (const MemberEntry& entry : table.Slots())
            if (entry.node && entry.Service() == service)
                members.emplace_back(const_cast<IMemberDispatch*>(disp), NameOf(entry));
    return members;
}

} // namespace korvel::internal
