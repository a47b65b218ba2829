#include "korvel/documents/xml_scanner.h"

#include <algorithm>
#include <charconv>
#include <string>

namespace korvel {
namespace {

bool StartsName(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == ':' || (c & 0x80) != 0;
}

// Kept for XML itself, in any case.
bool IsXmlName(std::string_view name) {
    constexpr std::string_view Xml = "xml";
    return std::equal(name.begin(), name.end(), Xml.begin(), Xml.end(),
                      [](char c, char lower) { return (c | 0x20) == lower; });
}

bool ContinuesName(char c) {
    return StartsName(c) || (c >= '0' && c <= '9') || c == '-' || c == '.';
}

} // namespace

char32_t XmlScanner::Referenced(std::string_view reference) {
    struct NamedCharacter {
        std::string_view name;
        char32_t character;
    };
    static constexpr NamedCharacter Predefined[] = {
        {"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}};
    for (const NamedCharacter& entity : Predefined)
        if (entity.name == reference)
            return entity.character;
    if (!reference.starts_with('#'))
        return 0;
    const bool hexadecimal = reference.starts_with("#x");
    const std::string_view digits = reference.substr(hexadecimal ? 2 : 1);
    unsigned number = 0;
    const auto [end, error] =
        std::from_chars(digits.data(), digits.data() + digits.size(), number, hexadecimal ? 16 : 10);
    const bool complete = error == std::errc() && end == digits.data() + digits.size();
    return complete && IsCharacter(number) ? number : 0;
}

void XmlScanner::Fail(std::size_t offset, const XmlReason& reason, XmlError::Cause cause) const {
    throw XmlError(m_document, offset, reason, cause);
}

void XmlScanner::FailUnlessCutOff(std::string_view expected, const XmlReason& reason) const {
    Fail(m_position, reason, IsCutOffIn(expected) ? XmlError::Cause::CutOff : XmlError::Cause::WrongHere);
}

bool XmlScanner::IsCutOffIn(std::string_view literal) const {
    const std::string_view rest = m_document.substr(m_position);
    return rest.size() < literal.size() && literal.starts_with(rest);
}

bool XmlScanner::Skip(std::string_view literal) {
    if (!IsAt(literal))
        return false;
    m_position += literal.size();
    return true;
}

bool XmlScanner::SkipBlanks() {
    const std::size_t start = m_position;
    while (!AtEnd() && IsBlank(m_document[m_position]))
        ++m_position;
    return m_position != start;
}

std::string_view XmlScanner::TakeName() {
    const std::size_t start = m_position;
    if (AtEnd())
        FailCutOff(start, "the document ends where a name is expected");
    if (!StartsName(m_document[start]))
        Fail(start, "a name is expected here");
    while (!AtEnd() && ContinuesName(m_document[m_position]))
        ++m_position;
    if (m_position - start > LongestName)
        Fail(start, "a name is longer than 1,000 bytes");
    return m_document.substr(start, m_position - start);
}

bool XmlScanner::NextAttribute(XmlAttribute& attribute) {
    const bool separated = SkipBlanks();
    if (AtEnd())
        FailCutOff(m_position, "the document ends inside a tag");
    if (m_document[m_position] == '>' || m_document[m_position] == '/' || m_document[m_position] == '?')
        return false;
    if (!separated)
        Fail(m_position, "a blank is expected here");
    attribute.name = TakeName();
    SkipBlanks();
    if (!Skip("="))
        FailUnlessCutOff("=", {"the attribute %1 has no value", {XmlError::Quoted(attribute.name)}});
    SkipBlanks();
    if (!IsAt("\"") && !IsAt("'"))
        FailUnlessCutOff(
            "'", {"the value of the attribute %1 is not in quotes", {XmlError::Quoted(attribute.name)}});
    attribute.value = TakeValue(attribute.name);
    return true;
}

std::string_view XmlScanner::TakeValue(std::string_view name) {
    const auto reason = [&](const char* sentence) { return XmlReason(sentence, {XmlError::Quoted(name)}); };
    const char quote = m_document[m_position];
    const std::size_t open = ++m_position;
    const std::size_t close = std::min(m_document.find(quote, open), m_document.size());
    const std::string_view value = m_document.substr(open, close - open);
    const std::size_t start = static_cast<std::size_t>(name.data() - m_document.data());
    const std::size_t markup = value.find('<');
    CheckReferences(value.substr(0, markup));
    if (markup != std::string_view::npos)
        Fail(open + markup, reason("the value of the attribute %1 holds '<', or it does not end"));
    if (close == m_document.size())
        FailCutOff(start, reason("the value of the attribute %1 does not end"));
    m_position = close + 1;
    return value;
}

std::string_view XmlScanner::TakeCharacterData() {
    const std::size_t end = std::min(m_document.find('<', m_position), m_document.size());
    const std::string_view data = m_document.substr(m_position, end - m_position);
    const std::size_t section = data.find("]]>");
    CheckReferences(data.substr(0, section));
    if (section != std::string_view::npos)
        Fail(m_position + section, "']]>' ends no character section");
    m_position = end;
    return data;
}

void XmlScanner::CheckReferences(std::string_view text) const {
    const std::size_t start = static_cast<std::size_t>(text.data() - m_document.data());
    for (std::size_t i = text.find('&'); i != std::string_view::npos; i = text.find('&', i + 1))
        CheckReference(start + i, text.substr(i + 1));
}

// `ahead` is what follows the '&' at `offset`.
void XmlScanner::CheckReference(std::size_t offset, std::string_view ahead) const {
    // No reference that means anything is longer than this; without a limit a text of many '&' would be
    // searched to its end once for each.
    constexpr std::size_t Longest = 64;
    const std::size_t longest = std::min(ahead.size(), Longest);
    const auto continues = [](char c) { return ContinuesName(c) || c == '#'; };
    const auto* last = std::find_if_not(ahead.begin(), ahead.begin() + longest, continues);
    const std::size_t end = static_cast<std::size_t>(last - ahead.begin());
    if (end == longest || ahead[end] != ';')
        Fail(offset, "'&' begins no reference",
             end < Longest && offset + 1 + end == m_document.size() ? XmlError::Cause::CutOff
                                                                    : XmlError::Cause::WrongHere);
    if (Referenced(ahead.substr(0, end)) == 0)
        Fail(offset,
             {"the reference %1 is not defined", {XmlError::Quoted(m_document.substr(offset, end + 2))}});
}

std::string_view XmlScanner::TakeUntil(std::string_view end, const char* cutOff) {
    const std::size_t start = m_position;
    const std::size_t found = m_document.find(end, start);
    if (found == std::string_view::npos)
        FailCutOff(start, cutOff);
    m_position = found + end.size();
    return m_document.substr(start, found - start);
}

void XmlScanner::SkipComment() {
    const std::size_t start = m_position;
    Skip("<!--");
    const std::size_t dashes = m_document.find("--", m_position);
    if (dashes == std::string_view::npos)
        FailCutOff(start, "the document ends inside a comment");
    m_position = dashes;
    if (!Skip("-->"))
        FailUnlessCutOff("-->", "'--' is not allowed in a comment");
}

void XmlScanner::SkipInstruction() {
    Skip("<?");
    const std::size_t start = m_position;
    const std::string_view target = TakeName();
    if (IsXmlName(target) && (target != "xml" || start != 2))
        Fail(start, target == "xml"
                        ? XmlReason("the XML declaration is not at the beginning")
                        : XmlReason("no instruction may have the name %1", {XmlError::Quoted(target)}));
    if (!IsAt("?>") && !IsCutOffIn("?>") && !IsBlank(m_document[m_position]))
        Fail(m_position, "a blank is expected here");
    TakeUntil("?>", "the document ends inside a processing instruction");
}

std::string_view XmlScanner::TakeCharacterSection() {
    constexpr std::string_view Start = "<![CDATA[";
    std::string_view section = TakeUntil("]]>", "the document ends inside a character section");
    section.remove_prefix(std::min(Start.size(), section.size()));
    return section;
}

void XmlScanner::SkipQuoted() {
    const char quote = m_document[m_position++];
    TakeUntil(std::string_view(&quote, 1), "the document ends inside a quoted text");
}

void XmlScanner::SkipDocumentType() {
    const std::size_t start = m_position;
    Skip("<!DOCTYPE");
    if (!SkipBlanks())
        FailUnlessCutOff(" ", "a blank is expected here");
    TakeName();
    bool inSubset = false;
    while (!AtEnd()) {
        const char c = m_document[m_position];
        if (IsAt("<!ENTITY"))
            Fail(m_position, "the document declares entities, which are not read");
        if (IsAt("<!--"))
            SkipComment();
        else if (IsAt("<?"))
            SkipInstruction();
        else if (c == '"' || c == '\'')
            SkipQuoted();
        else {
            ++m_position;
            if (c == '[' || c == ']')
                inSubset = c == '[';
            else if (c == '>' && !inSubset)
                return;
        }
    }
    FailCutOff(start, "the document ends inside a document type");
}

} // namespace korvel
