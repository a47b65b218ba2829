#pragma once

#include <memory>
#include <mutex>
#include <vector>

namespace korvel::internal {

class ThreadQueue;

/// A recursive lock that may be held while one sends to a window whose thread waits for the same lock: whoever
/// waits runs meanwhile what other threads send to its windows, and neither posted messages nor timers nor
/// input. So a waiting caller finds, after lock(), whatever such a send has done.
///
///     const std::lock_guard lock(m_lock);       // a worker
///     m_lower = lower;
///     SendMessageA(bar, PBM_SETRANGE32, ...);   // runs although the window's thread waits in lock()
///
/// What a send of the holder calls gets the lock as well, since the holder goes on only when it has returned;
/// until it leaves the lock, not even the holder's thread gets in.
///
/// It is the only lock that may be held during a send. Whoever holds it must not wait for another thread in
/// any other way.
class ServingLock {
public:
    void lock();
    /// On the thread that called lock().
    void unlock();

private:
    struct Holder {
        const ThreadQueue* thread;
        int depth;
    };

    bool TryTake(const ThreadQueue& thread);

    std::mutex m_mutex;
    std::vector<Holder> m_holders; // each but the first runs what the one before it has sent
    std::vector<std::shared_ptr<ThreadQueue>> m_waiting;
};

} // namespace korvel::internal
