#include "korvel/documents/xml_parser.h"

#include "korvel/documents/xml_declaration.h"

#include <algorithm>
#include <string>

namespace korvel {
namespace {

constexpr std::string_view NamespaceAttribute = "xmlns";
constexpr std::string_view NamespacePrefix = "xmlns:";

// Nothing without prefix.
std::optional<std::string_view> PrefixOf(std::string_view name) {
    const std::size_t colon = name.find(':');
    return colon == std::string_view::npos ? std::nullopt : std::optional(name.substr(0, colon));
}

} // namespace

XmlParser::XmlParser(std::string_view document, const std::optional<XmlFault>& fault)
    : m_document(document), m_fault(fault), m_scanner(document) {}

void XmlParser::Fail(std::size_t offset, const XmlReason& reason) const {
    m_scanner.Fail(offset, reason);
}

void XmlParser::ThrowFault() const {
    throw XmlError(m_document, m_document.size(), m_fault->reason, m_fault->cause);
}

XmlParser::Piece XmlParser::Next() {
    try {
        return ReadPiece();
    } catch (const XmlError& error) {
        if (m_fault && error.GetCause() == XmlError::Cause::CutOff)
            ThrowFault();
        throw;
    }
}

XmlParser::Piece XmlParser::ReadPiece() {
    if (m_isEmptyTag)
        return CloseElement();
    if (m_scanner.Position() == 0)
        internal::DeclaredEncoding(m_document); // for its refusals
    for (;;) {
        m_offset = m_scanner.Position();
        if (m_scanner.AtEnd()) {
            CheckEnd();
            return Piece::Finished;
        }
        if (!m_scanner.IsAt("<")) {
            if (ReadText() == Piece::Text)
                return Piece::Text;
        } else if (m_scanner.IsAt("</"))
            return ReadEndTag();
        else if (m_scanner.IsAt("<!--"))
            m_scanner.SkipComment();
        else if (m_scanner.IsAt("<![CDATA["))
            return ReadSection();
        else if (m_scanner.IsAt("<!"))
            SkipDeclaration();
        else if (m_scanner.IsAt("<?"))
            m_scanner.SkipInstruction();
        else
            return ReadStartTag();
    }
}

// Finished for what is outside the root, where only blanks may be.
XmlParser::Piece XmlParser::ReadText() {
    if (!m_open.empty()) {
        m_raw = m_scanner.TakeCharacterData();
        return Piece::Text;
    }
    m_scanner.SkipBlanks();
    if (!m_scanner.AtEnd() && !m_scanner.IsAt("<"))
        Fail(m_scanner.Position(), "text outside the root element");
    return Piece::Finished;
}

XmlParser::Piece XmlParser::ReadSection() {
    if (m_open.empty())
        Fail(m_offset, "text outside the root element");
    m_scanner.TakeCharacterSection();
    m_raw = m_document.substr(m_offset, m_scanner.Position() - m_offset);
    return Piece::Text;
}

void XmlParser::SkipDeclaration() {
    if (m_scanner.IsAt("<!DOCTYPE") && m_mayHaveDocumentType) {
        m_scanner.SkipDocumentType();
        m_mayHaveDocumentType = false;
    } else {
        const bool isCutOff = m_scanner.IsCutOffIn("<!--") || m_scanner.IsCutOffIn("<![CDATA[") ||
                              (m_mayHaveDocumentType && m_scanner.IsCutOffIn("<!DOCTYPE"));
        m_scanner.Fail(m_offset, "no declaration is allowed here",
                       isCutOff ? XmlError::Cause::CutOff : XmlError::Cause::WrongHere);
    }
}

XmlParser::Piece XmlParser::ReadStartTag() {
    if (m_open.empty() && m_hasRoot)
        m_scanner.FailUnlessCutOff("<!--", "a second root element");
    if (m_open.size() == DeepestLevel)
        Fail(m_offset, "the elements are nested deeper than 1,000 levels");
    m_scanner.Skip("<");
    m_name = m_scanner.TakeName();
    ReadAttributes();
    m_isEmptyTag = m_scanner.Skip("/>");
    if (!m_isEmptyTag && !m_scanner.Skip(">"))
        m_scanner.FailUnlessCutOff(m_scanner.IsAt("/") ? "/>" : ">", "'>' is expected here");
    m_open.push_back({m_name, m_prefixes.size()});
    m_hasRoot = true;
    m_mayHaveDocumentType = false;
    DeclarePrefixes();
    CheckPrefix(m_name, NameOf::Element);
    for (const XmlAttribute& attribute : m_attributes)
        CheckPrefix(attribute.name, NameOf::Attribute);
    return Piece::StartTag;
}

void XmlParser::ReadAttributes() {
    m_attributes.clear();
    XmlAttribute attribute;
    try {
        for (; m_scanner.NextAttribute(attribute); attribute = {})
            m_attributes.push_back(attribute);
    } catch (const XmlError&) {
        // A name that is there twice comes before what is wrong after it, unless the end of the text cuts it.
        if (!attribute.name.empty() && OffsetOf(attribute.name) + attribute.name.size() < m_document.size())
            m_attributes.push_back(attribute);
        CheckAttributeNames();
        throw;
    }
    CheckAttributeNames();
}

void XmlParser::CheckAttributeNames() {
    if (m_attributes.size() < 2)
        return;
    m_names.clear();
    for (const XmlAttribute& attribute : m_attributes)
        m_names.push_back(attribute.name);
    std::sort(m_names.begin(), m_names.end(), [](std::string_view a, std::string_view b) {
        const int order = a.compare(b);
        return order != 0 ? order < 0 : a.data() < b.data();
    });
    std::string_view twice; // the first in the file
    for (std::size_t i = 1; i < m_names.size(); ++i)
        if (m_names[i - 1] == m_names[i] && (twice.empty() || m_names[i].data() < twice.data()))
            twice = m_names[i];
    if (!twice.empty())
        Fail(OffsetOf(twice), {"the attribute %1 is here twice", {XmlError::Quoted(twice)}});
}

void XmlParser::DeclarePrefixes() {
    for (const XmlAttribute& attribute : m_attributes) {
        if (!attribute.name.starts_with(NamespacePrefix))
            continue;
        const std::string_view prefix = attribute.name.substr(NamespacePrefix.size());
        if (attribute.value.empty())
            Fail(OffsetOf(attribute.name), {"the prefix %1 stands for nothing", {XmlError::Quoted(prefix)}});
        m_prefixes.push_back(prefix);
        ++m_declared[prefix];
    }
}

void XmlParser::CheckPrefix(std::string_view name, NameOf kind) const {
    const std::optional<std::string_view> prefix = PrefixOf(name);
    if (!prefix)
        return;
    const std::string_view local = name.substr(prefix->size() + 1);
    if (prefix->empty() || local.empty() || local.find(':') != std::string_view::npos)
        Fail(OffsetOf(name), {"the name %1 is not a prefix, ':' and a name", {XmlError::Quoted(name)}});
    const bool isDefined = *prefix == "xml" || (*prefix == NamespaceAttribute && kind == NameOf::Attribute) ||
                           m_declared.contains(*prefix);
    if (!isDefined)
        Fail(OffsetOf(name), {"the prefix %1 is not declared", {XmlError::Quoted(*prefix)}});
}

XmlParser::Piece XmlParser::ReadEndTag() {
    m_scanner.Skip("</");
    const std::string_view name = m_scanner.TakeName();
    if (m_scanner.AtEnd()) // the name may go on
        m_scanner.FailUnlessCutOff(">", "'>' is expected here");
    if (m_open.empty())
        Fail(m_offset, {"the element %1 is closed but not open", {XmlError::Quoted(name)}});
    if (m_open.back().name != name)
        Fail(m_offset, {"the element %1 is closed by %2",
                        {XmlError::Quoted(m_open.back().name), XmlError::Quoted(name)}});
    m_scanner.SkipBlanks();
    if (!m_scanner.Skip(">"))
        m_scanner.FailUnlessCutOff(">", "'>' is expected here");
    return CloseElement();
}

XmlParser::Piece XmlParser::CloseElement() {
    m_isEmptyTag = false;
    m_name = m_open.back().name;
    for (; m_prefixes.size() > m_open.back().prefixes; m_prefixes.pop_back())
        if (const auto declared = m_declared.find(m_prefixes.back()); --declared->second == 0)
            m_declared.erase(declared);
    m_open.pop_back();
    return Piece::EndTag;
}

void XmlParser::CheckEnd() {
    if (!m_open.empty()) {
        const std::string_view name = m_open.back().name;
        const XmlPlace opened = XmlPlaceOf(m_document, OffsetOf(name));
        m_scanner.Fail(m_document.size(),
                       {"the document ends inside the element %1, which begins in line %2",
                        {XmlError::Quoted(name), std::to_string(opened.line)}},
                       XmlError::Cause::CutOff);
    }
    if (m_fault)
        ThrowFault();
    if (!m_hasRoot)
        m_scanner.Fail(m_document.size(), "the document has no element", XmlError::Cause::CutOff);
}

} // namespace korvel
