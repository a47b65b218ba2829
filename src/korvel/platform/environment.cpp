#include "korvel/platform/environment.h"

#include <cstdlib>

namespace korvel::internal {

std::string EnvironmentValue(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? "" : value;
}

} // namespace korvel::internal
