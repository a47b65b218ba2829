#pragma once

#include "korvel/platform/regional_settings.h"

#include <optional>
#include <string>

namespace korvel::internal {

/// A locale's usual name with language and country ("de-DE") for the name that a user or the C library gives
/// it: "de", "de_DE.UTF-8", "de-DE". A variant counts only where it names a script. Nothing when the language
/// is unknown, or when these are no parts of a locale.
std::optional<std::string> FindLocale(const std::string& name);

/// What the two locales, both by their usual names, have for numbers, and for dates, times and the country.
/// Throws Error when the data cannot be read.
platform::RegionalSettings LocaleData(const std::string& numberLocale, const std::string& timeLocale);

} // namespace korvel::internal
