#pragma once

#include "korvel/window/base/types.h"

#include <string>

namespace korvel {

/// Shows the display's file chooser and waits for it. True, and the path of the file in `path`, when the user
/// chose one; false, and `path` as it was, when the user cancelled.
///
///     std::string path = "plan.xml";
///     if (doModalFileDialog(path, 1, "xml", path.c_str(), 0x1000, Text(4), parent, 0, 1))
///         Read(path);
///
/// - `openFile`: 0 asks for a file to write.
/// - `defaultExtension` is added to a name without one, unless it is that of a file to open that is there;
///   `fileName` is shown at the beginning. Both may be null.
/// - `flags`: 2 asks before a file is overwritten, 0x800 takes only names in folders that exist, 0x1000 only
///   files that exist; the user is told and asked again. Other bits count for nothing.
/// - `filter`: pairs of description and patterns, each followed by "|"; patterns are separated by ";" and
///   ignore case, and "*.*" is every file. May be null.
/// - `structSize` and `vistaStyle` are there for hosts that hand them over, and count for nothing.
///
/// Any thread; the focus leaves meanwhile and comes back. \throws Error when the settings name no language
/// and the user must be told.
KORVEL_API bool doModalFileDialog(std::string& path, int openFile, const char* defaultExtension,
                                  const char* fileName, unsigned long flags, const char* filter, HWND parent,
                                  unsigned long structSize, int vistaStyle);

} // namespace korvel
