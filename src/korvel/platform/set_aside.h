#pragma once

#include "korvel/platform/export.h"

#include <filesystem>
#include <initializer_list>

namespace korvel::platform {

/// Renames a file to the next free name of the form NAME.damaged, NAME.2.damaged and so on. Nothing is ever
/// replaced, neither a file nor a link, also when another program renames at the same moment.
///
///     SetFileAside("formats.xml")                     -> "formats.xml.damaged"
///     SetFileAside("settings.sqlite", {"-journal"})   -> "settings.sqlite.2.damaged", where there was one before
///
/// `companions` are the ends of the names of files that belong to it: those that are there are renamed too,
/// and a name is free when it is free for them as well. Returns the new name. \throws Error with the file's
/// name and the reason; nothing has changed then
KORVEL_API std::filesystem::path SetFileAside(const std::filesystem::path& file,
                                              std::initializer_list<const char*> companions = {});

} // namespace korvel::platform
