#pragma once

#include "korvel/window/core/cwnd.h"

#include <string>

namespace korvel::inspector {

enum class FileUse { Open, Save };

/// Lets the user choose a LandXML file to open, or to save to; an existing one only to be replaced knowingly.
/// Paths are UTF-8: `begin` is shown first, and an empty one is returned where none was chosen.
std::string AskForDocument(FileUse use, const std::string& begin, const CWnd& owner);

} // namespace korvel::inspector
