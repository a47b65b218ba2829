#pragma once

#include <string>
#include <utility>
#include <vector>

namespace korvel::inspector {

/// A name and the one that takes its place.
using NameChange = std::pair<std::string, std::string>;

/// The renames of members of one object that happen at once, as a list of which each one can be told after
/// the other: no name is given that another member still has. Where names are exchanged, one goes by a name
/// of its own in between.
///
///     {"b 2" -> "b 3", "b 3" -> "b 4"}   -> {"b 3" -> "b 4", "b 2" -> "b 3"}
std::vector<NameChange> InOrder(std::vector<NameChange> renames);

} // namespace korvel::inspector
