#include "editing/object_state.h"

#include "korvel/values/group_presentation.h"
#include "landxml/landxml_document.h"

#include <map>
#include <tuple>

namespace korvel::inspector {
namespace {

using MemberId = std::tuple<MemberKind, std::uint32_t, std::string_view>;

MemberId IdOf(const MemberState& member) {
    return {member.kind, member.place, member.attribute};
}

bool IsOwnValue(MemberKind kind) {
    return kind != MemberKind::Object && kind != MemberKind::TextElement;
}

// The only one among `indexes` without a partner that is an attribute; None for none or several.
std::size_t OnlyAttribute(const ObjectState& state, const std::vector<std::size_t>& indexes) {
    std::size_t found = PairedStates::None;
    for (std::size_t i = 0; i < indexes.size(); ++i)
        if (indexes[i] == PairedStates::None && state.members[i].kind == MemberKind::Attribute) {
            if (found != PairedStates::None)
                return PairedStates::None;
            found = i;
        }
    return found;
}

} // namespace

ObjectState StateOf(LandXmlDocument& document, ElementIndex element) {
    ObjectState state;
    ElementObject& object = document.ObjectOf(element);
    const UniqueMemberNames& names = document.NamesOf(element);
    state.members.reserve(names.Count());
    for (std::size_t i = 0; i < names.Count(); ++i) {
        const Member& member = names.MemberAt(i);
        const bool isAttribute = member.kind == MemberKind::Attribute;
        MemberState shown{member.kind, isAttribute ? 0 : member.place, {}, names.NameAt(i), {}, false};
        if (isAttribute)
            shown.attribute = document.AddressOf(element, member).key;
        if (IsOwnValue(member.kind)) {
            shown.value = document.ValueOf(element, member);
            shown.isEditable = object.IsMemberEditable(shown.name);
        }
        state.members.push_back(std::move(shown));
    }
    if (auto* presentation = dynamic_cast<GroupPresentation*>(object.m_pEnumValue))
        state.presentation = presentation->GetPresentationText(nullptr);
    return state;
}

PairedStates::PairedStates(const ObjectState& before, const ObjectState& after)
    : newIndex(before.members.size(), None), oldIndex(after.members.size(), None) {
    std::map<MemberId, std::size_t> old;
    for (std::size_t i = 0; i < before.members.size(); ++i)
        old.emplace(IdOf(before.members[i]), i);
    const auto pair = [&](std::size_t from, std::size_t to) {
        newIndex[from] = to;
        oldIndex[to] = from;
    };
    for (std::size_t i = 0; i < after.members.size(); ++i)
        if (const auto found = old.find(IdOf(after.members[i])); found != old.end())
            pair(found->second, i);
    const std::size_t gone = OnlyAttribute(before, newIndex);
    const std::size_t added = OnlyAttribute(after, oldIndex);
    if (gone != None && gone == added)
        pair(gone, added);
}

} // namespace korvel::inspector
