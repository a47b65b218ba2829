#pragma once

#include "landxml/landxml_enumeration.h"

#include <string_view>
#include <vector>

namespace korvel::inspector {

/// One enumeration of LandXML and where it is used: words of the form "Element@attribute", "attribute" for an
/// attribute of any element, or "Element@" for its text.
struct EnumerationUse {
    LandXmlEnumeration* enumeration;
    std::vector<std::string_view> places;
};

/// All of them, made at first use and kept.
const std::vector<EnumerationUse>& EnumerationUses();

} // namespace korvel::inspector
