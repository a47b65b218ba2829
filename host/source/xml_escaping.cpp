#include "source/xml_escaping.h"

#include "korvel/documents/xml_scanner.h"
#include "korvel/documents/xml_text.h"
#include "korvel/platform/utf8.h"
#include "source/refusal.h"

#include <algorithm>
#include <cstdio>
#include <string>

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

// What encloses a value. Tags leave it its tabs and line ends, quotes do not.
struct Enclosure {
    char quote; // 0: tags
    std::string_view lineEnd;

    std::string Decode(std::string_view raw) const {
        return quote == 0 ? DecodeXmlText(raw, std::string::npos).utf8
                          : DecodeXmlAttribute(raw, std::string::npos).utf8;
    }
};

bool IsEscapedControl(char32_t character, const Enclosure& in) {
    return character < 0x20 && (in.quote != 0 || character == '\r');
}

std::string Escape(std::string_view utf8, const Enclosure& in, const CharacterTest& isHeld) {
    std::string escaped;
    for (std::string_view rest = utf8; !rest.empty();) {
        const char* begin = rest.data();
        const char32_t character = platform::TakeUtf8(rest).value_or(0);
        if (!XmlScanner::IsCharacter(character))
            RefuseCharacter(character);
        if (const std::string_view named = NamedReference(character, in.quote); !named.empty())
            escaped += named;
        else if (IsEscapedControl(character, in) || (character >= 0x80 && isHeld && !isHeld(character)))
            escaped += Reference(character);
        else if (character == '\n')
            escaped += in.lineEnd;
        else
            escaped.append(begin, rest.data());
    }
    return escaped;
}

// A piece of what is written stands for one character: a reference, a line end or the character itself.

std::string_view TakeFirstPiece(std::string_view& raw) {
    std::string_view rest = raw;
    if (raw.front() == '&')
        rest.remove_prefix(std::min(raw.find(';'), raw.size() - 1) + 1);
    else if (raw.starts_with("\r\n"))
        rest.remove_prefix(2);
    else
        platform::TakeUtf8(rest);
    const std::string_view piece = raw.substr(0, raw.size() - rest.size());
    raw = rest;
    return piece;
}

std::string_view TakeLastPiece(std::string_view& raw) {
    std::size_t begin = raw.size() - 1;
    if (raw.back() == ';') {
        const std::size_t mark = raw.substr(0, begin).find_last_of("&;");
        if (mark != std::string_view::npos && raw[mark] == '&')
            begin = mark;
    } else if (raw.ends_with("\r\n")) {
        --begin;
    }
    while (begin > 0 && platform::ContinuesUtf8(raw[begin]))
        --begin;
    const std::string_view piece = raw.substr(begin);
    raw.remove_suffix(piece.size());
    return piece;
}

std::string MeaningOf(std::string_view piece, const Enclosure& in) {
    const bool isItself = piece.find_first_of("&\t\r\n") == std::string_view::npos;
    return isItself ? std::string(piece) : in.Decode(piece);
}

std::string Rewrite(std::string_view raw, std::string_view utf8, const Enclosure& in,
                    const CharacterTest& isHeld) {
    std::string_view changed = utf8;
    std::string_view replaced = raw;
    for (std::string_view rest = replaced; !rest.empty(); replaced = rest) {
        const std::string meaning = MeaningOf(TakeFirstPiece(rest), in);
        if (!changed.starts_with(meaning))
            break;
        changed.remove_prefix(meaning.size());
    }
    const std::size_t begin = raw.size() - replaced.size();
    for (std::string_view rest = replaced; !rest.empty(); replaced = rest) {
        const std::string meaning = MeaningOf(TakeLastPiece(rest), in);
        if (!changed.ends_with(meaning))
            break;
        changed.remove_suffix(meaning.size());
    }
    std::string written(raw.substr(0, begin));
    written += Escape(changed, in, isHeld);
    written += raw.substr(begin + replaced.size());
    // Where they meet, "]]>" or a line end may have come about.
    const bool isWellFormed = in.quote != 0 || written.find("]]>") == std::string::npos;
    return isWellFormed && in.Decode(written) == utf8 ? written : Escape(utf8, in, isHeld);
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
    return Escape(utf8, {quote, {}}, isHeld);
}

std::string RewriteAttribute(std::string_view raw, std::string_view utf8, char quote,
                             const CharacterTest& isHeld) {
    return Rewrite(raw, utf8, {quote, {}}, isHeld);
}

std::string RewriteText(std::string_view raw, std::string_view utf8, std::string_view lineEnd,
                        const CharacterTest& isHeld) {
    return Rewrite(raw, utf8, {0, lineEnd}, isHeld);
}

std::string_view LineEndOf(std::string_view document) {
    const std::size_t end = document.find_first_of("\r\n");
    if (end == std::string_view::npos || document[end] == '\n')
        return "\n";
    return document.substr(end).starts_with("\r\n") ? "\r\n" : "\r";
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
