#pragma once

#include "options.h"

namespace korvel::inspector {

/// Gives the library the locale, the language and the angle unit of a command line, for this run only. To be
/// called before the first text or number is made. Throws UsageError for a locale that nobody knows.
void ApplySettings(const Options& options);

} // namespace korvel::inspector
