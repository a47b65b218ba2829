#include "korvel/window/core/thread_queue.h"

#include "korvel/window/core/uncaught.h"
#include "korvel/window/core/window.h"

#include <chrono>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

namespace korvel::internal {
namespace {

// Of a sender: most calls are over sooner than it would fall asleep and be woken.
constexpr int TurnsBeforeSleep = 16;

// Trivially destroyed, so that objects that die late in a thread still find their queue.
thread_local std::shared_ptr<ThreadQueue>* t_queue = nullptr;

struct ThreadEnd {
    ~ThreadEnd() {
        const std::shared_ptr<ThreadQueue> queue = *t_queue;
        queue->End();
        delete t_queue;
        t_queue = nullptr;
    }
};

} // namespace

const std::shared_ptr<ThreadQueue>& ThreadQueue::Current() {
    if (!t_queue) {
        t_queue = new std::shared_ptr<ThreadQueue>(std::make_shared<ThreadQueue>());
        static thread_local const ThreadEnd end{};
    }
    return *t_queue;
}

void ThreadQueue::Send(HWND window, const Action& action) {
    const std::shared_ptr<ThreadQueue> own = Current();
    std::atomic<bool> done = false; // set under the mutex of the own queue
    {
        const std::lock_guard lock(m_mutex);
        if (m_closed || (window && !IsWindow(window)))
            return;
        m_calls.push_back({window, &action, own, &done, own->m_running});
    }
    m_arrived.notify_one();
    Wake();
    for (int turn = 0; turn < TurnsBeforeSleep && !done; ++turn)
        std::this_thread::yield();
    if (done)
        return;
    std::unique_lock lock(own->m_mutex);
    for (;;) {
        own->m_arrived.wait(lock, [&] { return done || !own->m_calls.empty(); });
        if (done)
            return;
        lock.unlock();
        GuardedUntilRun([&] { own->RunSends(); });
        lock.lock();
    }
}

bool ThreadQueue::Post(HWND window, Action action) {
    {
        const std::lock_guard lock(m_mutex);
        if (m_closed)
            return false;
        m_posted.push_back({window, std::move(action)});
    }
    Wake();
    return true;
}

void ThreadQueue::Run() {
    struct WakeForRest {
        ThreadQueue& queue;
        ~WakeForRest() {
            if (!queue.IsIdle())
                queue.Wake();
        }
    } const wakeForRest{*this};

    RunSends();
    std::unique_lock lock(m_mutex);
    for (std::size_t count = m_posted.size(); count > 0 && !m_posted.empty(); --count) {
        const Posted posted = std::move(m_posted.front());
        m_posted.pop_front();
        lock.unlock();
        posted.action();
        RunSends();
        lock.lock();
    }
}

void ThreadQueue::ServeSendsUntil(const std::function<bool()>& done) {
    constexpr std::chrono::milliseconds Step{5}; // what is waited for may happen without a message
    while (!done()) {
        bool hasRun = true; // also one that throws
        GuardedUntilRun([&] { hasRun = RunNextSend(); });
        if (hasRun)
            continue;
        std::unique_lock lock(m_mutex);
        m_arrived.wait_for(lock, Step, [&] { return m_isNudged || !m_calls.empty(); });
        m_isNudged = false;
    }
}

void ThreadQueue::Nudge() {
    {
        const std::lock_guard lock(m_mutex);
        m_isNudged = true;
    }
    m_arrived.notify_one();
}

bool ThreadQueue::RunsFor(const ThreadQueue& sender) const {
    return IsFor(sender, m_running);
}

bool ThreadQueue::IsFor(const ThreadQueue& sender, const Running* running) {
    for (; running; running = running->outer)
        if (running->call.sender.get() == &sender || IsFor(sender, running->call.cause))
            return true;
    return false;
}

void ThreadQueue::RunSends() {
    while (RunNextSend()) {
    }
}

bool ThreadQueue::RunNextSend() {
    std::optional<Call> call;
    {
        const std::lock_guard lock(m_mutex);
        if (m_calls.empty())
            return false;
        call = m_calls.front();
        m_calls.pop_front();
    }
    RunOne(*call);
    return true;
}

void ThreadQueue::RunOne(const Call& call) {
    struct Run {
        ThreadQueue& queue;
        const Running running;
        ~Run() {
            queue.m_running = running.outer;
            Release(running.call);
        }
    } const run{*this, {call, m_running}};
    m_running = &run.running;
    (*call.action)();
}

void ThreadQueue::Release(const Call& call) {
    {
        const std::lock_guard lock(call.sender->m_mutex);
        *call.done = true;
    }
    call.sender->m_arrived.notify_one(); // after the lock, on which who is woken would wait
}

void ThreadQueue::SetWaker(Action wake) {
    const std::lock_guard lock(m_wakerMutex);
    m_waker = std::move(wake);
}

void ThreadQueue::Wake() {
    const std::lock_guard lock(m_wakerMutex);
    if (m_waker)
        m_waker();
}

bool ThreadQueue::IsIdle() {
    const std::lock_guard lock(m_mutex);
    return m_calls.empty() && m_posted.empty();
}

void ThreadQueue::Forget(HWND window) {
    std::vector<Call> dropped;
    {
        const std::lock_guard lock(m_mutex);
        std::erase_if(m_posted, [&](const Posted& posted) { return posted.window == window; });
        std::erase_if(m_calls, [&](const Call& call) {
            if (call.window == window)
                dropped.push_back(call);
            return call.window == window;
        });
    }
    for (const Call& call : dropped)
        Release(call);
}

void ThreadQueue::End() {
    if (m_lastAction)
        m_lastAction();
    std::deque<Call> dropped;
    {
        const std::lock_guard lock(m_mutex);
        m_closed = true;
        dropped.swap(m_calls);
        m_posted.clear();
    }
    for (const Call& call : dropped)
        Release(call);
}

void GuardedUntilRun(const std::function<void()>& action) noexcept {
    try {
        if (const std::exception_ptr failure = FailureOf(action))
            ThreadQueue::Current()->Post(
                nullptr, [failure] { std::rethrow_exception(failure); });
    } catch (...) { // there is not even memory to hand it on
    }
}

} // namespace korvel::internal
