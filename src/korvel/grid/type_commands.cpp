#include "korvel/grid/type_commands.h"

#include <algorithm>
#include <iterator>

namespace korvel::internal {

namespace {

enum class Role { SourceAndTarget, Target };

struct TypeCommand {
    EDataTyps type;
    GridCommand command;
    Role role;
};

// In the order of the types. What is a source converts to each of the others.
constexpr TypeCommand Commands[] = {
    {DT_Int, GridCommand::ChangeToInt, Role::SourceAndTarget},
    {DT_Long, GridCommand::ChangeToLong, Role::SourceAndTarget},
    {DT_Float, GridCommand::ChangeToFloat, Role::SourceAndTarget},
    {DT_Double, GridCommand::ChangeToDouble, Role::SourceAndTarget},
    {DT_String, GridCommand::ChangeToString, Role::Target},
    {DT_UInt, GridCommand::ChangeToUInt, Role::Target},
    {DT_AngleFloat, GridCommand::ChangeToAngleFloat, Role::SourceAndTarget},
    {DT_AngleDouble, GridCommand::ChangeToAngleDouble, Role::SourceAndTarget},
};

} // namespace

std::optional<EDataTyps> TypeOfCommand(GridCommand command) {
    const auto* found = std::find_if(std::begin(Commands), std::end(Commands),
                                     [=](const TypeCommand& row) { return row.command == command; });
    return found == std::end(Commands) ? std::nullopt : std::optional(found->type);
}

GridCommand CommandOfType(EDataTyps target) {
    return std::ranges::find(Commands, target, &TypeCommand::type)->command;
}

std::vector<EDataTyps> ConversionsOf(EDataTyps source) {
    const bool isSource = std::any_of(std::begin(Commands), std::end(Commands), [=](const TypeCommand& row) {
        return row.type == source && row.role == Role::SourceAndTarget;
    });
    std::vector<EDataTyps> targets;
    for (const TypeCommand& row : Commands)
        if (isSource && row.type != source)
            targets.push_back(row.type);
    return targets;
}

} // namespace korvel::internal
