#include "korvel/platform/screen.h"

#include "korvel/platform/environment.h"

namespace korvel::platform {

bool HasScreen() {
    return !internal::EnvironmentValue("WAYLAND_DISPLAY").empty() ||
           !internal::EnvironmentValue("DISPLAY").empty();
}

} // namespace korvel::platform
