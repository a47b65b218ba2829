#pragma once

#include "korvel/events/event_message.h"
#include "korvel/events/owner_offset.h"
#include "korvel/platform/export.h"

namespace korvel {

/// Receives what a CEventSinkObserver reports. Called on the thread that reports.
class KORVEL_API IEventSink {
public:
    virtual ~IEventSink() = default;
    /// Something was reported. The message is lent for the call: whoever keeps it copies it.
    virtual void OnAddEvent(const CEventMessage& message) = 0;
    /// What was reported so far is to be shown no longer.
    virtual void OnClearEvent() = 0;
};

/// Forwards to the operations of the same names of its owner, of which it is a part.
///
///     class Journal {
///     public:
///         void OnAddEvent(const CEventMessage& message) { Write(message.m_strEvent); }
///         void OnClearEvent() {}
///         IEventSink* Sink() { return &m_sink; }
///
///     private:
///         CEventSinkImp<Journal> m_sink{this};
///     };
template <typename T>
class CEventSinkImp : public IEventSink {
public:
    explicit CEventSinkImp(T* owner) : m_owner(this, owner) {}

    void OnAddEvent(const CEventMessage& message) override { m_owner.From(this).OnAddEvent(message); }
    void OnClearEvent() override { m_owner.From(this).OnClearEvent(); }

private:
    OwnerOffset<T> m_owner;
};

} // namespace korvel
