#include "editing/changed_member.h"

#include "landxml/landxml_document.h"
#include "source/start_tag.h"

#include <algorithm>
#include <vector>

namespace korvel::inspector {
namespace {

// The attributes that differ on the two sides, in the file or for this run only.
std::vector<std::string> KeysOf(const DocumentChange& change) {
    std::vector<std::string> keys = ChangedAttributes(change.before.written, change.after.written);
    for (const DocumentChange::State* state : {&change.before, &change.after})
        for (const auto& [key, session] : state->sessions) {
            const MemberSessions& others = (state == &change.before ? change.after : change.before).sessions;
            const auto other = others.find(key);
            if (other == others.end() || !(other->second == session))
                keys.push_back(key);
        }
    return keys;
}

bool IsKeyOfText(const std::string& key) {
    return key.starts_with('#') || key.starts_with('@'); // neither begins a name
}

bool IsText(const Member& member) {
    return member.kind == MemberKind::Text || member.kind == MemberKind::TextPart;
}

} // namespace

ChangedMember MemberOf(LandXmlDocument& document, const DocumentChange& change) {
    const ElementIndex owner = document.OwnerOf(change);
    const UniqueMemberNames& names = document.NamesOf(owner);
    if (owner != change.element)
        return {owner, names.NameOfChild(change.element)};
    if (change.text && names.Find(change.member))
        return {owner, change.member}; // of several parts of a text it is this one
    const std::vector<std::string> keys = change.text ? std::vector<std::string>() : KeysOf(change);
    for (std::size_t i = 0; i < names.Count(); ++i) {
        const Member& member = names.MemberAt(i);
        const bool isMeant = change.text ? IsText(member)
                                         : member.kind == MemberKind::Attribute &&
                                               std::find(keys.begin(), keys.end(),
                                                         document.AddressOf(owner, member).key) != keys.end();
        if (isMeant)
            return {owner, names.NameAt(i)};
    }
    return {owner, {}};
}

ChangedMember MemberAt(LandXmlDocument& document, const MemberAddress& address) {
    const ElementIndex element = address.element;
    const ElementIndex parent = document.Tree().Parent(element);
    if (address.key.empty() || document.Members().IsTextElement(element))
        return parent == NoElement ? ChangedMember{element, {}}
                                   : ChangedMember{parent, document.NamesOf(parent).NameOfChild(element)};
    const UniqueMemberNames& names = document.NamesOf(element);
    std::string otherText; // the parts of a text are others when it was edited
    for (std::size_t i = 0; i < names.Count(); ++i) {
        const Member& member = names.MemberAt(i);
        if (document.AddressOf(element, member).key == address.key)
            return {element, names.NameAt(i)};
        if (otherText.empty() && IsText(member) && IsKeyOfText(address.key))
            otherText = names.NameAt(i);
    }
    return {element, otherText};
}

} // namespace korvel::inspector
