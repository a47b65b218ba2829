#pragma once

#include <string>

namespace korvel::internal {

/// The value of an environment variable, empty when it is not set.
std::string EnvironmentValue(const char* name);

} // namespace korvel::internal
