#include "korvel/window/core/display.h"

#include "korvel/window/base/messages.h"
#include "korvel/window/core/display_thread.h"

namespace korvel {

IDisplay& Display() {
    return internal::DisplayInForce();
}

std::vector<CRect> IDisplay::Screens() {
    return {{0, 0, Metric(SM_CXSCREEN), Metric(SM_CYSCREEN)}};
}

} // namespace korvel
