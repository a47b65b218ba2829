#pragma once

#include <cstddef>
#include <string>
#include <vector>

/// Which groups of a document were open when the user last left it, kept in the user's settings for the
/// documents that were left last. Where the settings fail nothing is kept, silently.
namespace korvel::inspector {

/// An open group of a tree. A list of them is in the order of their rows, so what follows one with a greater
/// depth is in it.
struct OpenGroup {
    std::size_t depth; ///< 0 for one of the first level
    std::string name;  ///< in the library's texts

    bool operator==(const OpenGroup&) const = default;
};

inline constexpr std::size_t MostKeptDocuments = 20;
inline constexpr std::size_t MostKeptBytes = 16384; ///< of a document: of more groups, the first are kept

/// Those of a file (a path as bytes); none where nothing is kept.
std::vector<OpenGroup> KeptOpenGroups(const std::string& file);
void KeepOpenGroups(const std::string& file, const std::vector<OpenGroup>& groups);

} // namespace korvel::inspector
