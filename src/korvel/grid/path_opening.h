#pragma once

#include "korvel/window/core/display.h"

#include <string>

namespace korvel::internal {

/// Has the desktop open a file or folder, and tells the user in a box over `owner` why it does not, but for a
/// folder that no program shows. Where it has no program for a file, the user may choose one. True when
/// something was opened, and (kept) whatever came of that choice.
bool OpenOnDesktop(HWND owner, const std::string& path, OpenAs as);

/// The folder of a file, by both kinds of separators; "." for a bare name, the empty text for the empty path.
std::string FolderOf(const std::string& path);

} // namespace korvel::internal
