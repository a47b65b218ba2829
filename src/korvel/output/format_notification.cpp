#include "korvel/output/format_notification.h"

#include "korvel/platform/error.h"
#include "korvel/platform/first_failure.h"
#include "korvel/platform/raised_flag.h"

#include <algorithm>

namespace korvel::internal {

void FormatNotification::AddSink(FormatSink* sink) {
    if (sink && !Holds(sink))
        m_sinks.push_back(sink);
}

void FormatNotification::RemoveSink(FormatSink* sink) {
    std::erase(m_sinks, sink);
}

void FormatNotification::Fire(int times) {
    if (m_isFiring)
        throw Error("");
    const RaisedFlag firing(m_isFiring);
    FirstFailure failure;
    for (; times > 0; --times) {
        const std::vector<FormatSink*> sinks = m_sinks;
        for (FormatSink* sink : sinks)
            if (Holds(sink))
                failure.Try([&] { sink->OnFormatChanged(m_service); });
    }
    failure.Rethrow();
}

bool FormatNotification::Holds(const FormatSink* sink) const {
    return std::find(m_sinks.begin(), m_sinks.end(), sink) != m_sinks.end();
}

} // namespace korvel::internal
