#pragma once

#include "landxml/document_change.h"

#include <string>

namespace korvel::inspector {

class LandXmlDocument;

/// The member that something is about, as it is shown now.
struct ChangedMember {
    ElementIndex owner; ///< the element whose object has it
    std::string name;   ///< empty where the member is gone
};

ChangedMember MemberOf(LandXmlDocument& document, const DocumentChange& change);
/// The member at an address; with an empty key, the one that is the element's object. The root is no member.
ChangedMember MemberAt(LandXmlDocument& document, const MemberAddress& address);

} // namespace korvel::inspector
