#include "korvel/window/core/display.h"

#include "korvel/window/core/display_thread.h"

namespace korvel {

IDisplay& Display() {
    return internal::DisplayInForce();
}

} // namespace korvel
