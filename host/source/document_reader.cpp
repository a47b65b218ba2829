#include "source/document_reader.h"

#include "source/blanks.h"
#include "source/document_error.h"
#include "source/source_file.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace korvel::inspector {
namespace {

// At least the number of elements: the tags whose name begins like one. Characters sections may hold more.
std::size_t CountStartTags(std::string_view source) {
    std::size_t count = 0;
    for (std::size_t i = source.find('<'); i != std::string_view::npos; i = source.find('<', i + 1))
        if (i + 1 < source.size() && source[i + 1] != '/' && source[i + 1] != '!' && source[i + 1] != '?')
            ++count;
    return count;
}

void CheckUniqueNames(const XmlScanner& scanner, std::string_view source,
                      std::vector<std::string_view>& names) {
    std::sort(names.begin(), names.end());
    const auto twice = std::adjacent_find(names.begin(), names.end());
    if (twice == names.end())
        return;
    const std::string_view second = std::max(
        *twice, *(twice + 1), [](std::string_view a, std::string_view b) { return a.data() < b.data(); });
    scanner.Fail(static_cast<std::size_t>(second.data() - source.data()),
                 "the attribute " + XmlError::Quoted(second) + " is here twice");
}

} // namespace

class DocumentReader {
public:
    explicit DocumentReader(std::string source) {
        m_tree.m_source = std::move(source);
        m_source = m_tree.m_source;
        if (m_source.size() >= std::numeric_limits<std::uint32_t>::max()) // of offsets; UTF-8 may be longer
            m_scanner.Fail(0, "the document is larger than 4 GB in UTF-8");
        m_scanner = XmlScanner(m_source);
        m_tree.m_elements.reserve(CountStartTags(m_source));
    }

    ElementTree Read() {
        while (!m_scanner.AtEnd())
            ReadPiece();
        if (!m_open.empty())
            FailCutOff();
        if (m_tree.m_elements.empty())
            m_scanner.Fail(m_source.size(), "the document has no element");
        std::sort(m_tree.m_mixedTexts.begin(), m_tree.m_mixedTexts.end(),
                  [](const auto& a, const auto& b) { return a.element < b.element; });
        m_tree.IndexNamespaces();
        return std::move(m_tree);
    }

private:
    struct OpenElement {
        ElementIndex element;
        std::uint32_t textBegin = 0;
        std::uint32_t textEnd = 0;
        bool severalTexts = false;
    };

    void ReadPiece() {
        if (!m_scanner.IsAt("<"))
            NoteText(OnlyBlanksOutside(m_scanner.TakeCharacterData()));
        else if (m_scanner.IsAt("</"))
            EndTag();
        else if (m_scanner.IsAt("<!--"))
            m_scanner.SkipComment();
        else if (m_scanner.IsAt("<![CDATA["))
            CharacterSection();
        else if (m_scanner.IsAt("<!"))
            DocumentType();
        else if (m_scanner.IsAt("<?"))
            m_scanner.SkipInstruction();
        else
            StartTag();
    }

    std::string_view OnlyBlanksOutside(std::string_view data) {
        const std::string_view text = Trim(data);
        if (m_open.empty() && !text.empty())
            m_scanner.Fail(m_tree.OffsetOf(text), "text outside the root element");
        return text;
    }

    void NoteText(std::string_view text) {
        if (m_open.empty() || text.empty())
            return;
        OpenElement& open = m_open.back();
        if (open.textEnd != 0) {
            open.severalTexts = true;
            return;
        }
        open.textBegin = static_cast<std::uint32_t>(m_tree.OffsetOf(text));
        open.textEnd = static_cast<std::uint32_t>(open.textBegin + text.size());
    }

    void CharacterSection() {
        const std::size_t start = m_scanner.Position();
        if (m_open.empty())
            m_scanner.Fail(start, "text outside the root element");
        m_scanner.TakeCharacterSection();
        NoteText(m_source.substr(start, m_scanner.Position() - start));
    }

    void DocumentType() {
        if (!m_scanner.IsAt("<!DOCTYPE") || !m_tree.m_elements.empty())
            m_scanner.Fail(m_scanner.Position(), "no declaration is allowed here");
        m_scanner.SkipDocumentType();
    }

