#include "source/source_scanner.h"

#include "source/blanks.h"
#include "source/source_error.h"

#include <algorithm>
#include <charconv>
#include <string>

namespace korvel::inspector {
namespace {

bool StartsName(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == ':' || (c & 0x80) != 0;
}

bool ContinuesName(char c) {
    return StartsName(c) || (c >= '0' && c <= '9') || c == '-' || c == '.';
}

} // namespace

char32_t ReferencedCharacter(std::string_view reference) {
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
    const bool surrogate = number >= 0xD800 && number <= 0xDFFF;
    const bool control = number < 0x20 && number != '\t' && number != '\n' && number != '\r';
    if (!complete || surrogate || control || number > 0x10FFFF || number == 0xFFFE || number == 0xFFFF)
        return 0;
    return number;
}

void SourceScanner::Fail(std::size_t offset, std::string_view reason) const {
    throw SourceError(m_text, offset, std::string(reason));
}

bool SourceScanner::Skip(std::string_view literal) {
    if (!IsAt(literal))
        return false;
    m_position += literal.size();
    return true;
}

bool SourceScanner::SkipBlanks() {
    const std::size_t start = m_position;
    while (!AtEnd() && IsBlank(m_text[m_position]))
        ++m_position;
    return m_position != start;
}

std::string_view SourceScanner::Name() {
    const std::size_t start = m_position;
    if (AtEnd())
        Fail(start, "the document ends where a name is expected");
    if (!StartsName(m_text[start]))
        Fail(start, "a name is expected here");
    while (!AtEnd() && ContinuesName(m_text[m_position]))
        ++m_position;
    if (m_position - start > LongestName)
        Fail(start, "a name is longer than 1,000 characters");
    return m_text.substr(start, m_position - start);
}

bool SourceScanner::NextAttribute(AttributeSource& attribute) {
    const bool separated = SkipBlanks();
    if (AtEnd())
        Fail(m_position, "the document ends inside a tag");
    if (m_text[m_position] == '>' || m_text[m_position] == '/' || m_text[m_position] == '?')
        return false;
    if (!separated)
        Fail(m_position, "a blank is expected here");
    const std::size_t start = m_position;
    attribute.name = Name();
    SkipBlanks();
    if (!Skip("="))
        Fail(m_position, "the attribute " + Quoted(attribute.name) + " has no value");
    SkipBlanks();
    const char quote = AtEnd() ? '\0' : m_text[m_position];
    if (quote != '"' && quote != '\'')
        Fail(m_position, "the value of the attribute " + Quoted(attribute.name) + " is not in quotes");
    const std::size_t open = ++m_position;
    const std::size_t close = m_text.find(quote, open);
    if (close == std::string_view::npos)
        Fail(start, "the value of the attribute " + Quoted(attribute.name) + " does not end");
    attribute.value = m_text.substr(open, close - open);
    if (attribute.value.size() > LongestAttribute)
        Fail(start, "the value of the attribute " + Quoted(attribute.name) + " is longer than 10 MB");
    if (const std::size_t markup = attribute.value.find('<'); markup != std::string_view::npos)
        Fail(open + markup, "'<' is not allowed in the value of an attribute");
    CheckReferences(attribute.value);
    m_position = close + 1;
    return true;
}

std::string_view SourceScanner::CharacterData() {
    const std::size_t end = std::min(m_text.find('<', m_position), m_text.size());
    const std::string_view data = m_text.substr(m_position, end - m_position);
    if (const std::size_t section = data.find("]]>"); section != std::string_view::npos)
        Fail(m_position + section, "']]>' ends no character section");
    CheckReferences(data);
    m_position = end;
    return data;
}

void SourceScanner::CheckReferences(std::string_view text) const {
    for (std::size_t i = text.find('&'); i != std::string_view::npos; i = text.find('&', i + 1)) {
        // No reference that means anything is longer than this; without a limit a text of many '&' would be
        // searched to its end once for each.
        constexpr std::size_t Longest = 64;
        const std::string_view ahead = text.substr(i + 1, Longest);
        const std::size_t end = ahead.find(';');
        const std::size_t offset = static_cast<std::size_t>(text.data() - m_text.data()) + i;
        if (end == std::string_view::npos)
            Fail(offset, "'&' begins no reference");
        if (ReferencedCharacter(ahead.substr(0, end)) == 0)
            Fail(offset, "the reference " + Quoted(text.substr(i, end + 2)) + " is not defined");
    }
}

void SourceScanner::SkipBehind(std::string_view end, std::string_view piece) {
    const std::size_t found = m_text.find(end, m_position);
    if (found == std::string_view::npos)
        Fail(m_position, "the document ends inside " + std::string(piece));
    m_position = found + end.size();
}

void SourceScanner::Comment() {
    const std::size_t start = m_position;
    Skip("<!--");
    const std::size_t dashes = m_text.find("--", m_position);
    if (dashes == std::string_view::npos)
        Fail(start, "the document ends inside a comment");
    m_position = dashes;
    if (!Skip("-->"))
        Fail(dashes, "'--' is not allowed in a comment");
}

void SourceScanner::Instruction() {
    Skip("<?");
    const std::size_t start = m_position;
    const std::string_view target = Name();
    if (target == "xml" && start != 2)
        Fail(start, "the XML declaration does not stand at the beginning");
    SkipBehind("?>", "a processing instruction");
}

void SourceScanner::CharacterSection() {
    SkipBehind("]]>", "a character section");
}

void SourceScanner::SkipQuoted() {
    const char quote = m_text[m_position++];
    SkipBehind(std::string_view(&quote, 1), "a quoted text");
}

// Only its end is looked for. Declared entities are refused altogether: nothing of the field uses them, and a
// few of them can stand for gigabytes.
void SourceScanner::DocumentType() {
    const std::size_t start = m_position;
    Skip("<!DOCTYPE");
    bool inSubset = false;
    while (!AtEnd()) {
        const char c = m_text[m_position];
        if (IsAt("<!ENTITY"))
            Fail(m_position, "the document declares entities, which are not read");
        if (IsAt("<!--"))
            Comment();
        else if (IsAt("<?"))
            Instruction();
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
    Fail(start, "the document ends inside a document type");
}

} // namespace korvel::inspector
