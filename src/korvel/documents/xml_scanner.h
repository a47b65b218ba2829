#pragma once

#include "korvel/documents/xml_error.h"
#include "korvel/platform/export.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace korvel {

/// An attribute as a document holds it: its name, and its value without the quotes, references unresolved.
struct XmlAttribute {
    std::string_view name;
    std::string_view value;
};

/// Moves through a document in UTF-8 and reads the pieces that XML 1.0 is made of, strictly: whatever is not
/// well-formed throws XmlError with its place.
///
///     XmlScanner scanner("<road name='A &amp; B'>east</road>");
///     scanner.Skip("<");
///     scanner.TakeName();                        // "road"
///     XmlAttribute attribute;
///     while (scanner.NextAttribute(attribute))   // "name", "A &amp; B"
///         Keep(attribute.name, DecodeXmlAttribute(attribute.value, 100).utf8);
///     scanner.Skip(">");
///     scanner.TakeCharacterData();               // "east"
///     scanner.IsAt("</");                        // true
///
/// Refused are: a name that begins with no letter, '_' or ':' (every character outside ASCII counts as a
/// letter); an attribute without blank before it, without value or without quotes; '<' in a value; "]]>" in
/// character data; '&' that begins no reference; an instruction whose name is "xml" in any case, but for the
/// declaration, or that nothing separates from what follows; a reference to an entity that XML does not
/// define itself, or to a character that XML does not allow; "--" in a comment; an XML declaration that is
/// not the beginning; whatever does not end; and a declaration of entities, since a few of them can stand for
/// gigabytes. Of a document type only the name and the end are looked for. Names longer than LongestName are
/// refused as well. A failure that more text could have prevented is of XmlError's cause CutOff.
///
/// Left to the caller are: the bytes (DecodeXml turns those of a file into UTF-8 and refuses characters that
/// XML does not allow), and what pieces mean together (XmlParser: nesting, one root, attributes of the same
/// name, prefixes).
///
/// What it returns are views into the document, which must outlive them. It holds no memory and costs one
/// pass over what it reads; a failure costs a walk from the beginning, for its place. After a failure the
/// position is anywhere between the last piece and the fault.
class KORVEL_API XmlScanner {
public:
    /// In bytes. Longer ones come from broken or hostile files.
    static constexpr std::size_t LongestName = 1000;

    /// `position` counts bytes; one beyond the document is its end.
    explicit XmlScanner(std::string_view document, std::size_t position = 0)
        : m_document(document), m_position(std::min(position, document.size())) {}

    bool AtEnd() const { return m_position >= m_document.size(); }
    std::size_t Position() const { return m_position; }
    bool IsAt(std::string_view literal) const { return m_document.substr(m_position).starts_with(literal); }

    /// Moves past `literal`; false and no move where something else is.
    bool Skip(std::string_view literal);
    /// False where there is no blank.
    bool SkipBlanks();

    std::string_view TakeName();

    /// The next attribute of a start tag or a declaration; false at '>', '/', '?', which stay unread.
    bool NextAttribute(XmlAttribute& attribute);

    /// The characters up to the next '<' or the end of the document.
    std::string_view TakeCharacterData();

    /// To be called where the piece begins, at its '<'.
    void SkipComment();
    void SkipInstruction();
    void SkipDocumentType();
    /// The characters between "<![CDATA[" and "]]>".
    std::string_view TakeCharacterSection();

    /// Throws XmlError for a byte of the document.
    [[noreturn]] void Fail(std::size_t offset, const XmlReason& reason,
                           XmlError::Cause cause = XmlError::Cause::WrongHere) const;
    /// Fails where `expected` is not: as cut off where the document ends inside it.
    [[noreturn]] void FailUnlessCutOff(std::string_view expected, const XmlReason& reason) const;
    /// True where the document ends inside `literal`.
    bool IsCutOffIn(std::string_view literal) const;

    /// Whether XML allows a character, which half of a pair is not.
    static bool IsCharacter(char32_t c) {
        return c >= 0x20 ? (c < 0xD800 || c > 0xDFFF) && c != 0xFFFE && c != 0xFFFF && c <= 0x10FFFF
                         : c == '\t' || c == '\n' || c == '\r';
    }
    static bool IsBlank(char byte) { return byte == ' ' || byte == '\t' || byte == '\n' || byte == '\r'; }

    /// The character that a reference stands for; `reference` is what is between '&' and ';'. 0 for an entity
    /// that XML does not define itself and for a character that it does not allow.
    ///
    ///     Referenced("amp")    -> '&'
    ///     Referenced("#xE4")   -> U'ä'
    ///     Referenced("nbsp")   -> 0
    static char32_t Referenced(std::string_view reference);

private:
    std::string_view TakeValue(std::string_view name);
    std::string_view TakeUntil(std::string_view end, const char* cutOff);
    void SkipQuoted();
    void CheckReferences(std::string_view text) const;
    void CheckReference(std::size_t offset, std::string_view ahead) const;
    [[noreturn]] void FailCutOff(std::size_t offset, const XmlReason& reason) const {
        Fail(offset, reason, XmlError::Cause::CutOff);
    }

    std::string_view m_document;
    std::size_t m_position;
};

} // namespace korvel
