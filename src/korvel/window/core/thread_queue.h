#pragma once

#include "korvel/window/base/types.h"

#include <atomic>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <utility>

namespace korvel::internal {

/// What other threads want done on one thread: calls whose senders wait, and posted messages. Every
/// thread has one, made at first use and closed when the thread ends.
class ThreadQueue {
public:
    using Action = std::function<void()>;

    /// The queue of the calling thread.
    static const std::shared_ptr<ThreadQueue>& Current();

    /// Has `action` run by the queue's thread and waits for it. While it waits, the calling thread runs
    /// the calls that other threads send to it, so that two threads may send to each other. Returns without
    /// a run when `window` (null: no window) is gone, is forgotten or the queue closes first.
    void Send(HWND window, const Action& action);
    /// False when the queue's thread has ended.
    bool Post(HWND window, Action action);

    /// Runs the sends and what was posted before the call; on the queue's thread. A sender is released
    /// before the exception of its call comes out here; the rest stays for the next call.
    void Run();
    /// Runs sends alone until `done` returns true; on the queue's thread.
    void ServeSendsUntil(const std::function<bool()>& done);
    /// Has ServeSendsUntil ask again at once whether it is done. Any thread.
    void Nudge();
    /// True while this thread runs what `sender` waits for: a call of its own, or one that such a call has
    /// led to. On the queue's thread.
    bool RunsFor(const ThreadQueue& sender) const;
    /// Drops what waits for a window; its senders return.
    void Forget(HWND window);
    /// Runs the last action; the senders that wait return, and nothing is taken any more. By the queue's
    /// thread.
    void End();

    /// Called on any thread each time something arrives (empty: nothing is called). Once this has returned,
    /// the former one is called no more. It must not call the queue.
    void SetWaker(Action wake);
    /// Runs when the queue's thread ends.
    void SetLastAction(Action action) { m_lastAction = std::move(action); }

private:
    struct Running;
    struct Call {
        HWND window;
        const Action* action;
        std::shared_ptr<ThreadQueue> sender;
        std::atomic<bool>* done;
        const Running* cause; // what the sender was running itself
    };
    /// A call that is being run. It stands as long as its sender waits, so that other threads may read it.
    struct Running {
        const Call& call;
        const Running* outer; // in which this thread has come to run it
    };
    struct Posted {
        HWND window;
        Action action;
    };

    void RunSends();
    /// False: none waits.
    bool RunNextSend();
    void RunOne(const Call& call);
    static void Release(const Call& call);
    static bool IsFor(const ThreadQueue& sender, const Running* running);
    bool IsIdle();
    void Wake();

    std::mutex m_mutex;
    std::condition_variable m_arrived;
    std::deque<Call> m_calls;
    std::deque<Posted> m_posted;
    bool m_closed = false;
    bool m_isNudged = false;
    const Running* m_running = nullptr; // the queue's thread's own
    std::mutex m_wakerMutex;            // keeps alive what the waker calls while it does
    Action m_waker;
    Action m_lastAction;
};

/// Guarded (core/uncaught.h) for where no exception may leave: what the handler does not take comes out of
/// the next Run of the calling thread.
KORVEL_API void GuardedUntilRun(const std::function<void()>& action) noexcept;

} // namespace korvel::internal
