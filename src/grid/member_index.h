#pragma once

#include "grid/tree_item.h"
#include "output/format_notification.h"

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace korvel {

/// Finds the node that shows a member, by its object and name, and knows which format service the member's
/// text depends on.
///
///     index.AddRow(&axis, "length", node, EFormatService::Number);
///     index.Find(&axis, "length");     // node
///     index.AddRow(&axis, "length", other, EFormatService::None);   // false: the first one stays
///
/// An entry has 16 bytes and repeats neither object nor name: a member that is a row has its name in the
/// row's text and its object in the row above; only the names of members that are cells of a row are kept,
/// each once.
class MemberIndex {
public:
    using CTreeItem = grid::CTreeItem;

    /// The object whose members are the root rows. Set before entries are added.
    void SetRoot(IMemberDispatch* root) { m_root = root; }
    void Clear();
    /// Makes room for so many entries more.
    void Reserve(std::size_t entries);

    /// Files a row under its text, which is `name`, and the object of the row above. False, and no effect,
    /// when the member is filed already.
    bool AddRow(IMemberDispatch* disp, std::string_view name, CTreeItem* row, EFormatService service);
    /// Files a member that is a cell of `row`, whose object is `disp`.
    bool AddCell(IMemberDispatch* disp, std::string_view name, CTreeItem* row, EFormatService service);

    struct Found {
        CTreeItem* node = nullptr;
        EFormatService service = EFormatService::None;
        bool isCell = false;
    };
    /// Without node when the member is not filed.
    Found Find(const IMemberDispatch* disp, std::string_view name) const;

    /// False when the member is not filed, or depends on another service already when one is given.
    bool SetService(const IMemberDispatch* disp, std::string_view name, EFormatService service);
    /// False when it was not filed.
    bool Remove(const IMemberDispatch* disp, std::string_view name);
    /// Removes the entry of a row and those of its cells, whatever its text has become since.
    void RemoveAllOf(const CTreeItem& row);

    std::size_t CountOf(EFormatService service) const { return m_counts[static_cast<std::size_t>(service)]; }
    /// The members that depend on a service.
    std::vector<std::pair<IMemberDispatch*, std::string>> MembersOf(EFormatService service) const;

private:
    struct Entry {
        CTreeItem* node = nullptr; // null: a free slot
        std::uint32_t hash = 0;
        std::uint32_t name : 28 = 0; // 0: the row's own text; else m_names[name - 1]
        std::uint32_t service : 4 = 0;
    };
    static constexpr std::size_t NotFound = static_cast<std::size_t>(-1);

    static std::uint32_t HashOf(const IMemberDispatch* disp, std::string_view name);
    bool Add(const IMemberDispatch* disp, std::string_view name, Entry entry);
    std::size_t SlotOf(const IMemberDispatch* disp, std::string_view name, std::uint32_t hash) const;
    void RemoveSlot(std::size_t slot);
    void Resize(std::size_t slots);
    void Place(const Entry& entry);
    IMemberDispatch* OwnerOf(const Entry& entry) const;
    std::string_view NameOf(const Entry& entry) const;
    std::uint32_t NumberOfName(std::string_view name);
    void Count(EFormatService service, int change);

    IMemberDispatch* m_root = nullptr;
    std::vector<Entry> m_slots; // as many as a power of two; linear probing
    std::size_t m_used = 0;
    std::array<std::size_t, 8> m_counts{}; // by EFormatService
    std::map<std::string, std::uint32_t, std::less<>> m_nameNumbers;
    std::vector<const std::string*> m_names; // the keys of m_nameNumbers
    std::unordered_map<const CTreeItem*, std::vector<std::uint32_t>> m_cellsOfRow; // numbers of names
};

} // namespace korvel
