#include "korvel/window/core/set_display.h"

#include "korvel/window/core/capture.h"
#include "korvel/window/core/display_thread.h"
#include "korvel/window/core/focus.h"
#include "korvel/window/core/own_windows.h"
#include "korvel/window/core/timers.h"
#include "korvel/window/core/window.h"

namespace korvel {

using namespace internal;

namespace {

void TellCreated(IDisplay& display, HWND window) {
    const RecordRef record = Find(window);
    if (!record)
        return;
    display.Created(window);
    for (const HWND child : record->children)
        TellCreated(display, child);
}

} // namespace

void SetDisplay(IDisplay* newDisplay) {
    IDisplay& display = newDisplay ? *newDisplay : DefaultDisplay();
    if (!PutInForce(display)) {
        ForgetFocus();
        ForgetCapture();
        ForgetTimers();
    }
    for (const RecordRef& record : OwnWindows())
        if (!record->parent)
            TellCreated(display, record->handle);
    display.Focus(GetFocus());
    display.Capture(GetCapture());
    RestartTimers(display);
    display.Wake(); // what was posted before still waits
}

} // namespace korvel
