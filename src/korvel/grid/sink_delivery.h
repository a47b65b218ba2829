#pragma once

#include "korvel/grid/sink_records.h"
#include "korvel/window/base/types.h"

#include <memory>

namespace korvel::internal {

struct DeleteSinkRecord {
    void operator()(SNotifyOpenGLSink* record) const;
};
using OwnedSinkRecord = std::unique_ptr<SNotifyOpenGLSink, DeleteSinkRecord>;

/// One record on its way to the window of a grid. Whether a grid took it is told here and not by the answer
/// of the message, which is 0 also when the operation throws. What no grid took is freed with the delivery.
class SinkDelivery {
public:
    explicit SinkDelivery(OwnedSinkRecord record) : m_record(std::move(record)) {}
    SinkDelivery(const SinkDelivery&) = delete;
    SinkDelivery& operator=(const SinkDelivery&) = delete;

    /// Sends the record, and returns after the window's thread has handled it, or the window is gone. What
    /// the operation throws comes out on the window's own thread only. Any thread.
    void Send(HWND window);

    /// The record that a message brought, for the receiver to own: out of its delivery, or from a host that
    /// sent or posted one of its own.
    static OwnedSinkRecord Take(SNotifyOpenGLSink& record);

private:
    OwnedSinkRecord m_record;
    SinkDelivery* m_outer = nullptr; // on the window's thread, while this one is handled there
};

} // namespace korvel::internal
