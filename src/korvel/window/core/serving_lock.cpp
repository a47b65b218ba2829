#include "korvel/window/core/serving_lock.h"

#include "korvel/window/core/thread_queue.h"

#include <algorithm>

namespace korvel::internal {

void ServingLock::lock() {
    const auto& thread = ThreadQueue::Current();
    if (TryTake(*thread))
        return;
    {
        const std::lock_guard lock(m_mutex);
        m_waiting.push_back(thread);
    }
    thread->ServeSendsUntil([&] { return TryTake(*thread); });
    const std::lock_guard lock(m_mutex);
    // One entry of this thread: a send that it served may wait as well.
    m_waiting.erase(std::ranges::find(m_waiting, thread));
}

void ServingLock::unlock() {
    const std::lock_guard lock(m_mutex);
    if (--m_holders.back().depth > 0)
        return;
    m_holders.pop_back();
    for (const auto& thread : m_waiting)
        thread->Nudge();
}

bool ServingLock::TryTake(const ThreadQueue& thread) {
    const std::lock_guard lock(m_mutex);
    if (!m_holders.empty() && m_holders.back().thread == &thread) {
        ++m_holders.back().depth;
        return true;
    }
    if (!m_holders.empty() && !thread.RunsFor(*m_holders.back().thread))
        return false;
    m_holders.push_back({&thread, 1});
    return true;
}

} // namespace korvel::internal
