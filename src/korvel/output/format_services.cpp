#include "korvel/output/format_services.h"

#include "korvel/output/angle_output.h"
#include "korvel/output/date_output.h"
#include "korvel/output/man_days_output.h"
#include "korvel/output/number_output.h"
#include "korvel/output/station_output.h"

#include <stdexcept>

namespace korvel::internal {

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

} // namespace korvel::internal
