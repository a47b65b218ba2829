#pragma once

#include "korvel/documents/xml_encoding.h"
#include "source/element_tree.h"

#include <string>

namespace korvel::inspector {

/// No file of the field nests deeper than some dozen elements.
inline constexpr std::size_t DeepestLevel = 1000;

/// The elements of an XML document in UTF-8. One strict pass, with no memory but the tree's: whatever is not
/// well-formed, declares entities, nests deeper than DeepestLevel or has an attribute longer than
/// XmlScanner::LongestAttribute throws XmlError.
ElementTree ReadElements(std::string source);

/// A document's elements, and how its file writes characters.
struct LoadedDocument {
    ElementTree tree;
    XmlEncoding encoding = XmlEncoding::Utf8;
    bool hasByteOrderMark = false;
};

/// Reads an XML file of any encoding that DecodeXml knows. Throws DocumentError.
LoadedDocument LoadDocument(const std::string& path);

} // namespace korvel::inspector
