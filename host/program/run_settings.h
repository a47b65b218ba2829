#pragma once

#include "program/kept_formats.h"

#include <string>

namespace korvel::inspector {

/// Gives the library the locale and the language of a command line, for this run only, and the formats that
/// are kept, changed as the command line asks. A language that is not asked for is the user's, else the one
/// that set-up chose. A settings store that is damaged is set aside. To be called before the first text or number is
/// made. Throws UsageError for a locale that nobody knows.
TakenFormats ApplySettings(const Options& options);

} // namespace korvel::inspector
