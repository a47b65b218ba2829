#pragma once

#include "korvel/platform/export.h"

#include <filesystem>

namespace korvel::platform {

/// Where this library keeps what belongs to the user: `~/.config/korvel` or as XDG_CONFIG_HOME says. The
/// folder need not exist. Empty when the user has no home.
KORVEL_API std::filesystem::path UserConfigFolder();

/// The same for what belongs to the machine: `/etc/xdg/korvel` or as the first folder of XDG_CONFIG_DIRS
/// says.
KORVEL_API std::filesystem::path MachineConfigFolder();

} // namespace korvel::platform
