#pragma once

#include "korvel/output/number_format.h"
#include "korvel/platform/regional_settings.h"

namespace korvel::internal {

/// What the services follow as long as the user has set nothing else.
enum class SystemFormat { Integer, Float };

/// The number format of the regional settings, `System` being true; without decimals for integers. Read at
/// first use. \throws Error when the settings cannot be read; the next call tries again
const NumberFormat& SystemNumberFormat(SystemFormat kind);

/// The regional settings as they were read last.
const platform::RegionalSettings& SystemSettings();

/// Reads the regional settings again. \throws Error when that fails; what was read before then stays.
void RereadSystemSettings();

} // namespace korvel::internal
