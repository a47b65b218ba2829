#pragma once

#include "korvel/documents/xml_encoding.h"
#include "source/element_tree.h"

#include <optional>
#include <string>
#include <string_view>

namespace korvel::inspector {

/// The elements of an XML document in UTF-8. One strict pass by XmlParser, with no memory but the tree's;
/// whatever that refuses throws XmlError, and so does `fault`, which is what follows the text.
ElementTree ReadElements(std::string source, const std::optional<XmlFault>& fault = {});

/// A document's elements, and how its file writes characters.
struct LoadedDocument {
    ElementTree tree;
    std::string encoding; ///< as DecodedXml names it
    bool hasByteOrderMark = false;
};

/// Reads an XML file of any encoding that DecodeXml knows; `encoding`, unless empty, goes before what the
/// file declares. Throws DocumentError.
LoadedDocument LoadDocument(const std::string& path, std::string_view encoding = {});

} // namespace korvel::inspector
