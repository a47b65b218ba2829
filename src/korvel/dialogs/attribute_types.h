#pragma once

#include "korvel/editors/grid_option.h"
#include "korvel/values/enum_value.h"
#include "korvel/values/variant_value.h"

#include <string>
#include <vector>

namespace korvel::internal {

/// A type that a new attribute may have.
struct AttributeType {
    std::string label;   ///< in the language of the process
    CVariantValue value; ///< what an attribute of this type begins with
};

/// The types that the mask allows, and after them a list of each enumeration of the container (may be null)
/// whose type it allows. Measures have 64 bits where these are allowed, else 32.
std::vector<AttributeType> AttributeTypes(std::uint32_t allowed, IEnumContainer* enumerations);

/// What a typed text is as a value like `fresh`; `fresh` where it is no such value, and where texts are not
/// typed.
CVariantValue FromTypedText(const CVariantValue& fresh, const std::string& typed, GridOptions options);

} // namespace korvel::internal
