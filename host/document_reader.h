#pragma once

#include "element_tree.h"

#include <string>

namespace korvel::inspector {

/// No file of the field nests deeper than some dozen elements.
inline constexpr std::size_t DeepestLevel = 1000;

/// The elements of an XML document in UTF-8. One strict pass, with no memory but the tree's: whatever is not
/// well-formed, declares entities, nests deeper than DeepestLevel or has an attribute longer than
/// LongestAttribute throws SourceError.
ElementTree ReadElements(std::string source);

} // namespace korvel::inspector
