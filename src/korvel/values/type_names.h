#pragma once

#include "korvel/values/data_types.h"

namespace korvel::internal {

/// The row of the table of texts that names a type to the user ("Integer", "Length"); -1 for a type that has
/// no name: text forms, man-days, and what is no type.
int TypeNameText(EDataTyps type);

} // namespace korvel::internal
