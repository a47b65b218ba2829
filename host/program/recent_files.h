#pragma once

#include <cstddef>
#include <string>
#include <vector>

/// The files that were opened last, kept in the user's settings. Where the settings fail the list stays
/// as it is kept, silently. Paths are bytes of the file system.
namespace korvel::inspector {

inline constexpr std::size_t MostRecentFiles = 9;

/// The latest first; as they are kept now, so that several inspectors share one list.
std::vector<std::string> RecentFiles();
/// Puts the file before all others, under its absolute path.
void AddRecentFile(const std::string& file);
void RemoveRecentFile(const std::string& file);

} // namespace korvel::inspector
