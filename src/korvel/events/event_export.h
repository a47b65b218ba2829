#pragma once

#include "korvel/platform/export.h"
#include "korvel/window/core/display.h"

#include <filesystem>
#include <optional>

namespace korvel {

class CGridEvents;

/// Which rows of an event list.
enum class EventRows {
    Selected,
    Shown // all that the filter lets through
};

/// The rows of an event list as text, from the top: the columns with a tab between, a message on each line with
/// a line feed between. A tab, a line end and a zero byte within a text each become one blank; a text that
/// begins with a quotation mark stands in quotation marks, its own doubled, as spreadsheets take it.
///
///     EventsAsText(list, EventRows::Shown)   // "Error\t23.11.2026\t10:15:00\tImport\tAxis 3 has no points"
KORVEL_API CString EventsAsText(const CGridEvents& list, EventRows rows);

/// Puts that text on the clipboard, and returns what became of it. Nothing where there is no such row: the
/// clipboard stays as it is.
KORVEL_API std::optional<ClipboardAnswer> CopyEvents(const CGridEvents& list, EventRows rows);

/// Writes the text of all rows that are shown into a file, in UTF-8 and with a line feed at the end of each line.
/// A former file is replaced whole or stays. \throws FileError where that fails
KORVEL_API void SaveEvents(const CGridEvents& list, const std::filesystem::path& path);

} // namespace korvel
