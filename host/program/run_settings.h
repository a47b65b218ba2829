#pragma once

#include "korvel/platform/store_problem.h"
#include "program/kept_formats.h"

#include <string>

namespace korvel::inspector {

/// Gives the library the locale and the language of a command line, for this run only, and the formats that
/// are kept, changed as the command line asks. A language that is not asked for is the user's, else the one
/// that set-up chose. A settings store that is damaged is set aside; what a store does after that waits for
/// whoever listens next. To be called before the first text or number is made. Throws UsageError for a locale
/// that nobody knows.
TakenFormats ApplySettings(const Options& options);

/// Gives the library the language alone, in which a wrong command line is reported. Empty: the user's.
void UseLanguage(const std::string& language);

/// Sets a damaged settings store aside, which leaves the locale's own values, for this run and, until
/// something is set, the next ones. Returns what the user should know, in UTF-8.
std::string SetAsideIfDamaged(const platform::StoreProblem& problem);
/// The same where the library has thrown an Error, which does not say whether the store is damaged.
/// `elseWrong` is the sentence for a store that is not, with its file as %1.
std::string SetAsideIfDamaged(platform::SettingsRoot root, const char* elseWrong);

} // namespace korvel::inspector
