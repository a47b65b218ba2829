#pragma once

#include "landxml/document_change.h"

#include <string>

namespace korvel::inspector {

class LandXmlDocument;

/// The member that a change is about, as it is shown now.
struct ChangedMember {
    ElementIndex owner; ///< the element whose object has it
    std::string name;   ///< empty where the member is gone
};

ChangedMember MemberOf(LandXmlDocument& document, const DocumentChange& change);

} // namespace korvel::inspector
