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

void CFormatNotification::AddSink(IFormatSink* sink) {
    if (sink && !Holds(sink))
        m_sinks.push_back(sink);
}

void CFormatNotification::RemoveSink(IFormatSink* sink) {
    std::erase(m_sinks, sink);
}

void CFormatNotification::Fire() {
    if (m_isFiring)
        throw Error("");
    struct SFiring {
        bool& flag;
        explicit SFiring(bool& isFiring) : flag(isFiring) { flag = true; }
        ~SFiring() { flag = false; }
    } firing(m_isFiring);

    const std::vector<IFormatSink*> sinks = m_sinks;
    for (IFormatSink* sink : sinks)
        if (Holds(sink))
            sink->OnFormatChanged(m_service);
}

bool CFormatNotification::Holds(const IFormatSink* sink) const {
    return std::find(m_sinks.begin(), m_sinks.end(), sink) != m_sinks.end();
}

CFormatNotification& NotificationOf(EFormatService service) {
    switch (service) {
    case EFormatService::Number:
        return CNumberOutput::Instance().Notification();
    case EFormatService::Angle:
        return CAngleOutput::Instance().Notification();
    case EFormatService::Date:
        return CDateOutput::Instance().Notification();
    case EFormatService::Station:
        return CStationOutput::Instance().Notification();
    case EFormatService::ManDays:
        return CManDaysOutput::Instance().Notification();
    case EFormatService::None:
        break;
    }
    throw std::invalid_argument("There is no such format service");
}

} // namespace korvel
