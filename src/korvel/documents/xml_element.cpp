#include "korvel/documents/xml_element.h"

#include "korvel/documents/xml_schema_error.h"
#include "korvel/documents/xml_tree_reader.h"

#include <algorithm>
#include <utility>

namespace korvel {

const XmlElement& XmlElement::Child(std::string_view childName) const {
    const auto found = std::find_if(children.begin(), children.end(),
                                    [&](const XmlElement& child) { return child.name == childName; });
    if (found == children.end())
        throw XmlSchemaError(
            {"the element %1 is missing in %2", {XmlError::Quoted(childName), XmlError::Quoted(name)}});
    return *found;
}

XmlElement ReadXmlElement(std::string document) {
    const DecodedXml decoded = DecodeXml(std::move(document));
    return internal::XmlTreeReader(decoded).Read();
}

} // namespace korvel
