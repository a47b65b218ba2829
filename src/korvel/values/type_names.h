#pragma once

#include "korvel/values/data_types.h"

#include <string>

namespace korvel::internal {

/// The row of the table of texts that names a type to the user ("Integer", "Length"); -1 for a type that has
/// no name: text forms, man-days, and what is no type.
int TypeNameText(EDataTyps type);

/// The name of a type in the language of the process; a type without a name of its own (a text form,
/// man-days) is named as what it is stored as.
std::string TypeName(EDataTyps type);

} // namespace korvel::internal
