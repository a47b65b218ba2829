#include "landxml/unique_member_names.h"

#include <algorithm>
#include <functional>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace korvel::inspector {
namespace {

std::uint32_t HashOf(const std::string& name) {
    return static_cast<std::uint32_t>(std::hash<std::string>()(name));
}

std::string WithClash(const MemberName& name, std::uint32_t number) {
    return name.stem + " (" + std::to_string(number) + ")" + name.mark;
}

bool IsChild(const Member& member) {
    return member.kind == MemberKind::Object || member.kind == MemberKind::TextElement;
}

} // namespace

UniqueMemberNames::UniqueMemberNames(const ElementMembers& members, ElementIndex owner,
                                     PhaseProgress* progress)
    : m_source(members), m_owner(owner), m_members(members.List(owner, progress)) {
    NumberChildren();
    HashNames();
    ResolveClashes();
}

void UniqueMemberNames::NumberChildren() {
    const ElementTree& tree = m_source.Tree();
    std::unordered_map<std::string_view, std::uint32_t> counts;
    for (Member& member : m_members)
        if (IsChild(member) && !m_source.HasOwnName(member.place))
            member.number = ++counts[tree.Name(member.place)];
    for (Member& member : m_members)
        if (member.number == 1 && counts[tree.Name(member.place)] == 1)
            member.number = 0;
}

void UniqueMemberNames::HashNames() {
    m_hashes.reserve(m_members.size());
    for (std::size_t i = 0; i < m_members.size(); ++i)
        m_hashes.push_back({HashOf(NameAt(i)), static_cast<std::uint32_t>(i)});
    std::sort(m_hashes.begin(), m_hashes.end(), [](const Hashed& a, const Hashed& b) {
        return a.hash != b.hash ? a.hash < b.hash : a.index < b.index;
    });
}

// While clashes are looked for, m_clashes is empty and m_hashes holds the names without them: a new name has
// to differ from all of those. Two new ones are never the same, as their stems, numbers or marks differ.
void UniqueMemberNames::ResolveClashes() {
    std::vector<Clash> clashes;
    for (std::size_t begin = 0; begin < m_hashes.size();) {
        std::size_t end = begin + 1;
        while (end < m_hashes.size() && m_hashes[end].hash == m_hashes[begin].hash)
            ++end;
        if (end - begin > 1)
            ResolveRun(begin, end, clashes);
        begin = end;
    }
    if (clashes.empty())
        return;
    std::sort(clashes.begin(), clashes.end(),
              [](const Clash& a, const Clash& b) { return a.index < b.index; });
    m_clashes = std::move(clashes);
    m_hashes.clear();
    HashNames();
}

// A run of one hash: mostly one name, the members in file order.
void UniqueMemberNames::ResolveRun(std::size_t begin, std::size_t end, std::vector<Clash>& clashes) const {
    std::unordered_map<std::string, std::uint32_t> lastNumbers;
    for (std::size_t i = begin; i < end; ++i) {
        const MemberName name = NumberedName(m_hashes[i].index);
        const auto [last, isFirst] = lastNumbers.emplace(name.stem + name.mark, 1);
        if (isFirst)
            continue;
        do
            ++last->second;
        while (FindIndex(WithClash(name, last->second)));
        clashes.push_back({m_hashes[i].index, last->second});
    }
}

MemberName UniqueMemberNames::NumberedName(std::size_t index) const {
    MemberName name = m_source.NameOf(m_owner, m_members[index]);
    if (m_members[index].number != 0)
        name.stem += " " + std::to_string(m_members[index].number);
    return name;
}

std::string UniqueMemberNames::NameAt(std::size_t index) const {
    const MemberName name = NumberedName(index);
    const auto clash = std::lower_bound(m_clashes.begin(), m_clashes.end(), index,
                                        [](const Clash& c, std::size_t i) { return c.index < i; });
    if (clash == m_clashes.end() || clash->index != index)
        return name.stem + name.mark;
    return WithClash(name, clash->number);
}

std::optional<std::size_t> UniqueMemberNames::FindIndex(const std::string& name) const {
    const std::uint32_t hash = HashOf(name);
    auto found = std::lower_bound(m_hashes.begin(), m_hashes.end(), hash,
                                  [](const Hashed& h, std::uint32_t value) { return h.hash < value; });
    for (; found != m_hashes.end() && found->hash == hash; ++found)
        if (NameAt(found->index) == name)
            return found->index;
    return std::nullopt;
}

std::optional<Member> UniqueMemberNames::Find(const std::string& name) const {
    const std::optional<std::size_t> index = FindIndex(name);
    return index ? std::optional(m_members[*index]) : std::nullopt;
}

std::string UniqueMemberNames::NameOfChild(ElementIndex child) const {
    const auto content = std::partition_point(m_members.begin(), m_members.end(), [](const Member& member) {
        return member.kind == MemberKind::Attribute;
    });
    const std::size_t offset = m_source.OffsetOf(m_owner, Member(child, MemberKind::Object));
    const auto found =
        std::lower_bound(content, m_members.end(), offset, [&](const Member& member, std::size_t o) {
            return m_source.OffsetOf(m_owner, member) < o;
        });
    return NameAt(static_cast<std::size_t>(found - m_members.begin()));
}

} // namespace korvel::inspector
