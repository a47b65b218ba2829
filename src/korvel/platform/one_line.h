#pragma once

#include "korvel/platform/export.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace korvel::platform {

/// Appends a text so that it stays in one line: a tab, a line end (CR LF is one) and a zero byte each become one
/// blank.
///
///     AppendInOneLine(line, "two\r\nlines")   // appends "two lines"
KORVEL_API void AppendInOneLine(std::string& line, std::string_view text);

/// Appends a text in one line as a cell of a table with tabs and line ends between. Where its first mark after
/// any blanks is a quotation mark, it stands in quotation marks with its own doubled: programs that take such
/// tables would else read on to the next quotation mark, across the ends of cells and lines.
///
///     AppendTableCell(line, "\"A\" 7")   // appends "\"\"\"A\"\" 7\""
///     AppendTableCell(line, "A \"7\"")   // appends "A \"7\""
KORVEL_API void AppendTableCell(std::string& line, std::string_view text);
/// The same for a cell that was appended in one line already, from `start` to the end.
KORVEL_API void QuoteTableCell(std::string& line, std::size_t start);

} // namespace korvel::platform
