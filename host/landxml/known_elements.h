#pragma once

#include <string_view>

namespace korvel::inspector {

/// Whether LandXML has an element of this local name, in any of its versions 1.0, 1.1, 1.2 and the draft of
/// 2.0.
bool IsKnownElement(std::string_view localName);

} // namespace korvel::inspector
