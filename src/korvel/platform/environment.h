#pragma once

#include <string>

namespace korvel::platform {

/// The value of an environment variable, empty when it is not set.
std::string EnvironmentValue(const char* name);

} // namespace korvel::platform
