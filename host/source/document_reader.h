#pragma once

#include "korvel/documents/xml_encoding.h"
#include "source/element_tree.h"
#include "source/source_file.h"

#include <optional>
#include <string>
#include <string_view>

namespace korvel::inspector {

/// The elements of an XML document in UTF-8. One strict pass by XmlParser, with no memory but the tree's;
/// whatever that refuses throws XmlError, and so does `fault`, which is what follows the text.
ElementTree ReadElements(std::string source, const std::optional<XmlFault>& fault = {},
                         ReadingProgress* progress = nullptr);

/// How a file holds its document, for whoever writes it again.
struct FileForm {
    std::string encoding; ///< as DecodedXml names it
    bool hasByteOrderMark = false;
    bool isPacked = false;
};

/// A document's elements, and the file that they are from.
struct LoadedDocument {
    ElementTree tree;
    FileForm form;
    FileStamp stamp;
    std::size_t hash = 0; ///< of the unpacked bytes; see HashOf
    /// Why the file cannot be written again as it is, in UTF-8: some of its bytes are no characters of its
    /// encoding, and are shown as U+FFFD, or other bytes would stand for the same characters. Empty: it can.
    std::string loss;
};

std::size_t HashOf(std::string_view bytes);

/// Reads an XML file of any encoding that DecodeXml knows; `encoding`, unless empty, goes before what the
/// file declares. Throws DocumentError, and ReadingCancelled when `progress` does.
LoadedDocument LoadDocument(const std::string& path, std::string_view encoding = {},
                            ReadingProgress* progress = nullptr);

} // namespace korvel::inspector
