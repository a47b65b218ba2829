#pragma once

#include "korvel/values/variant_value.h"
#include "landxml/element_members.h"

#include <optional>
#include <string>
#include <vector>

namespace korvel::inspector {

class LandXmlDocument;

/// How a member is shown, and what it is whatever it is called.
struct MemberState {
    MemberKind kind;
    std::uint32_t place;   ///< as in Member; 0 for an attribute
    std::string attribute; ///< its name in the file
    std::string name;
    CVariantValue value; ///< of an attribute or a text of the element itself
    bool isEditable = false;

    bool IsSameMember(const MemberState& other) const {
        return kind == other.kind && place == other.place && attribute == other.attribute;
    }
};

/// How the members of an element are shown at one time, in their order.
struct ObjectState {
    std::vector<MemberState> members;
    std::optional<std::string> presentation; ///< the text beside its name, where it has one
};

ObjectState StateOf(LandXmlDocument& document, ElementIndex element);

/// Which members of two states are the same. An attribute in the place of the only one that is gone is that
/// one under another name.
struct PairedStates {
    static constexpr std::size_t None = static_cast<std::size_t>(-1);

    PairedStates(const ObjectState& before, const ObjectState& after);

    std::vector<std::size_t> newIndex; ///< of each former member; None: it is gone
    std::vector<std::size_t> oldIndex; ///< of each member; None: it is new
};

} // namespace korvel::inspector
