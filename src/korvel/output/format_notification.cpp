#include "korvel/output/format_notification.h"

#include "korvel/platform/error.h"

#include <algorithm>

namespace korvel::internal {

void FormatNotification::AddSink(FormatSink* sink) {
    if (sink && !Holds(sink))
        m_sinks.push_back(sink);
}

void FormatNotification::RemoveSink(FormatSink* sink) {
    std::erase(m_sinks, sink);
}

void FormatNotification::Fire() {
    if (m_isFiring)
        throw Error("");
    struct Firing {
        bool& flag;
        explicit Firing(bool& isFiring) : flag(isFiring) { flag = true; }
        ~Firing() { flag = false; }
    } firing(m_isFiring);

    const std::vector<FormatSink*> sinks = m_sinks;
    for (FormatSink* sink : sinks)
        if (Holds(sink))
            sink->OnFormatChanged(m_service);
}

bool FormatNotification::Holds(const FormatSink* sink) const {
    return std::find(m_sinks.begin(), m_sinks.end(), sink) != m_sinks.end();
}

} // namespace korvel::internal
