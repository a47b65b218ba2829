#pragma once

#include "korvel/platform/export.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace korvel {

/// An element of a small document, with all that is in it. All texts are in UTF-8.
///
///     const XmlElement road = ReadXmlElement("<road name='A 7'><lane width='3.5'/></road>");
///     road.Child("lane").attributes.at("width");   // "3.5"
struct KORVEL_API XmlElement {
    std::string name;
    std::map<std::string, std::string, std::less<>> attributes{};
    std::string text{}; ///< all its characters, without those of the elements in it
    std::vector<XmlElement> children{};

    /// The first child of this name. \throws XmlSchemaError when there is none
    const XmlElement& Child(std::string_view childName) const;
};

/// Reads a whole document. \throws XmlError for what XmlParser refuses
KORVEL_API XmlElement ReadXmlElement(std::string document);

} // namespace korvel
