#pragma once

#include "korvel/platform/export.h"

#include <filesystem>
#include <string_view>

namespace korvel::platform {

/// Replaces a file by new content, whole or not at all: also when the machine stops in the middle, the file
/// holds either the old content or the new one.
///
/// The content is written to a file beside it, FILE.PID.new, flushed, and renamed over it, and the folder is
/// flushed; what had that name before is taken for the rest of a killed program and removed. A new file gets
/// the usual permissions; a replaced one keeps its own and, where this user may give it away, its owner. A
/// link is followed, also to a file that is not there yet. The folder must exist.
/// \throws FileError with the file's name and the reason when a step fails; the old file stays and nothing
/// is left beside it. Only the last step, the flush of the folder, fails with the new content in place
KORVEL_API void ReplaceFile(const std::filesystem::path& path, std::string_view content);

} // namespace korvel::platform
