#include "landxml/element_members.h"

#include "landxml/number_reading.h"
#include "source/blanks.h"

#include <algorithm>
#include <array>

namespace korvel::inspector {
namespace {

constexpr const char* InvalidMark = " [invalid]";
constexpr const char* ForeignMark = " [foreign]";

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

ElementMembers::ElementMembers(const ElementTree& tree, const ReadingOptions& options)
    : m_tree(tree), m_scopes(tree), m_options(options),
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
    const std::vector<TextSource> texts = m_tree.Texts(owner);
    auto text = texts.begin();
    for (const ElementIndex child : m_tree.Children(owner)) {
        for (; text != texts.end() && text->raw.data() < m_tree.Name(child).data(); ++text)
            ListText(owner, *text, texts.size() == 1, members);
        members.push_back(ChildMember(owner, child));
    }
    for (; text != texts.end(); ++text)
        ListText(owner, *text, texts.size() == 1, members);
    return members;
}

Member ElementMembers::ChildMember(ElementIndex owner, ElementIndex child) const {
    return IsTextElement(child) ? WithFlags(owner, Member(child, MemberKind::TextElement))
                                : Member(child, MemberKind::Object);
}

Member ElementMembers::WithFlags(ElementIndex owner, Member member) const {
    const TypedValue value = ValueOf(owner, member);
    member.isValid = value.isValid;
    member.isComplete = value.isComplete;
    return member;
}

void ElementMembers::ListText(ElementIndex owner, const TextSource& text, bool isOnly,
                              std::vector<Member>& members) const {
    const XmlCharacters characters = text.Decode(m_options.longestValue);
    if (Trim(characters.utf8).empty())
        return;
    const TextType type = TextTypeOf(owner);
    const std::size_t count = type.parts.size() == 1 ? 1 : SplitAtBlanks(characters.utf8).size();
    if (!isOnly || !characters.complete || count < type.required || count > type.parts.size()) {
        const auto offset = static_cast<std::uint32_t>(m_tree.OffsetOf(text.raw));
        members.push_back(WithFlags(owner, Member(offset, MemberKind::Text)));
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
        const bool showsAll = m_options.longestValue == ReadingOptions::All;
        const XmlCharacters text = DecodeXmlAttribute(own, showsAll ? ReadingOptions::All : LongestOwnName);
        name += ' ' + text.utf8 + (text.complete ? "" : "...");
    }
    return {ToLibraryText(name), IsForeign(element) ? ForeignMark : ""};
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
        name.stem = ToLibraryText(std::string(attribute.name));
        name.mark = IsForeign(owner, attribute) ? ForeignMark : "";
        if (type.meaning == Meaning::Date && member.isValid)
            name.stem += InBrackets(ZoneOfDate(DecodeXmlAttribute(attribute.value, LongestOwnName).utf8));
        break;
    }
    case MemberKind::TextPart: {
        const TextPart& part = TextTypeOf(owner).parts[member.place];
        type = part.type;
        name.stem = part.name;
        break;
    }
    case MemberKind::Text:
        name.stem = "text";
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
        type.meaning = m_tree.AttributeText(owner, kind) == "slope" ? Meaning::Percent : Meaning::Length;
    }
    return type;
}

TextType ElementMembers::TextTypeOf(ElementIndex element) const {
    const std::string_view name = m_tree.LocalName(element);
    const bool isSlope =
        name == "CrossSectPnt" && m_tree.AttributeText(element, "dataFormat") == "Slope Distance";
    return TypeOfText(isSlope || IsForeign(element) ? std::string_view() : name);
}

ValuePlace ElementMembers::PlaceOf(ElementIndex owner, const ValueType& type) const {
    const bool isStation = type.meaning == Meaning::Station;
    const bool isRailway = isStation && (m_options.stations == StationKind::Automatic
                                             ? m_scopes.IsRailway(owner)
                                             : m_options.stations == StationKind::Railway);
    return {m_scopes.UnitsAt(owner), isRailway, m_options.fileChooser};
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
    case MemberKind::Text:
        return TextValue(owner, member.place);
    case MemberKind::TextElement:
        return TextElementValue(member.place);
    default:
        return {};
    }
}

TypedValue ElementMembers::AttributeValue(ElementIndex owner, const XmlAttribute& attribute) const {
    return Read(owner, AttributeType(owner, attribute),
                DecodeXmlAttribute(attribute.value, m_options.longestValue));
}

TypedValue ElementMembers::TextPartValue(ElementIndex owner, std::uint32_t part) const {
    XmlCharacters text = m_tree.Text(owner).Decode(m_options.longestValue);
    text.utf8 = Trim(text.utf8);
    const TextType type = TextTypeOf(owner);
    if (type.parts.size() > 1)
        text.utf8 = std::string(SplitAtBlanks(text.utf8)[part]);
    return Read(owner, type.parts[part].type, text);
}

TypedValue ElementMembers::TextValue(ElementIndex owner, std::uint32_t offset) const {
    XmlCharacters text = m_tree.Text(owner, offset).Decode(m_options.longestValue);
    text.utf8 = Trim(text.utf8);
    TypedValue value = Read(owner, {}, text);
    value.isValid = TextTypeOf(owner).parts.size() == 1;
    return value;
}

std::size_t ElementMembers::OffsetOf(ElementIndex owner, const Member& member) const {
    switch (member.kind) {
    case MemberKind::TextPart:
        return m_tree.OffsetOf(m_tree.Text(owner).raw);
    case MemberKind::TextElement:
    case MemberKind::Object:
        return m_tree.OffsetOf(m_tree.Name(member.place));
    default:
        return member.place;
    }
}

// Only the points of terrains have a type: rows of numbers.
TypedValue ElementMembers::TextElementValue(ElementIndex element) const {
    XmlCharacters text = m_tree.Text(element).Decode(m_options.longestValue);
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
        return member.isComplete && !DeclaresNamespace(m_tree.AttributeAt(member.place).name);
    case MemberKind::TextPart:
        return member.isComplete && m_tree.Text(owner).IsPlain();
    case MemberKind::Text:
        return member.isComplete && m_tree.Text(owner, member.place).IsPlain();
    case MemberKind::TextElement:
        return member.isComplete && m_tree.Text(member.place).IsPlain();
    default:
        return false;
    }
}

} // namespace korvel::inspector
