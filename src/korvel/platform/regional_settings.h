#pragma once

#include "korvel/platform/calendar_names.h"
#include "korvel/platform/export.h"

#include <string>

namespace korvel::platform {

/// How the user writes numbers, dates and times. All are texts of the library (code_page.h).
///
///     UseLocale("de-DE");
///     RegionalSettings german = ReadRegionalSettings();
///     german.decimalSeparator   -> ","
///     german.longDatePicture    -> "dddd, d. MMMM yyyy"
///
/// The values are those of the user's locale (en-US where there is none but the C library's own), each
/// overridden by a text of the same meaning in the user's settings store, key `Control Panel\International`:
/// `sDecimal`, `sThousand`, `sGrouping`, `iDigits`, `iLZero`, `iNegNumber`, `sLongDate`, `sShortDate`,
/// `sTimeFormat`. This is how a user changes one while programs run; the numbers (`i...`) are read as `atoi`
/// reads them.
///
/// Names and pictures are exactly the locale's. A separator is one byte a character: a letter of the code
/// page, the letter without its accent, or the separator of en-US.
struct RegionalSettings {
    std::string decimalSeparator;
    std::string thousandsSeparator; ///< may be empty
    std::string grouping;           ///< sizes from the right, "3;0" or "3;2;0"; 0 repeats the last
    int digits = 2;                 ///< after the decimal separator
    int leadingZero = 1;            ///< 0: ".5", 1: "0.5"
    int negativeOrder = 1;          ///< 0 "(1,1)", 1 "-1,1", 2 "- 1,1", 3 "1,1-", 4 "1,1 -"

    /// Pictures: d, dd, ddd, dddd, M to MMMM, y, yy, yyyy; h, hh, H, HH, m, mm, s, ss, tt; other text is
    /// between apostrophes where it holds letters.
    std::string longDatePicture;
    std::string shortDatePicture;
    std::string timePicture;

    std::string countryName; ///< abbreviated, three letters: "DEU"
    CalendarNames names;
};

/// Reads everything afresh, which takes about a millisecond: keep what it gives, read again after a change.
/// Where the user's settings store cannot be read, the locale's own values serve, and the listener of
/// store_problem.h is told. May be called from any thread.
KORVEL_API RegionalSettings ReadRegionalSettings();

/// Takes this locale, written "de-DE" or "de_DE.UTF-8", instead of the user's for the rest of the process; an
/// empty name returns to the user's. False, and nothing changed, for a language of which nothing is known.
KORVEL_API bool UseLocale(const std::string& name);

/// Two letters ("de") for the language in which this machine speaks to its user; UseLocale does not change
/// it.
KORVEL_API std::string UserLanguage();

} // namespace korvel::platform
