#include "landxml/element_members.h"

#include "landxml/number_reading.h"
#include "source/blanks.h"

#include <algorithm>
#include <array>

namespace korvel::inspector {
namespace {

constexpr const char* InvalidMark = " [invalid]";
constexpr const char* ForeignMark = " [foreign]";

// Longer texts are shown up to here; a cell does not get better by megabytes.
constexpr std::size_t LongestShownText = 65'536;
constexpr std::size_t LongestOwnName = 200;

constexpr std::array<std::string_view, 2> NameAttributes = {"name", "id"};
constexpr std::array<std::string_view, 2> TextElements = {"P", "F"};

constexpr std::string_view KnownNamespaces[] = {
    "http://www.landxml.org/schema/LandXML-1.0", "http://www.landxml.org/schema/LandXML-1.1",
    "http://www.landxml.org/schema/LandXML-1.2", "http://www.landxml.org/schema/LandXML-2.0",
    "http://www.inframodel.fi/inframodel",       "http://buildingsmart.fi/inframodel/404",
};

std::string_view PrefixOf(std::string_view name) {
    const std::size_t colon = name.find(':');
    return colon == std::string_view::npos ? std::string_view() : name.substr(0, colon);
}

bool DeclaresNamespace(std::string_view attribute) {
    return attribute == "xmlns" || PrefixOf(attribute) == "xmlns";
}

std::string InBrackets(std::string_view unit) {
    return unit.empty() ? std::string() : " [" + std::string(unit) + "]";
}

std::string JoinWithBlanks(const std::vector<std::string_view>& words) {
    std::string text;
    for (const std::string_view word : words) {
        if (!text.empty())
            text += ' ';
        text += word;
    }
    return text;
}

} // namespace

bool IsKnownNamespace(std::string_view address) {
    return std::find(std::begin(KnownNamespaces), std::end(KnownNamespaces), address) !=
           std::end(KnownNamespaces);
}

ElementMembers::ElementMembers(const ElementTree& tree, StationKind stations, IFileValue* fileChooser)
    : m_tree(tree), m_scopes(tree), m_stations(stations), m_fileChooser(fileChooser),
      m_rootNamespace(tree.NamespaceOf(0, PrefixOf(tree.Name(0)))) {}

bool ElementMembers::IsLandXml(std::string_view address) const {
    return address == m_rootNamespace || IsKnownNamespace(address);
}

bool ElementMembers::IsForeign(ElementIndex element) const {
    return !IsLandXml(m_tree.NamespaceOf(element, PrefixOf(m_tree.Name(element))));
}

bool ElementMembers::IsForeign(ElementIndex owner, const XmlAttribute& attribute) const {
    const std::string_view prefix = PrefixOf(attribute.name);
    return !prefix.empty() && !DeclaresNamespace(attribute.name) &&
           !IsLandXml(m_tree.NamespaceOf(owner, prefix));
}

std::vector<Member> ElementMembers::List(ElementIndex owner) const {
    std::vector<Member> members;
    for (const XmlAttribute& attribute : m_tree.Attributes(owner)) {
        const auto place = static_cast<std::uint32_t>(m_tree.OffsetOf(attribute.name));
        members.push_back(WithFlags(owner, Member(place, MemberKind::Attribute)));
    }
    ListTextParts(owner, members);
    for (const ElementIndex child : m_tree.Children(owner))
        if (IsTextElement(child))
            members.push_back(WithFlags(owner, Member(child, MemberKind::TextElement)));
        else
            members.emplace_back(child, MemberKind::Object);
    return members;
}

Member ElementMembers::WithFlags(ElementIndex owner, Member member) const {
    const TypedValue value = ValueOf(owner, member);
    member.isValid = value.isValid;
    member.isExact = value.isExact;
    return member;
}

void ElementMembers::ListTextParts(ElementIndex owner, std::vector<Member>& members) const {
    const XmlCharacters text = m_tree.Text(owner).Decode(LongestShownText);
    if (Trim(text.utf8).empty())
        return;
    const TextType type = TextTypeOf(owner);
    const std::size_t count = type.parts.size() == 1 ? 1 : SplitAtBlanks(text.utf8).size();
    if (!text.complete || count < type.required || count > type.parts.size()) {
        members.push_back(WithFlags(owner, Member(WholeText, MemberKind::TextPart)));
        return;
    }
    for (std::uint32_t part = 0; part < count; ++part)
        members.push_back(WithFlags(owner, Member(part, MemberKind::TextPart)));
}

bool ElementMembers::IsTextElement(ElementIndex element) const {
    const std::string_view name = m_tree.LocalName(element);
    if (std::find(TextElements.begin(), TextElements.end(), name) == TextElements.end())
        return false;
    if (m_tree.HasChildren(element) || IsForeign(element))
        return false;
    const std::vector<XmlAttribute> attributes = m_tree.Attributes(element);
    return attributes.empty() || (attributes.size() == 1 && attributes.front().name == "id");
}

std::string_view ElementMembers::OwnName(ElementIndex element) const {
    for (const std::string_view attribute : NameAttributes)
        if (const std::string_view name = Trim(m_tree.FindAttribute(element, attribute)); !name.empty())
            return name;
    return {};
}

std::string ElementMembers::DisplayName(ElementIndex element) const {
    return std::string(IsForeign(element) ? m_tree.Name(element) : m_tree.LocalName(element));
}

MemberName ElementMembers::NameOfElement(ElementIndex element) const {
    std::string name = DisplayName(element);
    if (const std::string_view own = OwnName(element); !own.empty()) {
        const XmlCharacters text = DecodeXmlAttribute(own, LongestOwnName);
        name += ' ' + text.utf8 + (text.complete ? "" : "...");
    }
    return {ToLibraryText(name).text, IsForeign(element) ? ForeignMark : ""};
}

MemberName ElementMembers::NameOf(ElementIndex owner, const Member& member) const {
    MemberName name;
    ValueType type;
    switch (member.kind) {
    case MemberKind::Object:
    case MemberKind::TextElement:
        name = NameOfElement(member.place);
        break;
    case MemberKind::Attribute: {
        const XmlAttribute attribute = m_tree.AttributeAt(member.place);
        type = AttributeType(owner, attribute);
        name.stem = ToLibraryText(std::string(attribute.name)).text;
        name.mark = IsForeign(owner, attribute) ? ForeignMark : "";
        break;
    }
    case MemberKind::TextPart:
        name.stem = "text";
        if (member.place != WholeText) {
            const TextPart& part = TextTypeOf(owner).parts[member.place];
            type = part.type;
            name.stem = part.name;
        }
        break;
    }
    if (!member.isValid)
        name.mark = InvalidMark;
    else if (type.meaning != Meaning::Text)
        name.stem += InBrackets(UnitOf(type, PlaceOf(owner, type)));
    return name;
}

// What is no part of LandXML is text.
ValueType ElementMembers::AttributeType(ElementIndex owner, const XmlAttribute& attribute) const {
    if (DeclaresNamespace(attribute.name) || IsForeign(owner, attribute) || IsForeign(owner))
        return {};
    ValueType type = TypeOfAttribute(m_tree.LocalName(owner), attribute.name);
    if (type.meaning == Meaning::SlopeOrLength) {
        std::string kind(attribute.name);
        kind.replace(kind.rfind("Value"), 5, "Type");
        type.meaning = m_tree.FindAttribute(owner, kind) == "slope" ? Meaning::Percent : Meaning::Length;
    }
    return type;
}

TextType ElementMembers::TextTypeOf(ElementIndex element) const {
    const std::string_view name = m_tree.LocalName(element);
    const bool isSlope =
        name == "CrossSectPnt" && m_tree.FindAttribute(element, "dataFormat") == "Slope Distance";
    return TypeOfText(isSlope || IsForeign(element) ? std::string_view() : name);
}

ValuePlace ElementMembers::PlaceOf(ElementIndex owner, const ValueType& type) const {
    const bool isStation = type.meaning == Meaning::Station;
    const bool isRailway =
        isStation && (m_stations == StationKind::Automatic ? m_scopes.IsRailway(owner)
                                                           : m_stations == StationKind::Railway);
    return {m_scopes.UnitsAt(owner), isRailway, m_fileChooser};
}

TypedValue ElementMembers::Read(ElementIndex owner, const ValueType& type, const XmlCharacters& text) const {
    return ReadValue(type, text, PlaceOf(owner, type));
}

TypedValue ElementMembers::ValueOf(ElementIndex owner, const Member& member) const {
    switch (member.kind) {
    case MemberKind::Attribute:
        return AttributeValue(owner, m_tree.AttributeAt(member.place));
    case MemberKind::TextPart:
        return TextPartValue(owner, member.place);
    case MemberKind::TextElement:
        return TextElementValue(member.place);
    default:
        return {};
    }
}

TypedValue ElementMembers::AttributeValue(ElementIndex owner, const XmlAttribute& attribute) const {
    return Read(owner, AttributeType(owner, attribute),
                DecodeXmlAttribute(attribute.value, LongestShownText));
}

TypedValue ElementMembers::TextPartValue(ElementIndex owner, std::uint32_t part) const {
    XmlCharacters text = m_tree.Text(owner).Decode(LongestShownText);
    text.utf8 = Trim(text.utf8);
    const TextType type = TextTypeOf(owner);
    if (part == WholeText) {
        TypedValue value = Read(owner, {}, text);
        value.isValid = type.parts.size() == 1;
        return value;
    }
    if (type.parts.size() > 1)
        text.utf8 = std::string(SplitAtBlanks(text.utf8)[part]);
    return Read(owner, type.parts[part].type, text);
}

// Only the points of terrains have a type: rows of numbers.
TypedValue ElementMembers::TextElementValue(ElementIndex element) const {
    XmlCharacters text = m_tree.Text(element).Decode(LongestShownText);
    const std::vector<std::string_view> words = SplitAtBlanks(text.utf8);
    const TextType type = TypeOfText(m_tree.LocalName(element));
    const bool isRow = words.size() >= type.required && words.size() <= type.parts.size() &&
                       std::all_of(words.begin(), words.end(), [](std::string_view word) {
                           return ReadDouble(word) || IsNotFinite(word);
                       });
    text.utf8 = JoinWithBlanks(words);
    TypedValue value = Read(element, {}, text);
    value.isValid = type.parts.size() == 1 || (text.complete && isRow);
    return value;
}

bool ElementMembers::IsReplaceable(ElementIndex owner, const Member& member) const {
    switch (member.kind) {
    case MemberKind::Attribute:
        return member.isExact && !DeclaresNamespace(m_tree.AttributeAt(member.place).name);
    case MemberKind::TextPart:
        return member.isExact && m_tree.Text(owner).IsPlain();
    case MemberKind::TextElement:
        return member.isExact && m_tree.Text(member.place).IsPlain();
    default:
        return false;
    }
}

} // namespace korvel::inspector
