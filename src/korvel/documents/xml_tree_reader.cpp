#include "korvel/documents/xml_tree_reader.h"

#include "korvel/documents/xml_error.h"
#include "korvel/documents/xml_text.h"

namespace korvel::internal {

XmlElement XmlTreeReader::Read() {
    m_open.emplace_back(); // the document, whose child is the root
    for (XmlParser::Piece piece; (piece = m_parser.Next()) != XmlParser::Piece::Finished;)
        if (piece == XmlParser::Piece::StartTag)
            Open();
        else if (piece == XmlParser::Piece::Text)
            m_open.back().element.text += DecodeXmlText(m_parser.Raw(), std::string::npos).utf8;
        else
            Close();
    return std::move(m_open.back().element.children.front());
}

void XmlTreeReader::Open() {
    if (m_holdsText)
        CheckPlace();
    XmlElement& element = m_open.emplace_back().element;
    element.name = m_parser.Name();
    for (const XmlAttribute& attribute : m_parser.Attributes())
        element.attributes.emplace(attribute.name,
                                   DecodeXmlAttribute(attribute.value, std::string::npos).utf8);
}

void XmlTreeReader::CheckPlace() {
    OpenElement& parent = m_open.back();
    const auto fail = [&](const char* sentence) {
        m_parser.Fail(m_parser.Offset(),
                      {sentence, {XmlError::Quoted(m_parser.Name()), XmlError::Quoted(parent.element.name)}});
    };
    if (m_holdsText(parent.element.name))
        fail("the element %1 is inside %2, which holds a text");
    if (!parent.names.insert(m_parser.Name()).second)
        fail("the element %1 is here twice");
}

void XmlTreeReader::Close() {
    XmlElement element = std::move(m_open.back().element);
    m_open.pop_back();
    m_open.back().element.children.push_back(std::move(element));
}

} // namespace korvel::internal
