#include "korvel/documents/xml_encoding.h"

#include "korvel/documents/character_converter.h"
#include "korvel/documents/xml_declaration.h"
#include "korvel/documents/xml_scanner.h"
#include "korvel/platform/code_page.h"
#include "korvel/platform/utf8.h"

#include <algorithm>
#include <cstdio>
#include <functional>
#include <utility>

namespace korvel {
namespace {

using internal::CharacterConverter;

// What the first bytes say by themselves: a mark, or the zeros around a '<'.
struct Form {
    std::string_view name;
    std::size_t unitSize; // bytes
    bool bigEndian;
    std::string_view mark;
    std::string_view lessThan; // how '<' begins a text without mark
};
using namespace std::string_view_literals;
constexpr Form Forms[] = {
    {"UTF-8", 1, false, "\xEF\xBB\xBF"sv, {}},
    {"UTF-32LE", 4, false, "\xFF\xFE\0\0"sv, "<\0\0\0"sv}, // before UTF-16, whose mark it begins with
    {"UTF-32BE", 4, true, "\0\0\xFE\xFF"sv, "\0\0\0<"sv},
    {"UTF-16LE", 2, false, "\xFF\xFE"sv, "<\0"sv},
    {"UTF-16BE", 2, true, "\xFE\xFF"sv, "\0<"sv},
};

// The names by which ICU knows the encodings that are read here.
constexpr std::string_view Utf8 = "UTF-8";
constexpr std::string_view Latin1 = "ISO-8859-1";
constexpr std::string_view Windows1252 = "ibm-5348_P100-1997";

constexpr std::string_view ReplacementCharacter = "\xEF\xBF\xBD";

// "UTF-16" and "UTF-32" for their names with and without byte order, else empty.
std::string_view WideFamilyOf(std::string_view canonicalName) {
    if (canonicalName.starts_with("UTF-16") || canonicalName.starts_with("UTF16_"))
        return "UTF-16";
    return canonicalName.starts_with("UTF-32") || canonicalName.starts_with("UTF32_") ? "UTF-32" : "";
}

// A name without byte order says that there may be either.
bool IsNameOf(std::string_view canonicalName, const Form& form) {
    const std::string_view family = WideFamilyOf(canonicalName);
    if (family != WideFamilyOf(form.name))
        return false;
    const std::string_view order = canonicalName.substr(family.size(), 2);
    return (order != "LE" && order != "BE") || form.name.ends_with(order);
}

XmlFault RefusedCharacter(char32_t character) {
    char text[16];
    std::snprintf(text, sizeof text, "U+%04X", static_cast<unsigned>(character));
    return {{"the character %1 is not allowed in XML", {text}}, XmlError::Cause::WrongHere};
}

// At the name where that is part of the text.
[[noreturn]] void FailForEncoding(std::string_view text, std::string_view name, const char* sentence,
                                  std::string_view found = {}) {
    const std::less<> before;
    const bool isInside = !before(name.data(), text.data()) && before(name.data(), text.data() + text.size());
    throw XmlError(text, isInside ? static_cast<std::size_t>(name.data() - text.data()) : 0,
                   {sentence, {XmlError::Quoted(name), std::string(found)}}, XmlError::Cause::Encoding);
}

// The characters are counted first: a text that grows as it is filled takes twice its memory. `read` gives
// each character to its first argument and what is wrong with the bytes after it to its second one, until
// either returns false.
template <typename Read>
void Decode(DecodedXml& document, WrongBytes wrongBytes, Read read) {
    std::size_t length = 0;
    const bool replaces = wrongBytes == WrongBytes::Replace;
    read(
        [&](char32_t c) {
            length += c < 0x80 ? 1 : c < 0x800 ? 2 : c < 0x10000 ? 3 : 4;
            return XmlScanner::IsCharacter(c);
        },
        [&](const XmlFault&) {
            length += ReplacementCharacter.size();
            return replaces;
        });
    document.text.reserve(length);
    read(
        [&](char32_t c) {
            if (XmlScanner::IsCharacter(c))
                platform::AppendUtf8(document.text, c);
            else
                document.fault = RefusedCharacter(c);
            return !document.fault;
        },
        [&](const XmlFault& fault) {
            if (!replaces)
                document.fault = fault;
            else if (!document.replaced)
                document.replaced = {fault.reason, document.text.size()};
            document.text += replaces ? ReplacementCharacter : std::string_view();
            return replaces;
        });
}

class Units {
public:
    Units(std::string_view bytes, const Form& form) : m_bytes(bytes), m_form(form) {}

