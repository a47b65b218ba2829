#pragma once

#include "korvel/platform/export.h"

namespace korvel::platform {

/// Whether windows can be shown to a user: the session names a display, which may still fail to open.
KORVEL_API bool HasScreen();

} // namespace korvel::platform
