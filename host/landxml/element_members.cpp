#include "landxml/element_members.h"

#include "landxml/known_elements.h"
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

std::string_view PrefixOf(std::string_view name) {
    const std::size_t colon = name.find(':');
    return colon == std::string_view::npos ? std::string_view() : name.substr(0, colon);
}

bool DeclaresNamespace(std::string_view attribute) {
    return attribute == "xmlns" || PrefixOf(attribute) == "xmlns";
}

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

bool ElementMembers::IsForeign(ElementIndex owner, std::string_view attribute) const {
    const std::string_view prefix = PrefixOf(attribute);
    return !prefix.empty() && !DeclaresNamespace(attribute) && !IsLandXml(m_tree.NamespaceOf(owner, prefix));
}

bool ElementMembers::IsUnknown(ElementIndex element) const {
    return (m_rootNamespace.empty() || IsKnownNamespace(m_rootNamespace)) && !IsForeign(element) &&
           !IsKnownElement(m_tree.LocalName(element));
}

std::vector<Member> ElementMembers::List(ElementIndex owner, PhaseProgress* progress) const {
    std::vector<Member> members;
    for (const XmlAttribute& attribute : m_tree.Attributes(owner)) {
        const std::uint32_t place = m_tree.PlaceOf(owner, attribute);
        members.push_back(WithFlags(owner, Member(place, MemberKind::Attribute)));
    }
    const std::vector<TextSource> texts = m_tree.Texts(owner);
    auto text = texts.begin();
    for (const ElementIndex child : m_tree.Children(owner)) {
        if (progress)
            progress->Reach(child);
        for (; text != texts.end() && text->offset < m_tree.OffsetOf(child); ++text)
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
    if (Trim(characters.utf8).empty() && !text.isEdited)
        return;
    const TextType type = TextTypeOf(owner);
    const std::size_t count = type.parts.size() == 1 ? 1 : SplitAtBlanks(characters.utf8).size();
    if (!isOnly || !characters.complete || count < type.required || count > type.parts.size()) {
        const auto offset = static_cast<std::uint32_t>(text.offset);
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
    // Those of the file, so that no edit turns an object into a text.
    const std::vector<XmlAttribute> attributes = m_tree.SourceAttributes(element);
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
        const XmlAttribute attribute = m_tree.AttributeAt(owner, member.place);
        type = TypeOfAttribute(owner, attribute.name);
        name.stem = ToLibraryText(std::string(attribute.name));
        name.mark = IsForeign(owner, attribute.name) ? ForeignMark : "";
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
ValueType ElementMembers::TypeOfAttribute(ElementIndex owner, std::string_view name) const {
    if (DeclaresNamespace(name) || IsForeign(owner, name) || IsForeign(owner))
        return {};
    ValueType type = inspector::TypeOfAttribute(m_tree.LocalName(owner), name);
    if (type.meaning == Meaning::SlopeOrLength) {
        std::string kind(name);
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
        return AttributeValue(owner, m_tree.AttributeAt(owner, member.place));
    case MemberKind::TextPart:
        return TextPartValue(owner, member);
    case MemberKind::Text:
        return TextValue(owner, member);
    case MemberKind::TextElement:
        return TextElementValue(owner, member);
    default:
        return {};
    }
}

TypedValue ElementMembers::AttributeValue(ElementIndex owner, const XmlAttribute& attribute) const {
    return Read(owner, TypeOfAttribute(owner, attribute.name),
                DecodeXmlAttribute(attribute.value, m_options.longestValue));
}

ValueType ElementMembers::TypeOf(ElementIndex owner, const Member& member) const {
    if (member.kind == MemberKind::Attribute)
        return TypeOfAttribute(owner, m_tree.AttributeAt(owner, member.place).name);
    return member.kind == MemberKind::TextPart ? TextTypeOf(owner).parts[member.place].type : ValueType();
}

XmlCharacters ElementMembers::CharactersOf(ElementIndex owner, const Member& member) const {
    return CharactersOf(owner, member, m_options.longestValue);
}

XmlCharacters ElementMembers::CharactersOf(ElementIndex owner, const Member& member,
                                           std::size_t longest) const {
    if (member.kind == MemberKind::Attribute)
        return DecodeXmlAttribute(m_tree.AttributeAt(owner, member.place).value, longest);
    const bool isChild = member.kind == MemberKind::TextElement;
    const TextSource source = isChild                               ? m_tree.Text(member.place)
                              : member.kind == MemberKind::TextPart ? m_tree.Text(owner)
                                                                    : m_tree.Text(owner, member.place);
    XmlCharacters text = source.Decode(longest);
    if (member.kind == MemberKind::TextPart && TextTypeOf(owner).parts.size() > 1)
        text.utf8 = std::string(SplitAtBlanks(text.utf8)[member.place]);
    else
        text.utf8 = isChild ? JoinWithBlanks(SplitAtBlanks(text.utf8)) : std::string(Trim(text.utf8));
    return text;
}

TypedValue ElementMembers::TextPartValue(ElementIndex owner, const Member& member) const {
    return Read(owner, TypeOf(owner, member), CharactersOf(owner, member));
}

TypedValue ElementMembers::TextValue(ElementIndex owner, const Member& member) const {
    TypedValue value = Read(owner, {}, CharactersOf(owner, member));
    value.isValid = TextTypeOf(owner).parts.size() == 1;
    return value;
}

// Only the points of terrains have a type: rows of numbers.
TypedValue ElementMembers::TextElementValue(ElementIndex owner, const Member& member) const {
    const XmlCharacters text = CharactersOf(owner, member);
    const std::vector<std::string_view> words = SplitAtBlanks(text.utf8);
    const TextType type = TypeOfText(m_tree.LocalName(member.place));
    const bool isRow = words.size() >= type.required && words.size() <= type.parts.size() &&
                       std::all_of(words.begin(), words.end(), [](std::string_view word) {
                           return ReadDouble(word) || IsNotFinite(word);
                       });
    TypedValue value = Read(member.place, {}, text);
    value.isValid = type.parts.size() == 1 || (text.complete && isRow);
    return value;
}

bool ElementMembers::IsTextOf(ElementIndex element, const std::string& utf8) const {
    const TextType type = TextTypeOf(element);
    if (type.parts.size() == 1)
        return Read(element, type.parts.front().type, {utf8, true}).isValid;
    const std::vector<std::string_view> words = SplitAtBlanks(utf8);
    return words.size() >= type.required && words.size() <= type.parts.size() &&
           std::equal(words.begin(), words.end(), type.parts.begin(),
                      [&](std::string_view word, const TextPart& part) {
                          return Read(element, part.type, {std::string(word), true}).isValid;
                      });
}

void ElementMembers::FollowTag(ElementIndex element, const std::vector<std::string>& attributes) {
    m_scopes.FollowTag(element, attributes);
}

ElementMembers::Reach ElementMembers::ReachOf(ElementIndex element,
                                              const std::vector<std::string>& attributes) const {
    const auto* naming = std::find_first_of(NameAttributes.begin(), NameAttributes.end(), attributes.begin(),
                                            attributes.end());
    return {naming != NameAttributes.end() && m_tree.Parent(element) != NoElement,
            !attributes.empty() && m_scopes.NamesUnits(element),
            m_scopes.SaysWhereRailwaysAre(element, attributes)};
}

std::size_t ElementMembers::OffsetOf(ElementIndex owner, const Member& member) const {
    switch (member.kind) {
    case MemberKind::TextPart:
        return m_tree.Text(owner).offset;
    case MemberKind::TextElement:
    case MemberKind::Object:
        return m_tree.OffsetOf(member.place);
    default:
        return member.place;
    }
}

bool ElementMembers::IsReplaceable(ElementIndex owner, const Member& member) const {
    switch (member.kind) {
    case MemberKind::Attribute:
        return member.isComplete && !DeclaresNamespace(m_tree.AttributeAt(owner, member.place).name);
    case MemberKind::TextPart:
        return member.isComplete && IsReplaceablePart(owner);
    case MemberKind::Text:
        return member.isComplete && m_tree.Text(owner, member.place).IsPlain();
    case MemberKind::TextElement:
        return member.isComplete && HasPlainText(member.place);
    default:
        return false;
    }
}

// An element without any text has no place for one.
bool ElementMembers::HasPlainText(ElementIndex element) const {
    const TextSource text = m_tree.Text(element);
    return text.IsPlain() && (text.isEdited || !text.raw.empty());
}

// Of several values a reference could hide the blank between two of them.
bool ElementMembers::IsReplaceablePart(ElementIndex owner) const {
    const TextSource text = m_tree.Text(owner);
    const bool isOnly = TextTypeOf(owner).parts.size() == 1;
    return text.IsPlain() && (isOnly || text.raw.find('&') == std::string_view::npos);
}

} // namespace korvel::inspector
