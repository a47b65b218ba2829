#include "korvel/window/display/display.h"

#include "korvel/window/core/cwnd_access.h"
#include "korvel/window/core/desktop.h"
#include "korvel/window/core/own_windows.h"
#include "korvel/window/display/headless_display.h"

#include <atomic>
#include <mutex>

namespace korvel {

using namespace internal;

namespace {

struct InForce {
    std::mutex mutex; // keeps a display alive while another thread wakes it
    std::atomic<IDisplay*> display = nullptr;
    std::shared_ptr<ThreadQueue> queue;
    std::atomic<const ThreadQueue*> thread = nullptr; // the same queue, to ask for without the mutex
};

// Never destroyed, as windows may end while the process does.
InForce& Current() {
    static auto& inForce = *new InForce;
    return inForce;
}

HeadlessDisplay& DefaultDisplay() {
    static auto& display = *new HeadlessDisplay;
    return display;
}

void TellCreated(IDisplay& display, HWND window) {
    const RecordRef record = Find(window);
    if (!record)
        return;
    display.Created(window);
    for (const HWND child : record->children)
        TellCreated(display, child);
}

} // namespace

IDisplay& Display() {
    if (IDisplay* display = Current().display.load())
        return *display;
    // Only one of several threads that are the first to need one makes it its own.
    static std::once_flag once;
    std::call_once(once, [] {
        if (!Current().display.load())
            SetDisplay(nullptr);
    });
    return *Current().display.load();
}

void SetDisplay(IDisplay* newDisplay) {
    IDisplay& display = newDisplay ? *newDisplay : DefaultDisplay();
    const auto& queue = ThreadQueue::Current();
    bool sameThread = false;
    {
        const std::lock_guard lock(Current().mutex);
        sameThread = Current().queue == queue;
        Current().display = &display;
        Current().queue = queue;
        Current().thread = queue.get();
    }
    if (!sameThread) {
        ForgetFocusAndCapture();
        ForgetTimers();
    }
    for (const RecordRef& record : OwnWindows())
        if (!record->parent)
            TellCreated(display, record->handle);
    TellFocusAndCapture(display);
    RestartTimers(display);
    display.Wake(); // what was posted before still waits
}

namespace internal {

std::shared_ptr<ThreadQueue> DisplayQueue() {
    Display();
    const std::lock_guard lock(Current().mutex);
    return Current().queue;
}

bool IsDisplayThread() {
    Display();
    return Current().thread.load() == ThreadQueue::Current().get();
}

bool IsOnDisplay(const WindowRecord& record) {
    Display();
    return Current().thread.load() == record.queue.get();
}

bool IsInForce(const IDisplay& display) {
    return Current().display.load() == &display;
}

void WakeDisplayOf(const ThreadQueue& queue) {
    const std::lock_guard lock(Current().mutex);
    if (Current().display.load() && Current().queue.get() == &queue)
        Current().display.load()->Wake();
}

void ForgetWindow(WindowRecord& record) {
    WindowAccess::Detach(record);
    if (!IsOnDisplay(record))
        return;
    ForgetTimers(record.handle);
    ForgetCapture(record.handle);
    ForgetFocus(record.handle);
}

void TellDisplay(WindowRecord& record, Aspects aspects) {
    if (!record.redraw)
        record.untold |= aspects;
    else if (IsOnDisplay(record))
        Display().Changed(record.handle, aspects);
}

void Repaint(WindowRecord& record, const CRect* area) {
    if (!record.redraw || !IsOnDisplay(record))
        return;
    const CRect inside = ClientArea(record);
    const CRect client{0, 0, inside.Width(), inside.Height()};
    const CRect clipped = area ? client.Intersected(*area) : client;
    if (!clipped.IsRectEmpty())
        Display().Invalidate(record.handle, clipped);
}

} // namespace internal
} // namespace korvel