    void StartTag() {
        const std::size_t start = m_scanner.Position();
        if (m_open.empty() && !m_tree.m_elements.empty())
            m_scanner.Fail(start, "a second root element");
        if (m_open.size() == DeepestLevel)
            m_scanner.Fail(start, "the elements are nested deeper than 1,000 levels");
        m_scanner.Skip("<");
        m_scanner.TakeName();
        const auto element = static_cast<ElementIndex>(m_tree.m_elements.size());
        m_tree.m_elements.push_back({static_cast<std::uint32_t>(start), element + 1,
                                     m_open.empty() ? NoElement : m_open.back().element});
        ReadAttributes(element);
        if (m_scanner.Skip("/>"))
            return;
        if (!m_scanner.Skip(">"))
            m_scanner.Fail(m_scanner.Position(), "'>' is expected here");
        m_open.push_back({element});
    }

    void ReadAttributes(ElementIndex element) {
        m_names.clear();
        for (XmlAttribute attribute; m_scanner.NextAttribute(attribute);) {
            m_names.push_back(attribute.name);
            if (attribute.name == "xmlns" || attribute.name.starts_with("xmlns:"))
                DeclareNamespace(element, attribute);
        }
        if (m_names.size() > 1)
            CheckUniqueNames(m_scanner, m_source, m_names);
    }

    // It is asked for with every name, so a long one would be read again and again.
    void DeclareNamespace(ElementIndex element, const XmlAttribute& attribute) {
        const std::size_t offset = m_tree.OffsetOf(attribute.name);
        if (attribute.value.size() > XmlScanner::LongestName)
            m_scanner.Fail(offset, "a namespace is longer than 1,000 characters");
        m_tree.m_namespaces.push_back({element, static_cast<std::uint32_t>(offset)});
    }

    void EndTag() {
        const std::size_t start = m_scanner.Position();
        m_scanner.Skip("</");
        const std::string_view name = m_scanner.TakeName();
        m_scanner.SkipBlanks();
        if (!m_scanner.Skip(">"))
            m_scanner.Fail(m_scanner.Position(), "'>' is expected here");
        if (m_open.empty())
            m_scanner.Fail(start, "the element " + XmlError::Quoted(name) + " is closed but not open");
        const OpenElement open = m_open.back();
        if (m_tree.Name(open.element) != name)
            m_scanner.Fail(start, "the element " + XmlError::Quoted(m_tree.Name(open.element)) +
                                      " is closed by " + XmlError::Quoted(name));
        m_open.pop_back();
        Close(open);
    }

    void Close(const OpenElement& open) {
        const ElementIndex end = m_tree.Count();
        m_tree.m_elements[open.element].end = end;
        if (open.textEnd != 0 && end != open.element + 1)
            m_tree.m_mixedTexts.push_back({open.element, !open.severalTexts, open.textBegin, open.textEnd});
    }

    [[noreturn]] void FailCutOff() {
        const ElementIndex element = m_open.back().element;
        const XmlPlace opened = XmlPlaceOf(m_source, m_tree.OffsetOf(m_tree.Name(element)));
        m_scanner.Fail(m_source.size(), "the document ends inside the element " +
                                            XmlError::Quoted(m_tree.Name(element)) +
                                            ", which begins in line " + std::to_string(opened.line));
    }

    ElementTree m_tree;
    std::string_view m_source;
    XmlScanner m_scanner{{}};
    std::vector<OpenElement> m_open;
    std::vector<std::string_view> m_names;
};

ElementTree ReadElements(std::string source) {
    return DocumentReader(std::move(source)).Read();
}

LoadedDocument LoadDocument(const std::string& path) {
    std::string bytes = ReadSourceFile(path);
    try {
        DecodedXml decoded = DecodeXml(std::move(bytes));
        return {ReadElements(std::move(decoded.text)), decoded.encoding, decoded.hasByteOrderMark};
    } catch (const XmlError& error) {
        throw DocumentError(path, error);
    }
}

} // namespace korvel::inspector
