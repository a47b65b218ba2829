#pragma once

#include "korvel/grid/member_table.h"

#include <array>
#include <map>
#include <string>
#include <unordered_map>

namespace korvel::internal {

/// Finds the node that shows a member, by its object and name, and knows which format service the member's
/// text depends on.
///
///     index.AddRow(&axis, "length", node, FormatService::Number);
///     index.Find(&axis, "length").node;     // node
///     index.AddRow(&axis, "length", other, FormatService::None);   // false: the first one stays
///
/// An entry has 16 bytes and repeats no name: a member that is a row has its name in the row's text; only
/// the names of members that are cells of a row are kept, each once.
class MemberIndex {
public:
    using CTreeItem = grid::CTreeItem;

    void Clear();
    /// Makes room for so many members more of an object.
    void Reserve(const IMemberDispatch* disp, std::size_t members);

    /// Files a row under its text, which is `name`. False, and no effect, when the member is filed already.
    bool AddRow(IMemberDispatch* disp, std::string_view name, CTreeItem* row, FormatService service);
    /// Files a member that is a cell of the object's row.
    bool AddCell(IMemberDispatch* disp, std::string_view name, CTreeItem* row, FormatService service);

    struct Found {
        CTreeItem* node = nullptr;
        FormatService service = FormatService::None;
        bool isCell = false;
    };
    /// Without node when the member is not filed.
    Found Find(const IMemberDispatch* disp, std::string_view name) const;

    /// False when the member is not filed.
    bool SetService(const IMemberDispatch* disp, std::string_view name, FormatService service);
    bool Remove(const IMemberDispatch* disp, std::string_view name);
    /// Files a member under another name, which a row takes as its text. A member that was filed
    /// under it is removed. Without effect when the member is not filed.
    void Rename(IMemberDispatch* disp, const std::string& name, std::string newName, FormatService service);
    /// Removes the entry of a row that shows a member of `disp`, whatever its text has become since.
    /// False when there is none.
    bool RemoveRow(const IMemberDispatch* disp, const CTreeItem& row);
    /// The same for a row of whatever object: looks through all objects.
    bool RemoveRow(const CTreeItem& row);
    /// Removes the members of an object that are cells of a row.
    void RemoveCells(const IMemberDispatch* disp, const CTreeItem& row);
    /// Removes all members of an object.
    void RemoveObject(const IMemberDispatch* disp);

    std::size_t CountOf(FormatService service) const { return m_counts[static_cast<std::size_t>(service)]; }
    /// The members that depend on a service.
    std::vector<std::pair<IMemberDispatch*, std::string>> MembersOf(FormatService service) const;

private:
    using Tables = std::unordered_map<const IMemberDispatch*, MemberTable>;

    static std::uint32_t HashOf(std::string_view name);
    bool Add(IMemberDispatch* disp, std::string_view name, const MemberEntry& entry);
    std::size_t SlotOf(const MemberTable& table, std::string_view name, std::uint32_t hash) const;
    bool RemoveRow(Tables::iterator table, const CTreeItem& row);
    void RemoveSlot(Tables::iterator table, std::size_t slot);
    std::string_view NameOf(const MemberEntry& entry) const;
    std::uint32_t NumberOfName(std::string_view name);
    std::size_t& Count(FormatService service) { return m_counts[static_cast<std::size_t>(service)]; }

    Tables m_tables;                       // by object: what is filled together lies together
    std::array<std::size_t, 8> m_counts{}; // by FormatService
    std::map<std::string, std::uint32_t, std::less<>> m_nameNumbers;
    std::vector<const std::string*> m_names; // the keys of m_nameNumbers, from number 1 on
};

} // namespace korvel::internal
