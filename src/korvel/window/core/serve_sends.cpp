#include "korvel/window/core/serve_sends.h"

#include "korvel/window/core/thread_queue.h"

namespace korvel {

void ServeSendsUntil(const std::function<bool()>& done) {
    internal::ThreadQueue::Current()->ServeSendsUntil(done);
}

} // namespace korvel
