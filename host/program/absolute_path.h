#pragma once

#include <string>

namespace korvel::inspector {

/// The path of a file from the root; as it is where the current folder has gone.
std::string AbsolutePath(const std::string& file);

/// The one path by which a file is known, links followed; the file need not exist.
std::string CanonicalPath(const std::string& file);

} // namespace korvel::inspector
