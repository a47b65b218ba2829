#include "korvel/documents/xml_encoding.h"

#include "korvel/documents/xml_error.h"
#include "korvel/documents/xml_scanner.h"
#include "korvel/platform/code_page.h"
#include "korvel/platform/utf8.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <string_view>
#include <utility>

namespace korvel {
namespace {

constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view LittleEndianMark = "\xFF\xFE";
constexpr std::string_view BigEndianMark = "\xFE\xFF";

struct NamedEncoding {
    std::string_view name; // in lower case
    XmlEncoding encoding;
};
constexpr NamedEncoding KnownEncodings[] = {
    {"utf-8", XmlEncoding::Utf8},
    {"utf8", XmlEncoding::Utf8},
    {"us-ascii", XmlEncoding::Utf8},
    {"iso-8859-1", XmlEncoding::Latin1},
    {"iso8859-1", XmlEncoding::Latin1},
    {"latin1", XmlEncoding::Latin1},
    {"windows-1252", XmlEncoding::Windows1252},
    {"cp1252", XmlEncoding::Windows1252},
    {"utf-16", XmlEncoding::Utf16LittleEndian}, // the bytes themselves give their order
    {"utf-16le", XmlEncoding::Utf16LittleEndian},
    {"utf-16be", XmlEncoding::Utf16BigEndian},
};

std::string LowerCase(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return lower;
}

bool IsUtf16(XmlEncoding encoding) {
    return encoding == XmlEncoding::Utf16LittleEndian || encoding == XmlEncoding::Utf16BigEndian;
}

std::optional<XmlEncoding> FindEncoding(std::string_view name) {
    const std::string lower = LowerCase(name);
    const auto* found = std::find_if(std::begin(KnownEncodings), std::end(KnownEncodings),
                                     [&](const NamedEncoding& known) { return known.name == lower; });
    if (found == std::end(KnownEncodings))
        return std::nullopt;
    return found->encoding;
}

std::string HexNumber(char32_t character) {
    char text[16];
    std::snprintf(text, sizeof text, "U+%04X", static_cast<unsigned>(character));
    return text;
}

bool IsXmlCharacter(char32_t c) {
    return c >= 0x20 ? c != 0xFFFE && c != 0xFFFF : c == '\t' || c == '\n' || c == '\r';
}

[[noreturn]] void RefuseCharacter(std::string_view text, std::size_t offset, char32_t character) {
    throw XmlError(text, offset, "the character " + HexNumber(character) + " is not allowed in XML");
}

void CheckUtf8(std::string_view text, std::string_view declared) {
    std::string_view rest = text;
    while (!rest.empty()) {
        const auto byte = static_cast<unsigned char>(rest.front());
        if (byte >= 0x20 && byte < 0x80) {
            rest.remove_prefix(1);
            continue;
        }
        const std::size_t offset = text.size() - rest.size();
        const std::optional<char32_t> character = platform::TakeUtf8(rest);
        if (!character)
            throw XmlError(text, offset,
                           declared.empty()
                               ? "the bytes are not UTF-8, and no other encoding is declared"
                               : "the bytes are not in the declared encoding " + XmlError::Quoted(declared));
        if (!IsXmlCharacter(*character))
            RefuseCharacter(text, offset, *character);
    }
}

bool IsHalfOfPair(char32_t unit) {
    return unit >= 0xD800 && unit <= 0xDFFF;
}

// Bytes of a unit in UTF-8; a pair has four.
std::size_t LengthInUtf8(char32_t unit) {
    return unit < 0x80 ? 1 : unit < 0x800 || IsHalfOfPair(unit) ? 2 : 3;
}

// `unitAt` gives the characters, those above FFFF as the two units of UTF-16. The length is counted first:
// a text that grows as it is filled takes twice its memory.
template <typename UnitAt>
std::string Decode(std::size_t count, UnitAt unitAt) {
    std::size_t length = 0;
    for (std::size_t i = 0; i < count; ++i)
        length += LengthInUtf8(unitAt(i));
    std::string text;
    text.reserve(length);
    for (std::size_t i = 0; i < count; ++i) {
        char32_t character = unitAt(i);
        const bool high = (character & 0xFC00) == 0xD800;
        if (high && i + 1 < count && (unitAt(i + 1) & 0xFC00) == 0xDC00)
            character = 0x10000 + ((character & 0x3FF) << 10 | (unitAt(++i) & 0x3FF));
        else if (IsHalfOfPair(character))
            throw XmlError(text, text.size(), "half a character: the bytes are not UTF-16");
        if (!IsXmlCharacter(character))
            RefuseCharacter(text, text.size(), character);
        platform::AppendUtf8(text, character);
    }
    return text;
}

std::string DecodeUtf16(std::string_view bytes, XmlEncoding encoding) {
    const std::size_t low = encoding == XmlEncoding::Utf16LittleEndian ? 0 : 1;
    std::string text = Decode(bytes.size() / 2, [&](std::size_t i) {
        return static_cast<char32_t>(static_cast<unsigned char>(bytes[2 * i + low]) |
                                     static_cast<unsigned char>(bytes[2 * i + 1 - low]) << 8);
    });
    if (bytes.size() % 2 != 0)
        throw XmlError(text, text.size(), "the last character is cut off");
    return text;
}

std::string DecodeSingleBytes(std::string_view bytes, XmlEncoding encoding) {
    const bool isLatin1 = encoding == XmlEncoding::Latin1;
    return Decode(bytes.size(), [&](std::size_t i) {
        return isLatin1 ? static_cast<unsigned char>(bytes[i]) : platform::ToUnicode(bytes[i]);
    });
}

// What the first bytes say by themselves: a mark, or the zeros of a '<' in two bytes.
struct Recognized {
    std::optional<XmlEncoding> encoding;
    std::size_t markLength = 0;
};

Recognized Recognize(std::string_view bytes) {
    if (bytes.starts_with(Utf8Mark))
        return {XmlEncoding::Utf8, Utf8Mark.size()};
    if (bytes.starts_with(LittleEndianMark))
        return {XmlEncoding::Utf16LittleEndian, LittleEndianMark.size()};
    if (bytes.starts_with(BigEndianMark))
        return {XmlEncoding::Utf16BigEndian, BigEndianMark.size()};
    if (bytes.starts_with(std::string_view("<\0", 2)))
        return {XmlEncoding::Utf16LittleEndian, 0};
    if (bytes.starts_with(std::string_view("\0<", 2)))
        return {XmlEncoding::Utf16BigEndian, 0};
    return {};
}

[[noreturn]] void RefuseDeclaration(std::string_view text, std::string_view declared, const char* instead) {
    throw XmlError(text, static_cast<std::size_t>(declared.data() - text.data()),
                   "the declared encoding " + XmlError::Quoted(declared) + " is wrong: " + instead);
}

void CheckBeginsLikeXml(std::string_view text) {
    const auto content = std::find_if_not(text.begin(), text.end(), XmlScanner::IsBlank);
    if (content == text.end() || *content != '<')
        throw XmlError(text, static_cast<std::size_t>(content - text.begin()),
                       "this is not XML: it does not begin with '<'");
}

XmlEncoding EncodingAsDeclared(std::string_view text, std::string_view declared) {
    if (declared.empty())
        return XmlEncoding::Utf8;
    const std::optional<XmlEncoding> encoding = FindEncoding(declared);
    if (!encoding)
        throw XmlError(text, static_cast<std::size_t>(declared.data() - text.data()),
                       "the encoding " + XmlError::Quoted(declared) + " is not known");
    if (IsUtf16(*encoding))
        RefuseDeclaration(text, declared, "a character takes one byte here");
    return *encoding;
}

// The encoding that an XML declaration at the start of `text` names; empty when it names none.
std::string_view DeclaredEncoding(std::string_view text) {
    if (!text.starts_with("<?xml") || text.size() < 6 || !XmlScanner::IsBlank(text[5]))
        return {};
    const std::string_view declaration = text.substr(0, text.find("?>"));
    const std::size_t word = declaration.find("encoding");
    if (word == std::string_view::npos)
        return {};
    const std::size_t open = declaration.find_first_of("\"'", word);
    if (open == std::string_view::npos)
        return {};
    const std::size_t close = declaration.find(declaration[open], open + 1);
    if (close == std::string_view::npos)
        return {};
    return declaration.substr(open + 1, close - open - 1);
}

} // namespace

DecodedXml DecodeXml(std::string bytes) {
    const Recognized recognized = Recognize(bytes);
    DecodedXml document;
    document.hasByteOrderMark = recognized.markLength != 0;
    bytes.erase(0, recognized.markLength);

    if (recognized.encoding && IsUtf16(*recognized.encoding)) {
        document.encoding = *recognized.encoding;
        document.text = DecodeUtf16(bytes, document.encoding);
        CheckBeginsLikeXml(document.text);
        const std::string_view declared = DeclaredEncoding(document.text);
        if (const auto named = FindEncoding(declared); !declared.empty() && (!named || !IsUtf16(*named)))
            RefuseDeclaration(document.text, declared, "the bytes are UTF-16");
        return document;
    }

    CheckBeginsLikeXml(bytes);
    const std::string_view declared = DeclaredEncoding(bytes);
    document.encoding = EncodingAsDeclared(bytes, declared);
    if (recognized.encoding && document.encoding != XmlEncoding::Utf8)
        RefuseDeclaration(bytes, declared, "the file begins with the mark of UTF-8");
    if (document.encoding == XmlEncoding::Utf8) {
        CheckUtf8(bytes, declared);
        document.text = std::move(bytes);
    } else {
        document.text = DecodeSingleBytes(bytes, document.encoding);
    }
    return document;
}

} // namespace korvel
