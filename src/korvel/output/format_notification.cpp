#include "korvel/output/format_notification.h"

#include "korvel/output/angle_output.h"
#include "korvel/output/date_output.h"
#include "korvel/output/measure_output.h"
#include "korvel/output/number_output.h"
#include "korvel/output/station_output.h"
#include "korvel/platform/error.h"

#include <algorithm>
#include <stdexcept>

namespace korvel {

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

FormatNotification& NotificationOf(FormatService service) {
    switch (service) {
    case FormatService::Number:
        return CNumberOutput::Instance().Notification();
    case FormatService::Angle:
        return CAngleOutput::Instance().Notification();
    case FormatService::Date:
        return CDateOutput::Instance().Notification();
    case FormatService::Station:
        return CStationOutput::Instance().Notification();
    case FormatService::ManDays:
        return CManDaysOutput::Instance().Notification();
    case FormatService::None:
        break;
    }
    throw std::invalid_argument("There is no such format service");
}

} // namespace korvel
