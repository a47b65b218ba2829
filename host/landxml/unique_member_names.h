#pragma once

#include "landxml/element_members.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace korvel::inspector {

/// The members of one element under names that are unique in it.
///
/// Children of one name that have no name of their own are numbered: "Line 1", "Line 2"; an only one is just
/// "CoordGeom". What still has the name of an earlier member gets a number in brackets: "Alignment A (2)".
/// Names are not stored but made when they are asked for: a lookup costs a search among hashes, and 16 bytes
/// a member are all that is kept. Each value is read once, when the names are made unique.
class UniqueMemberNames {
public:
    /// `progress` is told of each child by its number.
    UniqueMemberNames(const ElementMembers& members, ElementIndex owner, PhaseProgress* progress = nullptr);

    std::size_t Count() const { return m_members.size(); }
    std::string NameAt(std::size_t index) const;
    const Member& MemberAt(std::size_t index) const { return m_members[index]; }

    std::optional<Member> Find(const std::string& name) const;
    /// The name of a child element.
    std::string NameOfChild(ElementIndex child) const;

private:
    struct Hashed {
        std::uint32_t hash;
        std::uint32_t index;
    };
    struct Clash {
        std::uint32_t index;
        std::uint32_t number;
    };

    void NumberChildren();
    void HashNames();
    void ResolveClashes();
    void ResolveRun(std::size_t begin, std::size_t end, std::vector<Clash>& clashes) const;
    MemberName NumberedName(std::size_t index) const;
    std::optional<std::size_t> FindIndex(const std::string& name) const;

    const ElementMembers& m_source;
    ElementIndex m_owner;
    std::vector<Member> m_members; // in file order: attributes, then texts and children
    std::vector<Hashed> m_hashes;  // by hash, then by index
    std::vector<Clash> m_clashes;  // by index
};

} // namespace korvel::inspector
