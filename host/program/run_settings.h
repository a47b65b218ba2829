#pragma once

#include "program/options.h"

#include <string>

namespace korvel::inspector {

/// Gives the library the locale and the language of a command line, for this run only, and the formats that
/// are kept, changed as the command line asks. A language that is not asked for is the user's, else the one
/// that set-up chose. To be called before the first text or number is made. Returns what the user should know
/// of the kept formats, in UTF-8; empty: nothing. Throws UsageError for a locale that nobody knows.
std::string ApplySettings(const Options& options);

} // namespace korvel::inspector
