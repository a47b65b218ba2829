#pragma once

#include "korvel/values/data_types.h"

#include <string>

/// Texts that tell the user of a refusal. What was typed is quoted up to 500 bytes.
namespace korvel::internal {

/// What the user is told of a member's name that is none, and of one that another member has.
std::string InvalidNameText(const std::string& name);
std::string TakenNameText(const std::string& name);

/// What the user is told of a typed text that was refused: the text of the refusal (`own`), and where that is
/// empty, as after a syntax error, that `typed` is no value of the type.
std::string RefusalText(const std::string& own, const std::string& typed, EDataTyps type);

} // namespace korvel::internal
