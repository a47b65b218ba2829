#include "landxml/landxml_document.h"

#include "korvel/platform/code_page.h"
#include "landxml/session_type.h"
#include "source/document_error.h"
#include "source/start_tag.h"
#include "texts/messages.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace korvel::inspector {

LandXmlDocument::LandXmlDocument(const std::string& path, const ReadingOptions& options,
                                 ReadingProgress* progress)
    : LandXmlDocument(LoadDocument(path, options.encoding, progress), options) {}

LandXmlDocument::LandXmlDocument(LoadedDocument loaded, const ReadingOptions& options)
    : m_loaded(std::move(loaded)), m_members(m_loaded.tree, options), m_names(m_members) {
    CheckVersion();
}

// The namespace names the version; the attribute of that name cannot be relied on. Files without any
// namespace come from programs that strip it, and are read like those of the newest version.
void LandXmlDocument::CheckVersion() {
    const std::string_view name = Tree().Name(0);
    const std::string_view prefix = name.substr(0, name.find(':') == name.npos ? 0 : name.find(':'));
    const std::string_view address = Tree().NamespaceOf(0, prefix);
    std::string notice;
    if (Tree().LocalName(0) != "LandXML")
        notice = Say(
            {"no LandXML document, its root element is %1: shown, but read-only", {XmlError::Quoted(name)}});
    else if (!address.empty() && !IsKnownNamespace(address))
        notice = Say({"unknown LandXML version %1: shown, but read-only", {XmlError::Quoted(address)}});
    if (!notice.empty())
        m_notices.push_back(platform::FromUtf8(notice).text);
    if (!m_loaded.loss.empty())
        m_notices.push_back(platform::FromUtf8(Say({"%1; shown, but read-only", {m_loaded.loss}})).text);
}

char LandXmlDocument::OwnAngleUnit() const {
    constexpr char Degrees = '\xB0';
    const UnitSet& units = m_members.UnitsAt(0);
    const std::optional<AngleUnit> unit = units.angle.unit ? units.angle.unit : units.direction.unit;
    if (unit == AngleUnit::Radians)
        return 'r';
    return unit == AngleUnit::Grads ? 'g' : Degrees;
}

ElementObject& LandXmlDocument::ObjectOf(ElementIndex element) {
    const auto [object, isNew] = m_objects.try_emplace(element, *this, element);
    if (isNew && Tree().LocalName(element) == "Alignment")
        object->second.m_pEnumValue = &m_presentations.try_emplace(element, *this, element).first->second;
    return object->second;
}

ElementObject* LandXmlDocument::FindObject(ElementIndex element) {
    const auto object = m_objects.find(element);
    return object == m_objects.end() ? nullptr : &object->second;
}

void LandXmlDocument::Forget(ElementIndex element) {
    m_objects.erase(element);
    m_presentations.erase(element);
    m_names.Forget(element);
}

const std::optional<Member>& LandXmlDocument::FindMember(ElementIndex element, const std::string& name) {
    if (m_lastFoundIn != element || m_lastFoundName != name) {
        m_lastFoundIn = NoElement; // until all is known
        m_lastFound = NamesOf(element).Find(name);
        m_lastFoundName = name;
        m_lastFoundIn = element;
    }
    return m_lastFound;
}

const CVariantValue& LandXmlDocument::ValueOf(ElementIndex element, const Member& member) {
    const bool isLast =
        m_lastElement == element && m_lastMember.place == member.place && m_lastMember.kind == member.kind;
    if (!isLast) {
        m_lastValue = ReadValueOf(element, member);
        m_lastElement = element;
        m_lastMember = member;
    }
    return m_lastValue;
}

CVariantValue LandXmlDocument::ReadValueOf(ElementIndex element, const Member& member) const {
    const std::optional<EDataTyps> shown =
        m_sessions.empty() ? std::nullopt : SessionOf(AddressOf(element, member)).type;
    if (!shown || !member.isComplete)
        return m_members.ValueOf(element, member).value;
    const ValueType type = TypeOf(element, member);
    return ShownAs(ReadValue(type, m_members.CharactersOf(element, member), m_members.PlaceOf(element, type)),
                   *shown, m_members.CharactersOf(element, member));
}

ValueType LandXmlDocument::TypeOf(ElementIndex element, const Member& member) const {
    const ValueType own = m_members.TypeOf(element, member);
    return m_sessions.empty() ? own : TypeShownAs(own, SessionOf(AddressOf(element, member)));
}

MemberAddress LandXmlDocument::AddressOf(ElementIndex element, const Member& member) const {
    switch (member.kind) {
    case MemberKind::Attribute:
        return {element, std::string(Tree().AttributeAt(element, member.place).name)};
    case MemberKind::TextPart:
        return {element, "#" + std::to_string(member.place)};
    case MemberKind::Text:
        return {element, "@" + std::to_string(member.place)};
    default:
        return {member.place, "#"};
    }
}

const MemberSessions& LandXmlDocument::SessionsOf(ElementIndex element) const {
    static const MemberSessions none;
    const auto sessions = m_sessions.find(element);
    return sessions == m_sessions.end() ? none : sessions->second;
}

MemberSession LandXmlDocument::SessionOf(const MemberAddress& address) const {
    const MemberSessions& sessions = SessionsOf(address.element);
    const auto session = sessions.find(address.key);
    return session == sessions.end() ? MemberSession() : session->second;
}

ElementIndex LandXmlDocument::OwnerOf(const DocumentChange& change) const {
    return change.text && m_members.IsTextElement(change.element) ? Tree().Parent(change.element)
                                                                  : change.element;
}

ElementMembers::Reach LandXmlDocument::ReachOf(const DocumentChange& change) const {
    if (change.text)
        return {};
    return m_members.ReachOf(change.element, ChangedAttributes(change.before.written, change.after.written));
}

void LandXmlDocument::Put(const DocumentChange& change, Side side) {
    if (m_listener)
        m_listener->OnChanging(change);
    Write(change, side == Side::Before ? change.before : change.after);
    if (m_listener)
        m_listener->OnChanged(change);
}

void LandXmlDocument::Write(const DocumentChange& change, const DocumentChange::State& state) {
    const bool isTextElement = OwnerOf(change) != change.element;
    const Member asText(change.element, MemberKind::TextElement);
    const bool wasValid = isTextElement && m_members.ValueOf(change.element, asText).isValid;
    if (state.sessions.empty())
        m_sessions.erase(change.element);
    else
        m_sessions[change.element] = state.sessions;
    m_lastElement = NoElement;
    m_lastFoundIn = NoElement;
    if (change.text)
        m_loaded.tree.ReplaceText(change.element, *change.text, state.written);
    else
        m_loaded.tree.ReplaceStartTag(change.element, state.written);
    // One point of a terrain must not cost the names of all of them.
    if (!isTextElement || wasValid != m_members.ValueOf(change.element, asText).isValid)
        FollowNames(change);
}

void LandXmlDocument::FollowNames(const DocumentChange& change) {
    if (!change.text)
        m_members.FollowTag(change.element, ChangedAttributes(change.before.written, change.after.written));
    const ElementMembers::Reach reach = ReachOf(change);
    if (reach.units) {
        m_names.FollowAll();
        return;
    }
    m_names.Follow(OwnerOf(change));
    if (reach.parent)
        m_names.Follow(Tree().Parent(change.element));
}

} // namespace korvel::inspector
