#pragma once

#include "korvel/documents/xml_encoding.h"
#include "korvel/documents/xml_scanner.h"
#include "korvel/platform/export.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace korvel {

/// Reads a whole document in UTF-8 from tag to tag, and refuses what XML 1.0 with namespaces does not allow:
/// everything that XmlScanner refuses, a malformed XML declaration, elements that are not nested, no root or
/// a second one, text outside the root, a second document type, an attribute twice, and a prefix that is not
/// declared. Elements nested deeper than DeepestLevel are refused as well.
///
///     const DecodedXml file = DecodeXml(bytes);
///     XmlParser parser(file.text, file.fault);
///     parser.Next();   // StartTag: parser.Name() is "road", parser.Attributes() holds "name"
///     parser.Next();   // Text:     DecodeXmlText(parser.Raw(), 100).utf8 is "east"
///     parser.Next();   // EndTag:   parser.Name() is "road"
///     parser.Next();   // Finished: the document is well-formed to its end
///
/// Comments, instructions and a document type are left out. An empty element has a start and an end; the text
/// inside an element comes in as many pieces as markup cuts it into, blanks included. A failure is the first
/// one of the file, whatever its kind: where the text ends for a fault of its bytes, that fault is thrown.
/// Prefixes are judged at the end of a start tag, which may declare them, and so after its other faults.
///
/// Not refused, though the standards do not allow them: what stands in a document type but entities; two
/// attributes that differ in their prefixes only, where both prefixes stand for the same namespace; a colon
/// in the name of an instruction; other namespaces for the prefixes xml and xmlns; characters outside ASCII
/// that may not be in names.
///
/// What it returns are views into the document, which must outlive them, valid until the next piece is asked
/// for. After a failure nothing more can be read.
class KORVEL_API XmlParser {
public:
    /// No file of the field nests deeper than some dozen elements.
    static constexpr std::size_t DeepestLevel = 1000;

    enum class Piece { StartTag, Text, EndTag, Finished };

    /// `fault`: of what follows the text; see DecodedXml.
    explicit XmlParser(std::string_view document, const std::optional<XmlFault>& fault = {});

    /// Throws XmlError.
    Piece Next();

    /// Of the tag, with its prefix.
    std::string_view Name() const { return m_name; }
    /// Of the start tag, in the order of the file.
    const std::vector<XmlAttribute>& Attributes() const { return m_attributes; }
    /// The text: characters without '<', or one whole character section; see DecodeXmlText.
    std::string_view Raw() const { return m_raw; }
    /// Where the piece begins in the document, in bytes.
    std::size_t Offset() const { return m_offset; }
    /// How many elements are open after the piece.
    std::size_t Level() const { return m_open.size(); }

    /// Throws XmlError for a byte of the document.
    [[noreturn]] void Fail(std::size_t offset, const XmlReason& reason) const;

private:
    struct OpenElement {
        std::string_view name;
        std::size_t prefixes; // how many were declared before it
    };

    Piece ReadPiece();
    Piece ReadText();
    Piece ReadSection();
    Piece ReadStartTag();
    Piece ReadEndTag();
    Piece CloseElement();
    void SkipDeclaration();
    void CheckEnd();
    void ReadAttributes();
    void CheckAttributeNames();
    void DeclarePrefixes();
    enum class NameOf { Element, Attribute };
    void CheckPrefix(std::string_view name, NameOf kind) const;
    std::size_t OffsetOf(std::string_view piece) const {
        return static_cast<std::size_t>(piece.data() - m_document.data());
    }
    [[noreturn]] void ThrowFault() const;

    std::string_view m_document;
    std::optional<XmlFault> m_fault;
    XmlScanner m_scanner;
    std::vector<OpenElement> m_open;
    std::vector<std::string_view> m_prefixes; // declared in the open elements, outermost first
    std::unordered_map<std::string_view, std::size_t> m_declared; // how often each of them is
    bool m_isEmptyTag = false;                                    // its end is the next piece
    bool m_hasRoot = false;
    bool m_mayHaveDocumentType = true;

    std::string_view m_name;
    std::vector<XmlAttribute> m_attributes;
    std::vector<std::string_view> m_names; // of the attributes, sorted
    std::string_view m_raw;
    std::size_t m_offset = 0;
};

} // namespace korvel