    template <typename Take, typename Wrong>
    void Read(Take take, Wrong wrong) const {
        const std::size_t count = m_bytes.size() / m_form.unitSize;
        const XmlFault noCharacter = {m_form.unitSize == 2 ? "half a character: the bytes are not UTF-16"
                                                           : "the bytes are not UTF-32"};
        for (std::size_t i = 0; i < count; ++i) {
            char32_t character = At(i);
            const bool isHigh = (character & 0xFFFFFC00) == 0xD800;
            if (m_form.unitSize == 2 && isHigh && i + 1 < count && (At(i + 1) & 0xFC00) == 0xDC00)
                character = 0x10000 + ((character & 0x3FF) << 10 | (At(++i) & 0x3FF));
            const bool isWrong = (character >= 0xD800 && character <= 0xDFFF) || character > 0x10FFFF;
            if (isWrong ? !wrong(noCharacter) : !take(character))
                return;
        }
        if (m_bytes.size() % m_form.unitSize != 0)
            wrong(XmlFault{"the last character is cut off"});
    }

private:
    char32_t At(std::size_t index) const {
        char32_t unit = 0;
        for (std::size_t i = 0; i < m_form.unitSize; ++i) {
            const std::size_t place = m_form.bigEndian ? i : m_form.unitSize - 1 - i;
            unit = unit << 8 | static_cast<unsigned char>(m_bytes[index * m_form.unitSize + place]);
        }
        return unit;
    }

