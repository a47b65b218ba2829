#pragma once

#include "korvel/events/event_place.h"
#include "korvel/events/event_source.h"

#include <cstddef>
#include <memory>

namespace korvel {

class CEventSinkObserver;

/// Takes reports of any thread and hands them to the sinks of a source, on the thread that made the queue: the
/// thread of the windows.
///
///     EventQueue queue(import);                        // a CEventSinkObserver, to which a CGridEvents listens
///     std::jthread worker([&] { queue.AddInfoMsg("Import", "Axis 3 read"); });
///     ...                                              // the list shows it when messages are next dispatched
///
/// A report never waits: it gets its moment at once, on its own thread, and its thread goes on. The texts of
/// date and time are written when it is handed over. The reports of one thread keep their order, and none is
/// lost while the queue lives: also when a sink throws, which ends the walk for that message alone; the
/// exception goes to the exception handler. While a sink is called no other message is handed over, even if
/// it runs a dialog. Many messages are handed over in parts, so that the user's input comes between.
///
/// What waits when the queue dies is freed and not handed over. As with every object, no thread may be
/// within a call of it then: end the workers first.
class KORVEL_API EventQueue : public IEventSource {
public:
    /// `target` must outlive it.
    explicit EventQueue(CEventSinkObserver& target);
    ~EventQueue() override;
    EventQueue(const EventQueue&) = delete;
    EventQueue& operator=(const EventQueue&) = delete;

    // Any thread.
    void AddErrorMsg(const std::string& source, const std::string& event) override;
    void AddWarningMsg(const std::string& source, const std::string& event) override;
    void AddInfoMsg(const std::string& source, const std::string& event) override;
    /// With the place that the message is about.
    void Add(CEventMessage::EEventType type, const std::string& source, const std::string& event,
             EventPlace place);
    /// How many messages wait.
    std::size_t Waiting() const;

    /// Hands over all that wait, and what comes meanwhile; on the thread of the queue. Before the list is saved
    /// at the end of the work, say. An exception of a sink comes out; what still waits stays. Does nothing
    /// while a sink is called.
    void HandOver();

private:
    class Line;

    const std::shared_ptr<Line> m_line; // what was posted may outlive the queue
};

} // namespace korvel
