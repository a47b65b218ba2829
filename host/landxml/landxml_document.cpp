#include "landxml/landxml_document.h"

#include "korvel/platform/code_page.h"
#include "source/document_error.h"
#include "texts/messages.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace korvel::inspector {

LandXmlDocument::LandXmlDocument(const std::string& path, const ReadingOptions& options)
    : LandXmlDocument(LoadDocument(path, options.encoding), options) {}

LandXmlDocument::LandXmlDocument(LoadedDocument loaded, const ReadingOptions& options)
    : m_loaded(std::move(loaded)), m_members(m_loaded.tree, options) {
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

void LandXmlDocument::Forget(ElementIndex element) {
    m_objects.erase(element);
    m_presentations.erase(element);
    m_idents.erase(element);
    m_namesOfLarge.erase(element);
}

const std::string& LandXmlDocument::IdentOf(ElementIndex element) {
    const auto known = m_idents.find(element);
    if (known != m_idents.end())
        return known->second;
    const ElementIndex parent = Tree().Parent(element);
    const std::string name =
        parent == NoElement ? m_members.NameOfElement(element).stem : NamesOf(parent).NameOfChild(element);
    return m_idents.emplace(element, name).first->second;
}

// The elements in a small one have other places among the recent names than it has itself.
bool LandXmlDocument::IsLarge(ElementIndex element, const UniqueMemberNames& names) const {
    return std::max<std::size_t>(names.Count(), Tree().SubtreeEnd(element) - element) > m_recentNames.size();
}

const UniqueMemberNames& LandXmlDocument::NamesOf(ElementIndex element) {
    if (const auto large = m_namesOfLarge.find(element); large != m_namesOfLarge.end())
        return *large->second;
    RecentNames& recent = m_recentNames[element % m_recentNames.size()];
    if (recent.element == element)
        return *recent.names;
    auto names = std::make_unique<UniqueMemberNames>(m_members, element);
    if (IsLarge(element, *names))
        return *m_namesOfLarge.emplace(element, std::move(names)).first->second;
    recent = {element, std::move(names)};
    return *recent.names;
}

const CVariantValue& LandXmlDocument::ValueOf(ElementIndex element, const Member& member) {
    const bool isLast =
        m_lastElement == element && m_lastMember.place == member.place && m_lastMember.kind == member.kind;
    if (!isLast) {
        m_lastValue = m_members.ValueOf(element, member).value;
        m_lastElement = element;
        m_lastMember = member;
    }
    return m_lastValue;
}

} // namespace korvel::inspector
