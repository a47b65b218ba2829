#include "korvel/events/event_queue.h"

#include "korvel/events/event_sink_observer.h"
#include "korvel/events/event_times.h"
#include "korvel/platform/raised_flag.h"
#include "korvel/window/core/thread_queue.h"

#include <deque>
#include <limits>
#include <mutex>
#include <optional>
#include <utility>

namespace korvel {

using namespace internal;

namespace {

constexpr std::size_t Part = 500; // messages between two looks at the user's input
constexpr std::size_t All = std::numeric_limits<std::size_t>::max();

struct WaitingEvent {
    CEventMessage message;
    std::optional<EventPlace> place;
};

} // namespace

class EventQueue::Line : public std::enable_shared_from_this<Line> {
public:
    explicit Line(CEventSinkObserver& target) : m_target(target), m_thread(ThreadQueue::Current()) {}

    void Add(WaitingEvent event);
    std::size_t Size() const;
    void HandOver(std::size_t most);
    // On the thread of the queue, from within a sink too: nothing more is handed over.
    void Close() { m_isClosed = true; }

private:
    void PostWakeUp();
    void ForgetWakeUp();
    std::optional<WaitingEvent> TakeFirst();

    CEventSinkObserver& m_target;
    const std::shared_ptr<ThreadQueue> m_thread;
    mutable std::mutex m_mutex;
    std::deque<WaitingEvent> m_waiting;
    bool m_isWakeUpPosted = false;
    // Of the queue's thread alone.
    bool m_isHandingOver = false;
    bool m_isClosed = false;
};

void EventQueue::Line::Add(WaitingEvent event) {
    {
        const std::lock_guard lock(m_mutex);
        m_waiting.push_back(std::move(event));
    }
    PostWakeUp();
}

// One is enough for all that wait. Where the thread has ended nothing is handed over any more.
void EventQueue::Line::PostWakeUp() {
    {
        const std::lock_guard lock(m_mutex);
        if (m_waiting.empty() || std::exchange(m_isWakeUpPosted, true))
            return;
    }
    const auto wakeUp = [weak = weak_from_this()] {
        if (const auto line = weak.lock()) {
            line->ForgetWakeUp();
            line->HandOver(Part);
        }
    };
    try {
        m_thread->Post(nullptr, wakeUp);
    } catch (...) {
        ForgetWakeUp();
        throw;
    }
}

void EventQueue::Line::ForgetWakeUp() {
    const std::lock_guard lock(m_mutex);
    m_isWakeUpPosted = false;
}

std::size_t EventQueue::Line::Size() const {
    const std::lock_guard lock(m_mutex);
    return m_waiting.size();
}

std::optional<WaitingEvent> EventQueue::Line::TakeFirst() {
    const std::lock_guard lock(m_mutex);
    if (m_waiting.empty())
        return std::nullopt;
    WaitingEvent first = std::move(m_waiting.front());
    m_waiting.pop_front();
    return first;
}

// Whoever calls it keeps the line: a sink may close it.
void EventQueue::Line::HandOver(std::size_t most) {
    if (m_isHandingOver)
        return;
    struct WakeUpForRest {
        Line& line;
        ~WakeUpForRest() {
            GuardedUntilRun([this] { line.PostWakeUp(); });
        }
    } const wakeUpForRest{*this};
    const RaisedFlag handingOver(m_isHandingOver);
    for (std::size_t count = 0; count < most && !m_isClosed; ++count) {
        auto event = TakeFirst();
        if (!event)
            return;
        EventTimeTexts().Write(event->message); // a sink may have changed the formats
        if (event->place)
            m_target.Fire_OnAddEvent(event->message, *event->place);
        else
            m_target.Fire_OnAddEvent(event->message);
    }
}

EventQueue::EventQueue(CEventSinkObserver& target) : m_line(std::make_shared<Line>(target)) {}

EventQueue::~EventQueue() {
    m_line->Close();
}

void EventQueue::AddErrorMsg(const std::string& source, const std::string& event) {
    m_line->Add({StampedMessage(CEventMessage::eError, source, event), {}});
}

void EventQueue::AddWarningMsg(const std::string& source, const std::string& event) {
    m_line->Add({StampedMessage(CEventMessage::eWarning, source, event), {}});
}

void EventQueue::AddInfoMsg(const std::string& source, const std::string& event) {
    m_line->Add({StampedMessage(CEventMessage::eInformation, source, event), {}});
}

void EventQueue::Add(CEventMessage::EEventType type, const std::string& source, const std::string& event,
                     EventPlace place) {
    m_line->Add({StampedMessage(type, source, event), std::move(place)});
}

std::size_t EventQueue::Waiting() const {
    return m_line->Size();
}

void EventQueue::HandOver() {
    const auto line = m_line;
    line->HandOver(All);
}

} // namespace korvel
