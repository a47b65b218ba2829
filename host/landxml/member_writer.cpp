#include "landxml/member_writer.h"

#include "korvel/platform/code_page.h"
#include "landxml/landxml_document.h"
#include "landxml/session_type.h"
#include "landxml/value_reading.h"
#include "landxml/value_writing.h"
#include "source/blanks.h"
#include "source/refusal.h"
#include "source/start_tag.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <stdexcept>

namespace korvel::inspector {
namespace {

constexpr std::string_view NameAttribute = "name";

std::string Quoted(const std::string& libraryText) {
    return XmlError::Quoted(platform::ToUtf8(libraryText));
}

bool IsAttribute(const Member& member) {
    return member.kind == MemberKind::Attribute;
}

// A formula is a text that stands for a number; nothing in a LandXML file computes it.
void RefuseFormula(const CVariantValue& value) {
    const bool hasForm = value.Text.starts_with("<VB ") && value.Text.ends_with("/>");
    if (hasForm || (value.Type & (TypeBitButton | TypeBitTextForm)) != 0)
        Refuse("a LandXML file cannot hold formulas");
}

bool IsMeasure(EDataTyps type) {
    return IsNumber(type) && (type & DT_AngleDouble) == DT_Double;
}

bool IsWhole(EDataTyps type) {
    return IsNumber(type) && (type & (DT_Float | DT_Double)) == 0;
}

// The grid says which value cannot be of which type.
[[noreturn]] void RefuseConversion() {
    throw std::invalid_argument("");
}

void RequireHeldByWhole(EDataTyps type, double number) {
    const bool isUnsigned = (type & DT_UInt) != 0;
    const double lowest = isUnsigned ? 0 : std::numeric_limits<std::int32_t>::min();
    const double highest = isUnsigned ? static_cast<double>(std::numeric_limits<std::uint32_t>::max())
                                      : static_cast<double>(std::numeric_limits<std::int32_t>::max());
    const double whole = std::trunc(number);
    if (std::isnan(whole) || whole < lowest || whole > highest)
        RefuseConversion();
}

// Whether the file's text is the angle that was typed, though it is read as a neighboring double.
bool IsAngleOf(const ValueType& type, std::string_view text, const CVariantValue& value,
               const UnitSet& units) {
    const AngleScale* scale = ScaleOf(type.meaning, units);
    return scale && scale->unit && *scale->unit != AngleUnit::Radians && value.Type == DT_AngleDouble &&
           MeansRadians(text, *scale->unit, value.Value.Double);
}

MemberSession& SessionIn(DocumentChange& change, const std::string& key) {
    return change.after.sessions[key];
}

// The text in which one word is another one.
std::string WithWord(std::string_view text, std::size_t index, std::string_view word) {
    const std::string_view old = SplitAtBlanks(text)[index];
    return std::string(text).replace(static_cast<std::size_t>(old.data() - text.data()), old.size(), word);
}

// The text with other words, between the blanks that it has where it has as many.
std::string WithWords(std::string_view text, std::string_view words) {
    const std::vector<std::string_view> old = SplitAtBlanks(text);
    const std::vector<std::string_view> fresh = SplitAtBlanks(words);
    if (old.size() != fresh.size())
        return std::string(Trim(words));
    std::string result;
    std::size_t end = 0;
    for (std::size_t i = 0; i < old.size(); ++i) {
        const auto begin = static_cast<std::size_t>(old[i].data() - text.data());
        result.append(text, end, begin - end).append(fresh[i]);
        end = begin + old[i].size();
    }
    return result.append(text.substr(end));
}

} // namespace

std::optional<Member> MemberWriter::Find(const std::string& name) const {
    return m_document.NamesOf(m_owner).Find(name);
}

void MemberWriter::RequireWritable() const {
    if (m_document.IsReadOnly())
        Refuse("the document can only be read");
}

void MemberWriter::RequireReplaceable(const std::string& name, const Member& member) const {
    if (!m_document.Members().IsReplaceable(m_owner, member))
        Refuse({"%1 cannot be changed in this file", {Quoted(name)}});
}

std::string MemberWriter::AttributeName(const Member& member) const {
    return std::string(m_document.Tree().AttributeAt(m_owner, member.place).name);
}

DocumentChange MemberWriter::Begin(DocumentChange::Kind kind, const std::string& name,
                                   const MemberAddress& address) const {
    DocumentChange change{kind, name, address.element, {}, {}, {}};
    change.before = {std::string(m_document.Tree().StartTag(address.element)),
                     m_document.SessionsOf(address.element)};
    change.after = change.before;
    return change;
}

DocumentChange MemberWriter::BeginWith(DocumentChange::Kind kind, const std::string& name,
                                       const Member& member) const {
    const MemberAddress address = m_document.AddressOf(m_owner, member);
    DocumentChange change = Begin(kind, IsAttribute(member) ? ToLibraryText(address.key) : name, address);
    if (IsAttribute(member))
        return change;
    const TextSource text =
        m_document.Tree().Text(address.element, member.kind == MemberKind::Text ? member.place : 0);
    change.text = text.offset;
    change.before.written = change.after.written = std::string(text.raw);
    return change;
}

void MemberWriter::Finish(DocumentChange change) {
    std::erase_if(change.after.sessions, [](const auto& entry) { return entry.second == MemberSession(); });
    if (!(change.before == change.after))
        m_document.Put(change, LandXmlDocument::Side::After);
}

void MemberWriter::WriteText(DocumentChange& change, const Member& member, const std::string& text) const {
    const CharacterTest& isHeld = m_document.GetCharacterTest();
    std::string& written = change.after.written;
    if (IsAttribute(member)) {
        written = SetAttribute(written, AttributeName(member), text, isHeld);
        return;
    }
    const std::string old = DecodeXmlText(written, std::string::npos).utf8;
    std::string all(Trim(text));
    if (member.kind == MemberKind::TextPart && m_document.Members().TextTypeOf(m_owner).parts.size() > 1)
        all = WithWord(old, member.place, all);
    else if (member.kind == MemberKind::TextElement)
        all = WithWords(old, all);
    written = RewriteText(written, all, LineEndOf(m_document.Tree().Source()), isHeld);
}

bool MemberWriter::IsAllowed(const ValueType& type, const std::string& text) const {
    return ReadValue(type, {text, true}, m_document.Members().PlaceOf(m_owner, type)).isValid;
}

bool MemberWriter::IsAllowed(const Member& member, const ValueType& type, const std::string& text) const {
    const ElementMembers& members = m_document.Members();
    if (member.kind == MemberKind::Text)
        return members.IsTextOf(m_owner, text);
    if (member.kind == MemberKind::TextElement)
        return members.IsTextOf(member.place, text);
    return IsAllowed(type, text);
}

bool MemberWriter::Set(const std::string& name, const CVariantValue& value) {
    RequireWritable();
    const std::optional<Member> member = Find(name);
    if (!member || member->kind == MemberKind::Object)
        return false;
    RefuseFormula(value);
    RequireReplaceable(name, *member);
    const ElementMembers& members = m_document.Members();
    const ValueType type = m_document.TypeOf(m_owner, *member);
    const std::string current = members.CharactersOf(m_owner, *member).utf8;
    const ValuePlace place = members.PlaceOf(m_owner, type);
    if (MeansTheSame(type, m_document.ValueOf(m_owner, *member), value) ||
        IsAngleOf(type, current, value, place.units))
        return true;
    const std::optional<std::string> text = WriteValue(type, value, current, place);
    if (!text)
        return false;
    if (!IsAllowed(*member, type, *text))
        Refuse({"%1 is no value of %2", {XmlError::Quoted(*text), Quoted(name)}});
    DocumentChange change = BeginWith(DocumentChange::Kind::Edit, name, *member);
    WriteText(change, *member, *text);
    Finish(change);
    return true;
}

bool MemberWriter::Protect(const std::string& name, bool isProtected) {
    RequireWritable();
    const std::optional<Member> member = Find(name);
    if (!member || member->kind == MemberKind::Object)
        return false;
    RequireReplaceable(name, *member);
    DocumentChange change = BeginWith(DocumentChange::Kind::Protect, name, *member);
    const std::string key = m_document.AddressOf(m_owner, *member).key;
    SessionIn(change, key).isProtected = isProtected;
    Finish(change);
    return true;
}

// A number that loses digits in a whole type, or is not written as one, is written as what it has become; any
// other one is only shown as something else.
bool MemberWriter::ChangeType(const std::string& name, EDataTyps target) {
    RequireWritable();
    const std::optional<Member> member = Find(name);
    if (!member || member->kind == MemberKind::Object)
        return false;
    RequireReplaceable(name, *member);
    const ElementMembers& members = m_document.Members();
    const CVariantValue own = members.ValueOf(m_owner, *member).value;
    const CVariantValue old = NumberOf(*member).value_or(own);
    DocumentChange change = BeginWith(DocumentChange::Kind::Retype, name, *member);
    if (target != DT_String) {
        const CVariantValue converted = old.ChangeToType(target);
        const ValueType type = TypeShownAs(members.TypeOf(m_owner, *member), {target});
        const auto text = WriteValue(type, converted, {}, members.PlaceOf(m_owner, type));
        const bool isAllowed = IsAllowed(type, members.CharactersOf(m_owner, *member).utf8);
        bool isCut = false;
        if (IsWhole(target)) {
            const double number = static_cast<double>(old.ChangeToType(DT_Double));
            RequireHeldByWhole(target, number);
            isCut = static_cast<double>(converted) != number;
        } else if (!isAllowed) {
            RefuseConversion();
        }
        if (text && (isCut || !isAllowed))
            WriteText(change, *member, *text);
    }
    MemberSession& session = SessionIn(change, m_document.AddressOf(m_owner, *member).key);
    const bool isBack = session.type && *session.type != DT_Double && target == DT_Double &&
                        IsMeasure(own.Type); // a length again, not only a number
    session.type = target == own.Type || isBack ? std::nullopt : std::optional(target);
    session.words = nullptr;
    Finish(change);
    return true;
}

std::optional<CVariantValue> MemberWriter::NumberOf(const Member& member) const {
    if (member.kind == MemberKind::Object)
        return std::nullopt;
    const ElementMembers& members = m_document.Members();
    if (const CVariantValue& shown = m_document.ValueOf(m_owner, member); IsNumber(shown.Type))
        return shown;
    CVariantValue value = members.ValueOf(m_owner, member).value;
    if (members.TypeOf(m_owner, member).meaning == Meaning::Text)
        value = ReadValue({Meaning::Number}, members.CharactersOf(m_owner, member),
                          members.PlaceOf(m_owner, {Meaning::Number}))
                    .value;
    return IsNumber(value.Type) ? std::optional(value) : std::nullopt;
}

void MemberWriter::RequireNewAttribute(const std::string& name) const {
    const ElementTree& tree = m_document.Tree();
    CheckAttributeName(name, m_document.GetCharacterTest());
    const std::string_view prefix = PrefixOf(name);
    const auto addressOf = [&](std::string_view attribute) {
        const std::string_view own = PrefixOf(attribute);
        return own.empty() ? std::string_view() : tree.NamespaceOf(m_owner, own);
    };
    if (!prefix.empty() && prefix != "xml" && addressOf(name).empty())
        Refuse({"the prefix %1 is not declared", {XmlError::Quoted(prefix)}});
    for (const XmlAttribute& attribute : tree.Attributes(m_owner)) {
        const bool isSameLocally =
            attribute.name.substr(attribute.name.find(':') + 1) == name.substr(name.find(':') + 1);
        if (attribute.name == name || (isSameLocally && !PrefixOf(attribute.name).empty() &&
                                       !prefix.empty() && addressOf(attribute.name) == addressOf(name)))
            Refuse({"the attribute %1 is here already", {XmlError::Quoted(attribute.name)}});
    }
}

bool MemberWriter::Add(const std::string& name, bool isEditable, const CVariantValue& value) {
    RequireWritable();
    const std::string attribute = platform::ToUtf8(name);
    RequireNewAttribute(attribute);
    RefuseFormula(value);
    const ElementMembers& members = m_document.Members();
    const ValueType own = members.TypeOfAttribute(m_owner, attribute);
    MemberSession session;
    session.isProtected = !isEditable;
    session.words = dynamic_cast<LandXmlEnumeration*>(value.EnumValue);
    if (own.meaning != Meaning::Text)
        session.words = nullptr;
    else if (value.Type != DT_String && ((value.Type & TypeBitList) == 0 || session.words))
        session.type = value.Type;
    const ValueType type = TypeShownAs(own, session);
    const std::optional<std::string> text = WriteValue(type, value, {}, members.PlaceOf(m_owner, type));
    if (!text && type.meaning == Meaning::Date && value.Type == DT_Date)
        Refuse({"%1 needs a date", {XmlError::Quoted(attribute)}});
    if (!text)
        Refuse({"%1 cannot be of this type", {XmlError::Quoted(attribute)}});
    if (!IsAllowed(type, *text))
        Refuse({"%1 is no value of %2", {XmlError::Quoted(*text), XmlError::Quoted(attribute)}});
    DocumentChange change = Begin(DocumentChange::Kind::Add, name, {m_owner, attribute});
    change.after.written =
        AddAttribute(change.before.written, attribute, *text, m_document.GetCharacterTest());
    SessionIn(change, attribute) = session;
    Finish(change);
    return true;
}

bool MemberWriter::Remove(const std::string& name) {
    RequireWritable();
    const std::optional<Member> member = Find(name);
    if (!member)
        return false;
    if (!IsAttribute(*member))
        Refuse("only attributes can be removed");
    const std::string attribute = AttributeName(*member);
    CheckAttributeName(attribute, {});
    DocumentChange change = BeginWith(DocumentChange::Kind::Remove, name, *member);
    change.after.written = RemoveAttribute(change.before.written, attribute);
    change.after.sessions.erase(attribute);
    Finish(change);
    return true;
}

std::optional<std::string> MemberWriter::LabelOf(const std::string& name) const {
    const std::optional<Member> member = Find(name);
    if (!member)
        return std::nullopt;
    if (IsAttribute(*member))
        return ToLibraryText(AttributeName(*member));
    const ElementTree& tree = m_document.Tree();
    if (member->kind != MemberKind::Object ||
        tree.FindAttribute(member->place, NameAttribute).data() == nullptr)
        return std::nullopt;
    return ToLibraryText(
        DecodeXmlAttribute(tree.FindAttribute(member->place, NameAttribute), std::string::npos).utf8);
}

bool MemberWriter::Rename(const std::string& name, const std::string& newName) {
    RequireWritable();
    const std::optional<Member> member = Find(name);
    if (!member)
        return false;
    const std::optional<std::string> label = LabelOf(name);
    if (!label)
        Refuse({"%1 cannot be renamed: only attributes and elements with the attribute 'name' can",
                {Quoted(name)}});
    if (*label == newName)
        return true;
    if (!IsAttribute(*member)) {
        MemberWriter(m_document, member->place).SetOwnName(newName);
        return true;
    }
    const std::string attribute = AttributeName(*member);
    const std::string newAttribute = platform::ToUtf8(newName);
    CheckAttributeName(attribute, {});
    RequireNewAttribute(newAttribute);
    DocumentChange change = BeginWith(DocumentChange::Kind::Rename, name, *member);
    change.after.written = RenameAttribute(change.before.written, attribute, newAttribute);
    if (auto session = change.after.sessions.extract(attribute)) {
        session.key() = newAttribute;
        change.after.sessions.insert(std::move(session));
    }
    Finish(change);
    return true;
}

void MemberWriter::SetOwnName(const std::string& name) {
    RequireWritable();
    CVariantValue text;
    text.Text = name;
    RefuseFormula(text);
    if (m_document.Tree().FindAttribute(m_owner, NameAttribute).data() == nullptr)
        Refuse({"%1 cannot be renamed: only attributes and elements with the attribute 'name' can",
                {Quoted(m_document.IdentOf(m_owner))}});
    DocumentChange change = Begin(DocumentChange::Kind::Rename, m_document.IdentOf(m_owner),
                                  {m_owner, std::string(NameAttribute)});
    change.after.written = SetAttribute(change.before.written, NameAttribute, platform::ToUtf8(name),
                                        m_document.GetCharacterTest());
    Finish(change);
}

} // namespace korvel::inspector
