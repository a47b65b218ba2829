#pragma once

#include "program/options.h"

#include <filesystem>
#include <string>

namespace korvel::inspector {

/// What TakeFormats has done.
struct TakenFormats {
    std::string notice;         ///< what the user should know, in UTF-8; empty: nothing
    bool hasUnitOfFile = false; ///< angles are to have the unit of the file that is shown
};

enum class Keeping { ThisRunOnly, LaterRuns };

/// Gives the library the formats that earlier runs kept in a folder, changed by `choice`, and with LaterRuns
/// keeps them when it changes something. At first numbers and dates follow the regional settings, and angles
/// have the unit of the file.
///
///     TakeFormats(folder, {.angleUnit = 'g', .digits = 3, .grouping = {}}, Keeping::LaterRuns);
///     // the next run
///     TakeFormats(folder, {}, Keeping::LaterRuns);   // gon and 3 digits
///
/// A damaged file is set aside under another name, one that cannot be read stays and nothing is kept in this
/// run: in both cases the formats are those of the first run. Formats that cannot be kept are in force for
/// this run.
TakenFormats TakeFormats(const std::filesystem::path& folder, const FormatChoice& choice, Keeping keeping);

/// Writes numbers and dates as a locale has them, for this run, with the digits, the grouping and the angle
/// unit that the user has chosen. To be called after TakeFormats, so that nothing of the locale is kept;
/// nothing changes for a locale that nobody knows.
void WriteAsIn(const std::string& locale);

} // namespace korvel::inspector
