#pragma once

#include "korvel/window/core/display.h"

namespace korvel {

/// Installs a display (not owned; null puts the headless one back); the calling thread becomes the
/// display's. Its windows that exist already are reported by Created, parents first, then the focus; the
/// periods of running timers begin anew. A display takes itself out of force before it dies.
KORVEL_API void SetDisplay(IDisplay* display);

} // namespace korvel
