#pragma once

#include "landxml/unique_member_names.h"

#include <array>
#include <memory>
#include <string>
#include <unordered_map>

namespace korvel::inspector {

/// The names of members and objects, made when they are asked for. A grid asks one object for all its
/// members, and in between those for theirs: the names of small objects are made again when needed, after a
/// walk elsewhere; those of large ones are kept.
class MemberNameCache {
public:
    explicit MemberNameCache(const ElementMembers& members) : m_members(members) {}

    /// Valid until the names of an element outside this one are asked for.
    /// `progress` is told of each child by its number, where the names are made.
    const UniqueMemberNames& NamesOf(ElementIndex element, PhaseProgress* progress = nullptr);
    /// The name of an element's object: the one that it has as a member. Valid until Forget; changed in
    /// place.
    const std::string& IdentOf(ElementIndex element);

    /// Gives back the memory that belongs to an element.
    void Forget(ElementIndex element);

    /// The names in an element were changed.
    void Follow(ElementIndex element);
    /// Those of every element may have been changed.
    void FollowAll();

private:
    bool IsLarge(ElementIndex element, const UniqueMemberNames& names) const;
    void ForgetNames(ElementIndex element);
    std::string MakeIdent(ElementIndex element);

    struct RecentNames {
        ElementIndex element = NoElement;
        std::unique_ptr<UniqueMemberNames> names;
    };

    const ElementMembers& m_members;
    std::array<RecentNames, 64> m_recent;
    std::unordered_map<ElementIndex, std::unique_ptr<UniqueMemberNames>> m_large;
    std::unordered_map<ElementIndex, std::string> m_idents;
};

} // namespace korvel::inspector
