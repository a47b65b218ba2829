#pragma once

#include "korvel/documents/xml_element.h"
#include "korvel/documents/xml_parser.h"

#include <functional>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

namespace korvel::internal {

/// Reads a document into elements.
class XmlTreeReader {
public:
    /// Says of an element by its name whether it holds a text, and so no other elements.
    using HoldsText = std::function<bool(std::string_view)>;

    /// `document` must outlive this. With `holdsText` an element twice in another is refused as well.
    explicit XmlTreeReader(const DecodedXml& document, HoldsText holdsText = {})
        : m_parser(document.text, document.fault), m_holdsText(std::move(holdsText)) {}

    /// To be called once. \throws XmlError
    XmlElement Read();

private:
    // An element whose end has not been read, and the names that were in it so far.
    struct OpenElement {
        XmlElement element;
        std::unordered_set<std::string_view> names;
    };

    void Open();
    void CheckPlace();
    void Close();

    XmlParser m_parser;
    HoldsText m_holdsText;
    std::vector<OpenElement> m_open;
};

} // namespace korvel::internal
