#pragma once

#include "korvel/grid/grid_command.h"
#include "korvel/values/data_types.h"

#include <optional>
#include <vector>

namespace korvel::internal {

/// The type that a command gives to a member; nothing for other commands.
std::optional<EDataTyps> TypeOfCommand(GridCommand command);

/// The other way round, for a type that ConversionsOf returns.
GridCommand CommandOfType(EDataTyps target);

/// The types that a menu offers for a member of this type, in ascending order; none for a type from which
/// there is no way, as from a text. Each has a command.
std::vector<EDataTyps> ConversionsOf(EDataTyps source);

} // namespace korvel::internal
