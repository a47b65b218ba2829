#include "source/xml_escaping.h"

#include "korvel/documents/xml_scanner.h"
#include "korvel/platform/utf8.h"
#include "source/refusal.h"

#include <cstdio>

namespace korvel::inspector {
namespace {

std::string Reference(char32_t character) {
    char text[16];
    std::snprintf(text, sizeof text, "&#%u;", static_cast<unsigned>(character));
    return text;
}

// The reference that XML has a name for; empty where the character may stand as it is.
std::string_view NamedReference(char32_t character, char quote) {
    switch (character) {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return quote == 0 ? "&gt;" : ""; // "]]>" may not stand between tags
    case '"':
        return quote == '"' ? "&quot;" : "";
    case '\'':
        return quote == '\'' ? "&apos;" : "";
    default:
        return "";
    }
}

[[noreturn]] void RefuseCharacter(char32_t character) {
    char text[16];
    std::snprintf(text, sizeof text, "U+%04X", static_cast<unsigned>(character));
    Refuse({"the character %1 is not allowed in XML", {text}});
}

// `quote` is 0 for a text between tags.
std::string Escape(std::string_view utf8, char quote, const CharacterTest& isHeld) {
    std::string escaped;
    for (std::string_view rest = utf8; !rest.empty();) {
        const char* begin = rest.data();
        const char32_t character = platform::TakeUtf8(rest).value_or(0);
        if (!XmlScanner::IsCharacter(character))
            RefuseCharacter(character);
        const bool isControl = character < 0x20 && (character != '\n' || quote != 0);
        if (const std::string_view named = NamedReference(character, quote); !named.empty())
            escaped += named;
        else if (isControl || (character >= 0x80 && isHeld && !isHeld(character)))
            escaped += Reference(character);
        else
            escaped.append(begin, rest.data());
    }
    return escaped;
}

bool IsXmlName(std::string_view name) {
    try {
        XmlScanner scanner(name);
        scanner.TakeName();
        return scanner.AtEnd();
    } catch (const XmlError&) {
        return false;
    }
}

bool IsHeld(std::string_view name, const CharacterTest& isHeld) {
    for (std::string_view rest = name; !rest.empty();) {
        const char32_t character = platform::TakeUtf8(rest).value_or(0);
        if (!XmlScanner::IsCharacter(character) || (character >= 0x80 && isHeld && !isHeld(character)))
            return false;
    }
    return true;
}

} // namespace

std::string EscapeAttribute(std::string_view utf8, char quote, const CharacterTest& isHeld) {
    return Escape(utf8, quote, isHeld);
}

std::string EscapeText(std::string_view utf8, const CharacterTest& isHeld) {
    return Escape(utf8, 0, isHeld);
}

void CheckAttributeName(std::string_view name, const CharacterTest& isHeld) {
    const std::size_t colon = name.find(':');
    const std::string_view local = name.substr(colon + 1); // npos + 1 is 0
    const bool isQualified = colon != 0 && local.find(':') == std::string_view::npos && IsXmlName(local);
    if (!IsXmlName(name) || !isQualified || !IsHeld(name, isHeld))
        Refuse({"%1 cannot be the name of an attribute", {XmlError::Quoted(name)}});
    if (name == "xmlns" || name.starts_with("xmlns:"))
        Refuse("declarations of namespaces cannot be changed");
}

} // namespace korvel::inspector
