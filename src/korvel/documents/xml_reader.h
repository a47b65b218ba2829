#pragma once

#include <pugixml.hpp>
#include <string>
#include <string_view>

namespace korvel::internal {

/// Reading of XML files whose texts are bytes, as CXmlNode writes them.
///
///     pugi::xml_document document;
///     ReadXmlFile("roads.xml", document);
///     const pugi::xml_node road = RequireChild(document, "Road");
///     RequireText(road, "Name");   // "A & B"

/// Reads a whole file. White space that is all of an element's text is kept; declared entities are not
/// expanded.
/// \throws Error "FILE(line 3, position 7: REASON)", both from 1 and 0 for a file that cannot be read
void ReadXmlFile(const std::string& path, pugi::xml_document& document);

/// Throws the Error of a document in which something required is missing or cannot be read.
[[noreturn]] void ThrowSchemaError();

/// The first child element of this name. \throws the schema error when there is none
pugi::xml_node RequireChild(const pugi::xml_node& parent, const char* name);

/// The text of the first child element of this name: one byte for each character, by its number.
///
/// A text that is a line end alone is empty: an empty element is written with a line end after its tag.
/// \throws the schema error when there is no such element, or for a character above 255
std::string RequireText(const pugi::xml_node& parent, const char* name);

} // namespace korvel::internal
