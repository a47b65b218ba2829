#include "korvel/window/core/display_thread.h"

#include <atomic>
#include <mutex>

namespace korvel::internal {
namespace {

struct InForce {
    std::mutex mutex;
    std::atomic<IDisplay*> display = nullptr;
    std::shared_ptr<ThreadQueue> queue;
    std::atomic<const ThreadQueue*> thread = nullptr; // the same queue, to ask for without the mutex
};

// Never destroyed, as windows may end while the process does.
InForce& Current() {
    static auto& inForce = *new InForce;
    return inForce;
}

DisplayMaker* defaultMaker = nullptr;

} // namespace

IDisplay& DisplayInForce() {
    if (IDisplay* display = Current().display.load())
        return *display;
    // Only one of several threads that are the first to need one makes it its own.
    static std::once_flag once;
    std::call_once(once, [] {
        if (Current().display.load())
            return;
        PutInForce(defaultMaker());
        Current().display.load()->Wake(); // what was posted before still waits
    });
    return *Current().display.load();
}

std::shared_ptr<ThreadQueue> DisplayQueue() {
    DisplayInForce();
    const std::lock_guard lock(Current().mutex);
    return Current().queue;
}

bool IsDisplayThread() {
    DisplayInForce();
    return Current().thread.load() == ThreadQueue::Current().get();
}

bool IsOnDisplay(const WindowRecord& record) {
    DisplayInForce();
    return Current().thread.load() == record.queue.get();
}

bool IsInForce(const IDisplay& display) {
    return Current().display.load() == &display;
}

bool SetDefaultDisplay(DisplayMaker* make) {
    defaultMaker = make;
    return true;
}

IDisplay& DefaultDisplay() {
    return defaultMaker();
}

bool PutInForce(IDisplay& display) {
    const auto& queue = ThreadQueue::Current();
    const std::lock_guard lock(Current().mutex);
    const auto former = std::exchange(Current().queue, queue);
    Current().display = &display;
    Current().thread = queue.get();
    if (former && former != queue)
        former->SetWaker({});
    queue->SetWaker([&display] { display.Wake(); });
    return former == queue;
}

} // namespace korvel::internal
