#include "korvel/platform/screen.h"

#include "korvel/platform/environment.h"

namespace korvel::platform {

bool HasScreen() {
    return !EnvironmentValue("WAYLAND_DISPLAY").empty() || !EnvironmentValue("DISPLAY").empty();
}

} // namespace korvel::platform
