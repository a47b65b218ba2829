#include "korvel/window/core/forget_window.h"

#include "korvel/window/core/capture.h"
#include "korvel/window/core/display_thread.h"
#include "korvel/window/core/focus.h"
#include "korvel/window/core/thread_queue.h"
#include "korvel/window/core/timers.h"

namespace korvel::internal {

namespace {

// Who holds the temporary object may be about to use it.
void EndTemporary(WindowRecord& record) {
    record.temporary = nullptr;
    const std::shared_ptr<HWND> handle = std::exchange(record.handleInTemporary, nullptr);
    if (!handle)
        return;
    *handle = nullptr;
    GuardedUntilRun([&] { record.queue->Post(nullptr, [handle] {}); });
}

} // namespace

void ForgetWindow(WindowRecord& record) {
    record.DetachObject();
    EndTemporary(record);
    if (!IsOnDisplay(record))
        return;
    ForgetTimers(record.handle);
    ForgetCapture(record.handle);
    ForgetFocus(record.handle);
}

} // namespace korvel::internal
