#include "source/document_reader.h"

#include "korvel/documents/xml_parser.h"
#include "source/blanks.h"
#include "source/document_error.h"
#include "texts/messages.h"

#include <algorithm>
#include <functional>
#include <limits>
#include <utility>

namespace korvel::inspector {
namespace {

constexpr std::size_t ReadAtOnce = 1 << 18; // bytes, until the reading can be cancelled
constexpr std::size_t ShortestElement = std::string_view("<a/>").size();

// At least the number of elements: what begins like a start tag, also in comments and character sections, but
// never more than there is room for.
std::size_t CountStartTags(std::string_view source) {
    std::size_t count = 0;
    for (std::size_t i = source.find('<'); i != std::string_view::npos; i = source.find('<', i + 1))
        if (i + 1 < source.size() && source[i + 1] != '/' && source[i + 1] != '!' && source[i + 1] != '?')
            ++count;
    return std::min(count, source.size() / ShortestElement);
}

// True when the name that was given from outside is what is wrong: it has no place in the document, while the
// bytes of a document are never wrong before its first '<'.
bool IsOfName(std::string_view encoding, const XmlError& error) {
    const XmlPlace place = error.Place();
    return !encoding.empty() && error.GetCause() == XmlError::Cause::Encoding && place.line == 1 &&
           place.position == 1;
}

// Whether no two texts of bytes stand for the same characters.
bool HasOneForm(std::string_view encoding) {
    return encoding.starts_with("UTF-") || encoding == "ISO-8859-1" || encoding == "windows-1252";
}

std::string LossOf(const DecodedXml& decoded, std::size_t hashOfBytes) {
    if (decoded.replaced)
        return SayOfDocument(XmlError(decoded.text, decoded.replaced->offset, decoded.replaced->reason,
                                      XmlError::Cause::Encoding));
    if (decoded.fault || HasOneForm(decoded.encoding)) // whoever reads the elements throws a fault
        return {};
    const std::optional<std::string> bytes =
        EncodeXml(decoded.text, decoded.encoding, decoded.hasByteOrderMark);
    if (bytes && HashOf(*bytes) == hashOfBytes)
        return {};
    return Say({"the encoding %1 has several ways to write the same characters", {decoded.encoding}});
}

} // namespace

class DocumentReader {
public:
    DocumentReader(std::string source, const std::optional<XmlFault>& fault, ReadingProgress* progress)
        : m_tree(std::move(source)), m_source(m_tree.m_source), m_parser(m_source, fault),
          m_progress(progress, ReadingProgress::Phase::Elements, m_source.size(), ReadAtOnce) {
        if (m_source.size() >= std::numeric_limits<std::uint32_t>::max()) // of offsets; UTF-8 may be longer
            m_parser.Fail(0, "the document is larger than 4 GB in UTF-8");
        m_tree.m_elements.reserve(CountStartTags(m_source));
    }

    ElementTree Read() {
        for (XmlParser::Piece piece; (piece = m_parser.Next()) != XmlParser::Piece::Finished;)
            if (piece == XmlParser::Piece::StartTag)
                Open();
            else if (piece == XmlParser::Piece::Text)
                AddToText(Trim(m_parser.Raw()));
            else
                Close();
        std::sort(m_tree.m_mixedTexts.begin(), m_tree.m_mixedTexts.end(), [](const auto& a, const auto& b) {
            return a.element != b.element ? a.element < b.element : a.begin < b.begin;
        });
        m_tree.IndexNamespaces();
        return std::move(m_tree);
    }

private:
    struct OpenElement {
        ElementIndex element;
        std::uint32_t textBegin = 0;
        std::uint32_t textEnd = 0; // 0: nothing but blanks since the last tag
    };

    void Open() {
        m_progress.Reach(m_parser.Offset());
        if (!m_open.empty())
            KeepText(m_open.back());
        const auto element = static_cast<ElementIndex>(m_tree.m_elements.size());
        m_tree.m_elements.push_back({static_cast<std::uint32_t>(m_parser.Offset()), element + 1,
                                     m_open.empty() ? NoElement : m_open.back().element});
        m_open.push_back({element});
        for (const XmlAttribute& attribute : m_parser.Attributes())
            if (attribute.name == "xmlns" || attribute.name.starts_with("xmlns:"))
                DeclareNamespace(element, attribute);
    }

    // It is asked for with every name, so a long one would be read again and again.
    void DeclareNamespace(ElementIndex element, const XmlAttribute& attribute) {
        const std::size_t offset = m_tree.OffsetOf(attribute.name);
        if (attribute.value.size() > XmlScanner::LongestName)
            m_parser.Fail(offset, "a namespace is longer than 1,000 bytes");
        m_tree.m_namespaces.push_back({element, static_cast<std::uint32_t>(offset)});
    }

    void AddToText(std::string_view piece) {
        if (piece.empty())
            return;
        OpenElement& open = m_open.back();
        const auto begin = static_cast<std::uint32_t>(m_tree.OffsetOf(piece));
        if (open.textEnd == 0)
            open.textBegin = begin;
        open.textEnd = begin + static_cast<std::uint32_t>(piece.size());
    }

    void KeepText(OpenElement& open) {
        if (open.textEnd != 0)
            m_tree.m_mixedTexts.push_back({open.element, open.textBegin, open.textEnd});
        open.textEnd = 0;
    }

    // The text of an element without children is found again from its start tag.
    void Close() {
        OpenElement& open = m_open.back();
        const ElementIndex end = m_tree.Count();
        m_tree.m_elements[open.element].end = end;
        if (end != open.element + 1)
            KeepText(open);
        m_open.pop_back();
    }

    ElementTree m_tree;
    std::string_view m_source;
    XmlParser m_parser;
    std::vector<OpenElement> m_open;
    PhaseProgress m_progress;
};

ElementTree ReadElements(std::string source, const std::optional<XmlFault>& fault,
                         ReadingProgress* progress) {
    return DocumentReader(std::move(source), fault, progress).Read();
}

std::size_t HashOf(std::string_view bytes) {
    return std::hash<std::string_view>()(bytes);
}

LoadedDocument LoadDocument(const std::string& path, std::string_view encoding, ReadingProgress* progress) {
    SourceFile file = ReadSourceFile(path, progress);
    const std::size_t hash = HashOf(file.bytes);
    try {
        DecodedXml decoded = DecodeXml(std::move(file.bytes), encoding, WrongBytes::Replace);
        std::string loss = LossOf(decoded, hash);
        return {ReadElements(std::move(decoded.text), decoded.fault, progress),
                {decoded.encoding, decoded.hasByteOrderMark, file.isPacked},
                file.stamp,
                hash,
                std::move(loss)};
    } catch (const XmlError& error) {
        if (IsOfName(encoding, error))
            throw DocumentError(path, error.Details());
        throw DocumentError(path, error);
    }
}

} // namespace korvel::inspector
