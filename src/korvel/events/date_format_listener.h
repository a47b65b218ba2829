#pragma once

#include "korvel/output/format_notification.h"
#include "korvel/output/format_services.h"
#include "korvel/output/format_subscription.h"

namespace korvel::internal {

/// Tells a sink of every change of the date format, from `Begin` on and as long as it lives.
class DateFormatListener final : private FormatSink {
public:
    /// `sink` must outlive it.
    explicit DateFormatListener(IDateFormatChanged& sink) : m_sink(sink) {}
    ~DateFormatListener() {
        if (m_isListening)
            NotificationOf(FormatService::Date).RemoveSink(this);
    }
    DateFormatListener(const DateFormatListener&) = delete;
    DateFormatListener& operator=(const DateFormatListener&) = delete;

    /// Not in the constructor: the first listener reads the regional settings, which may fail.
    void Begin() {
        if (!m_isListening)
            NotificationOf(FormatService::Date).AddSink(this);
        m_isListening = true;
    }

private:
    void OnFormatChanged(FormatService) override { m_sink.OnChanged(); }

    IDateFormatChanged& m_sink;
    bool m_isListening = false;
};

} // namespace korvel::internal
