#pragma once

#include "korvel/values/member_dispatch.h"

#include <string_view>

namespace korvel::inspector {

/// The length of a member's name at the beginning of a path, whose names are separated by '/' and may hold
/// one themselves; 0 where the path begins with another name.
std::size_t StepAt(std::string_view path, std::string_view name);

/// True where a path of member names leads to a member below an object. Of several names that a path begins
/// with, the longest one is meant.
bool HasMember(IMemberDispatch& root, std::string_view path);

} // namespace korvel::inspector