    std::string_view m_bytes;
    const Form& m_form;
};

// UTF-8 is checked where it is; false for bytes that are none.
bool CheckUtf8(DecodedXml& document) {
    std::string_view rest = document.text;
    while (!rest.empty()) {
        const auto byte = static_cast<unsigned char>(rest.front());
        if (byte >= 0x20 && byte < 0x80) {
            rest.remove_prefix(1);
            continue;
        }
        const std::size_t offset = document.text.size() - rest.size();
        const std::optional<char32_t> character = platform::TakeUtf8(rest);
        if (character && XmlScanner::IsCharacter(*character))
            continue;
        if (!character)
            return false;
        document.fault = RefusedCharacter(*character);
        document.text.resize(offset);
        break;
    }
    return true;
}

void DecodeUtf8(DecodedXml& document, WrongBytes wrongBytes, const XmlFault& fault) {
    if (CheckUtf8(document))
        return;
    const std::string bytes = std::exchange(document.text, {});
    Decode(document, wrongBytes, [&](auto take, auto wrong) {
        for (std::string_view rest = bytes; !rest.empty();) {
            const std::optional<char32_t> character = platform::TakeUtf8(rest);
            if (character ? !take(*character) : !wrong(fault))
                return;
        }
    });
}

void CheckBeginsLikeXml(const DecodedXml& document) {
    const std::string& text = document.text;
    const auto content = std::find_if_not(text.begin(), text.end(), XmlScanner::IsBlank);
    if (content != text.end() ? *content == '<' : document.fault.has_value())
        return;
    throw XmlError(text, static_cast<std::size_t>(content - text.begin()),
                   "this is not XML: it does not begin with '<'");
}

// The declaration as far as one can be: what is not ASCII in it becomes something that it may not hold.
std::string DeclarationIn(std::string_view bytes) {
    std::string declaration(bytes.substr(0, std::min(bytes.find('>'), bytes.size() - 1) + 1));
    std::replace_if(
        declaration.begin(), declaration.end(), [](char c) { return (c & 0x80) != 0; }, '?');
    return declaration;
}

// The name that the declaration gives. Where that is cut off by a fault, the fault is the one to be told.
std::string_view DeclaredIn(const DecodedXml& document) {
    try {
        return internal::DeclaredEncoding(document.text);
    } catch (const XmlError& error) {
        if (error.GetCause() == XmlError::Cause::CutOff && document.fault)
            return {};
        throw;
    }
}

void DecodeWide(DecodedXml& document, std::string_view bytes, const Form& form, std::string_view asked,
                WrongBytes wrongBytes) {
    document.encoding = form.name;
    Decode(document, wrongBytes, [&](auto take, auto wrong) { Units(bytes, form).Read(take, wrong); });
    CheckBeginsLikeXml(document);
    const std::string_view name = asked.empty() ? DeclaredIn(document) : asked;
    if (!name.empty() && !IsNameOf(CharacterConverter::CanonicalName(std::string(name)), form))
        FailForEncoding(document.text, name, "the encoding %1 is wrong: the bytes are %2", form.name);
}

// The name by which ICU knows an encoding of one byte or more a character. Throws for one that cannot be
// read.
std::string CanonicalNameOf(std::string_view text, std::string_view name) {
    std::string canonical =
        internal::IsEncodingName(name) ? CharacterConverter::CanonicalName(std::string(name)) : std::string();
    if (canonical.empty())
        FailForEncoding(text, name, "the encoding %1 is not known");
    if (!WideFamilyOf(canonical).empty())
        FailForEncoding(text, name, "the encoding %1 is wrong: a character takes one byte here");
    if (!CharacterConverter(canonical).HoldsAscii())
        FailForEncoding(text, name, "the encoding %1 is not read: ASCII means something else in it");
    return canonical;
}

XmlFault FaultOfBytes(std::string_view name) {
    if (name.empty())
        return {"the bytes are not UTF-8, and no other encoding is declared"};
    return {{"the bytes are not in the encoding %1", {XmlError::Quoted(name)}}};
}

char32_t CharacterOf(char byte, bool isLatin1) {
    return isLatin1 ? static_cast<unsigned char>(byte) : platform::ToUnicode(byte);
}

// The text is still as its bytes are.
void DecodeBytes(DecodedXml& document, const std::string& canonicalName, std::string_view name,
                 WrongBytes wrongBytes) {
    const XmlFault fault = FaultOfBytes(name);
    if (canonicalName == Utf8) {
        DecodeUtf8(document, wrongBytes, fault);
        return;
    }
    const std::string bytes = std::exchange(document.text, {});
    if (canonicalName == Latin1 || canonicalName == Windows1252) {
        const bool isLatin1 = canonicalName == Latin1;
        Decode(document, wrongBytes, [&](auto take, auto) {
            for (const char byte : bytes)
                if (!take(CharacterOf(byte, isLatin1)))
                    break;
        });
        return;
    }
    CharacterConverter converter(canonicalName);
    Decode(document, wrongBytes, [&](auto take, auto wrong) {
        converter.Start(bytes);
        char32_t character = 0;
        while (converter.Next(character) ? take(character) : converter.Failed() && wrong(fault)) {
        }
    });
}

struct FoundForm {
    const Form* form = nullptr; // null: bytes of one character each, or more
    bool byMark = false;
};

FoundForm FormOf(std::string_view bytes) {
    for (const Form& form : Forms)
        if (bytes.starts_with(form.mark))
            return {&form, true};
    for (const Form& form : Forms)
        if (!form.lessThan.empty() && bytes.starts_with(form.lessThan))
            return {&form, false};
    return {};
}

} // namespace

DecodedXml DecodeXml(std::string bytes, std::string_view encoding, WrongBytes wrongBytes) {
    const auto [form, byMark] = FormOf(bytes);
    DecodedXml document;
    document.hasByteOrderMark = byMark;
    if (byMark)
        bytes.erase(0, form->mark.size());
    if (form && form->unitSize > 1) {
        DecodeWide(document, bytes, *form, encoding, wrongBytes);
        return document;
    }
    document.text = std::move(bytes);
    CheckBeginsLikeXml(document);
    const std::string declaration = DeclarationIn(document.text);
    const std::string_view declared = internal::DeclaredEncoding(declaration);
    const std::string_view name = encoding.empty() ? declared : encoding;
    const std::string canonical = name.empty() ? std::string(Utf8) : CanonicalNameOf(declaration, name);
    if (byMark && canonical != Utf8)
        FailForEncoding(declaration, name,
                        "the encoding %1 is wrong: the file begins with the mark of UTF-8");
    document.encoding = CharacterConverter::RegisteredName(canonical);
    DecodeBytes(document, canonical, name, wrongBytes);
    return document;
}

namespace {

std::optional<std::string> EncodeWide(std::string_view utf8, const Form& form) {
    std::string bytes;
    const auto append = [&](char32_t unit) {
        for (std::size_t i = 0; i < form.unitSize; ++i) {
            const std::size_t place = form.bigEndian ? form.unitSize - 1 - i : i;
            bytes += static_cast<char>(unit >> 8 * place & 0xFF);
        }
    };
    while (!utf8.empty()) {
        const std::optional<char32_t> character = platform::TakeUtf8(utf8);
        if (!character)
            return std::nullopt;
        if (form.unitSize == 2 && *character > 0xFFFF) {
            append(0xD800 + ((*character - 0x10000) >> 10));
            append(0xDC00 + ((*character - 0x10000) & 0x3FF));
        } else {
            append(*character);
        }
    }
    return bytes;
}

std::optional<std::string> EncodeSingleBytes(std::string_view utf8, bool isLatin1) {
    std::string bytes;
    while (!utf8.empty()) {
        const std::optional<char32_t> character = platform::TakeUtf8(utf8);
        if (!character || (isLatin1 && *character > 0xFF))
            return std::nullopt;
        const std::optional<char> byte =
            isLatin1 ? static_cast<char>(*character) : platform::FromUnicode(*character);
        if (!byte || CharacterOf(*byte, isLatin1) != *character)
            return std::nullopt;
        bytes += *byte;
    }
    return bytes;
}

} // namespace

std::optional<std::string> EncodeXml(std::string_view utf8, const std::string& encoding,
                                     bool hasByteOrderMark) {
    const auto* form = std::find_if(std::begin(Forms), std::end(Forms),
                                    [&](const Form& known) { return known.name == encoding; });
    if (form == std::end(Forms)) {
        const std::string canonical = CharacterConverter::CanonicalName(encoding);
        if (canonical == Latin1 || canonical == Windows1252)
            return EncodeSingleBytes(utf8, canonical == Latin1);
        return CharacterConverter(canonical).Write(utf8);
    }
    std::optional<std::string> bytes = form->name == Utf8 ? std::string(utf8) : EncodeWide(utf8, *form);
    if (bytes && hasByteOrderMark)
        bytes->insert(0, form->mark);
    return bytes;
}

} // namespace korvel
