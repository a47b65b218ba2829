#pragma once

#include "korvel/documents/xml_element.h"

#include <functional>
#include <string>
#include <string_view>

namespace korvel::internal {

/// Reads a whole file of settings. Beside what XmlParser refuses, an element twice in another is refused, and
/// an element inside one of those that hold a text.
///
///     const XmlElement road = ReadXmlFile("road.xml", [](std::string_view name) { return name == "Name"; });
///     BytesOfXmlText(road.Child("Name").text);   // "A & B"
///
/// \throws XmlFileError "FILE(line 3, position 7: REASON)"; UnreadableFile "FILE: REASON" for a file that
/// cannot be read
XmlElement ReadXmlFile(const std::string& path, const std::function<bool(std::string_view)>& holdsText);

/// The bytes of a text that CXmlNode has written: one for each character up to U+00FF, by its number; the
/// bytes of the code page for any other. A text that is a line end alone is empty: an empty element is
/// written with a line end after its tag.
std::string BytesOfXmlText(std::string_view utf8);

} // namespace korvel::internal
