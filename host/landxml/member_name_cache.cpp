#include "landxml/member_name_cache.h"

#include <algorithm>
#include <utility>

namespace korvel::inspector {

// The elements in a small one have other places among the recent names than it has itself.
bool MemberNameCache::IsLarge(ElementIndex element, const UniqueMemberNames& names) const {
    return std::max<std::size_t>(names.Count(), m_members.Tree().SubtreeEnd(element) - element) >
           m_recent.size();
}

const UniqueMemberNames& MemberNameCache::NamesOf(ElementIndex element, PhaseProgress* progress) {
    if (const auto large = m_large.find(element); large != m_large.end())
        return *large->second;
    RecentNames& recent = m_recent[element % m_recent.size()];
    if (recent.element == element)
        return *recent.names;
    auto names = std::make_unique<UniqueMemberNames>(m_members, element, progress);
    if (IsLarge(element, *names))
        return *m_large.emplace(element, std::move(names)).first->second;
    recent = {element, std::move(names)};
    return *recent.names;
}

const std::string& MemberNameCache::IdentOf(ElementIndex element) {
    const auto known = m_idents.find(element);
    return known != m_idents.end() ? known->second
                                   : m_idents.emplace(element, MakeIdent(element)).first->second;
}

std::string MemberNameCache::MakeIdent(ElementIndex element) {
    const ElementIndex parent = m_members.Tree().Parent(element);
    return parent == NoElement ? m_members.NameOfElement(element).stem : NamesOf(parent).NameOfChild(element);
}

void MemberNameCache::ForgetNames(ElementIndex element) {
    m_large.erase(element);
    if (RecentNames& recent = m_recent[element % m_recent.size()]; recent.element == element)
        recent = {};
}

void MemberNameCache::Forget(ElementIndex element) {
    m_idents.erase(element);
    m_large.erase(element);
}

void MemberNameCache::Follow(ElementIndex element) {
    ForgetNames(element);
    if (const auto root = m_idents.find(0); element == 0 && root != m_idents.end())
        root->second = MakeIdent(0); // it is a member of nothing
    if (m_idents.empty())
        return;
    for (const ElementIndex child : m_members.Tree().Children(element))
        if (const auto known = m_idents.find(child); known != m_idents.end())
            known->second = MakeIdent(child);
}

void MemberNameCache::FollowAll() {
    m_large.clear();
    for (RecentNames& recent : m_recent)
        recent = {};
    for (auto& [element, ident] : m_idents)
        ident = MakeIdent(element);
}

} // namespace korvel::inspector
