#pragma once

#include "korvel/output/format_notification.h"

namespace korvel::internal {

/// The listeners of a service, which is made if need be. \throws std::invalid_argument for
/// `FormatService::None`; \throws Error when the service is made and the regional settings cannot be read
FormatNotification& NotificationOf(FormatService service);

} // namespace korvel::internal
