#include "korvel/window/core/forget_window.h"

#include "korvel/window/core/capture.h"
#include "korvel/window/core/display_thread.h"
#include "korvel/window/core/focus.h"
#include "korvel/window/core/timers.h"

namespace korvel::internal {

void ForgetWindow(WindowRecord& record) {
    record.DetachObject();
    if (!IsOnDisplay(record))
        return;
    ForgetTimers(record.handle);
    ForgetCapture(record.handle);
    ForgetFocus(record.handle);
}

} // namespace korvel::internal
